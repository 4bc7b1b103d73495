#pragma once
#include "persist/game_file.h"

#include <string>
#include <vector>

namespace sm {

/// Collects what a check finds. It stops at a limit that nobody reads beyond, and says so.
class Fault_List {
public:
    void Fault(int line, std::string text) { Add(line, true, std::move(text)); }
    void Remark(int line, std::string text) { Add(line, false, std::move(text)); }
    void Add(int line, bool fault, std::string text);
    /// All that was found, by line.
    std::vector<File_Fault> In_Order();

private:
    std::vector<File_Fault> found_;
    int dropped_ = 0;
    bool dropped_fault_ = false;
};

/// The checks of one kind of file each, on its whole content.
void Check_Game(std::string_view text, bool scenario, Fault_List& faults);
void Check_Weapons(std::string_view text, Fault_List& faults);
void Check_Terrain(std::string_view content, Fault_List& faults);

}   // namespace sm
