#include "core/game_state.h"

#include <cstdio>

int main() { std::puts("stonemarch-battle"); }
