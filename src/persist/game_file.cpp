#include "persist/game_file.h"

#include "core/game_state.h"
#include "core/log.h"
#include "core/platform.h"
#include "core/seat.h"
#include "core/session.h"
#include "core/shared.h"
#include "persist/failure.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "persist/weapons_file.h"

namespace sm {
namespace fs = std::filesystem;

namespace {

/// Some thirty times a full game.
constexpr std::size_t MOST_GAME_BYTES = std::size_t{64} << 20;

bool Read_Game_File(const std::string& name)
{
    const FILE_READ file = Read_File_Whole(File_Place(name), MOST_GAME_BYTES);
    int failure = 0;
    if (file.ERROR.empty()) {
        failure = Read_Game_Text(file.CONTENT);
    } else {
        Erase_Tables();
        Screen().Changed(Redraw::ALL);
        failure = file.MISSING ? ERROR_NO_FILE : ERROR_DISK;
        Log(Cat(Failure_Text(failure), ", ", file.ERROR));
    }
    if (failure != 0) Screen().Box(FAILURE_TITLE, Failure_Text(failure));
    return failure == 0;
}

/// What a save changes of the header for its time: the label, and a scenario's own name.
struct Header_Of_A_Save {
    Free_Text VERSION = GAMEVERSION, FILE = GAMEFILE;
    explicit Header_Of_A_Save(const fs::path& path)
    {
        GAMEVERSION = VERSION_LABEL;
        if (Same_Ignoring_Case(path.extension().string(), ".sce")) GAMEFILE = From_Utf8(path.filename().string());
    }
    ~Header_Of_A_Save()
    {
        GAMEVERSION = VERSION;
        GAMEFILE = FILE;
    }
    Header_Of_A_Save(const Header_Of_A_Save&) = delete;
    Header_Of_A_Save& operator=(const Header_Of_A_Save&) = delete;
};

/// The failure's number, 0 for none.
int Write_Game(const fs::path& path, std::string& fault)
{
    try {
        const Header_Of_A_Save header(path);
        fault = From_Utf8(Write_File_Whole(path, Game_Text(true)));   // for log and status line
        return fault.empty() ? 0 : ERROR_DISK;
    } catch (const Game_Error& error) {
        fault = error.what();
        return error.NUMBER;
    }
}

}   // namespace

bool Save_Game_File(const std::string& path, bool quiet)
{
    static constexpr const char* SAVED = "Game file has been saved!";
    Progress_Reset();
    Log("Saving game file...");
    std::string fault;
    const int failure = Write_Game(File_Place(path), fault);
    Progress_Finish();
    if (failure != 0) {
        Log(Cat(Failure_Text(failure), ", ", fault));
        Show_Status(fault);
        Screen().Box(FAILURE_TITLE, Failure_Text(failure));
    } else if (quiet) {
        Show_Status(SAVED);
    } else {
        Screen().Box(FAILURE_TITLE, SAVED);
    }
    if (failure == 0) Log("Game file has been saved");
    Log("End of file process");
    return failure == 0;
}

bool Game_File(int mode)
{
    switch (mode) {
    case 1: {
        const bool read = Read_Game_File(GameFileName);
        Log("End of file process");
        return read;
    }
    case 2:
        return Save_Game_File(GameFileName, false);
    case 8:
        return Read_Stock_Weapons();
    default:
        Fail_Range(mode, 1, 8, "Game_File");
    }
}

}   // namespace sm
