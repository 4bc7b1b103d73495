#pragma once
#include "support/scratch.h"

#include <string>

namespace sm::test {

/// Opens a scenario of this build's stock content ("River.sce") as a two-player game with the build's program folder.
/// The test fails where that cannot be done.
void Open_Stock_Scenario(const std::string& file);

/// A program folder to play in, with the stock maps and terrain, so that no turn writes into the build's own. The
/// build's folder is set again afterwards.
class Own_Program_Folder {
public:
    Own_Program_Folder();
    ~Own_Program_Folder();
    Own_Program_Folder(const Own_Program_Folder&) = delete;
    Own_Program_Folder& operator=(const Own_Program_Folder&) = delete;
    /// From now on the program reads and writes here.
    void Use() const;

private:
    Scratch_Folder folder_;
};

}   // namespace sm::test
