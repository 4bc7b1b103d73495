#pragma once
#include <initializer_list>

namespace sm::test {

struct Node {
    int X, Y;
};
/// Plots a route through these points, the way a player does. Returns the row of its last node, 0 when one was
/// refused.
int Plot(int unit, std::initializer_list<Node> nodes);

}   // namespace sm::test
