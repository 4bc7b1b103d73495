#include "support/march.h"

#include "manoeuvre/routes.h"

namespace sm::test {

int Plot(int unit, std::initializer_list<Node> nodes)
{
    int row = 0;
    for (const Node& node : nodes) {
        row = Next_Free_Node(unit);
        Add_Move_Node(unit, row, node.X, node.Y);
        if (row == 0) return 0;
    }
    return row;
}

}   // namespace sm::test
