#include "support/stock_game.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "core/session.h"
#include "persist/program_folder.h"
#include "persist/weapons_file.h"
#include "support/places.h"

#include <gtest/gtest.h>

namespace sm::test {

namespace {

const std::filesystem::path STOCK = STONEMARCH_HOME_DIR;

}   // namespace

void Open_Stock_Scenario(const std::string& file)
{
    Set_Program_Folder(STOCK);
    Set_Start_Defaults();
    ASSERT_TRUE(Read_Stock_Weapons());
    Choose_Game_Type(0);
    GameFileName = (STOCK / "Scenarios" / file).string();
    ASSERT_TRUE(Load_Game()) << file;
}

Own_Program_Folder::Own_Program_Folder()
{
    EXPECT_EQ(Make_Program_Folder(folder_.Path(), ""), "");
    for (const char* part : {"Maps", "Terrain"})
        std::filesystem::copy(STOCK / part, folder_ / part, std::filesystem::copy_options::recursive);
}

Own_Program_Folder::~Own_Program_Folder() { Set_Program_Folder(STOCK); }

void Own_Program_Folder::Use() const { Set_Program_Folder(folder_.Path()); }

}   // namespace sm::test
