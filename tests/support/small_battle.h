#pragma once
#include "support/scratch.h"

#include <filesystem>

namespace sm::test {

/// A program folder of a test's own: stock maps, terrain, pictures and sounds are those of the build, everything that a
/// game writes lies in it. It is the program folder while it lives.
class Scratch_Home {
public:
    Scratch_Home();
    ~Scratch_Home();
    const std::filesystem::path& Path() const { return folder_.Path(); }
    std::filesystem::path operator/(std::string_view name) const { return folder_ / name; }

private:
    Scratch_Folder folder_;
    std::filesystem::path before_;
};

/// A small war between Halle and Leipzig on the sheet Germany-1, four battalions and a headquarters a side, saved as
/// "Scenarios/Small Battle.sce" of the program folder. Blue's units are 1..5, Red's 301..305. Leaves no game in play.
std::filesystem::path Save_Small_Battle(const Scratch_Home& home);

/// A war that fills the tables: 300 units and 300 nodes a side, graphics, obstacles, contamination, objectives, texts.
std::filesystem::path Save_Full_Battle(const Scratch_Home& home);

}   // namespace sm::test
