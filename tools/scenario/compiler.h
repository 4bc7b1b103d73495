#pragma once
// Makes a scenario of the game from its text. What the text may say stands in data/scenarios/README.md.

#include "script.h"

#include <string>

namespace sm::scenario {

/// Builds the game in play from statements. Fails with Bad_Script, or with Bad_Scripts when units or orders are at
/// fault.
void Compile(const std::vector<STATEMENT>& statements, const std::string& maps_folder);

/// "84 + 75 units, 231 + 244 nodes": what was built.
std::string Summary();

}   // namespace sm::scenario
