#include "support/small_battle.h"
#include "support/places.h"

#include "core/icon_names.h"
#include "core/session.h"
#include "core/shared.h"
#include "manoeuvre/routes.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "support/board.h"
#include "support/fields.h"
#include "terrain/map.h"

#include <stdexcept>

namespace sm::test {
namespace fs = std::filesystem;

namespace {

struct UNIT_PLAN {
    const char* NAME;
    int SIDE, TYPE, SIZE, X, Y;
};
// clang-format off
constexpr UNIT_PLAN SMALL[] = {
    {"1st Brigade HQ",  BLUE, 18, 4, 380, 470}, {"1-35 Armor",   BLUE,  5, 3, 405, 440}, {"2-6 Mech",  BLUE, 20, 3, 420, 480},
    {"4-27 Field Arty", BLUE,  8, 3, 390, 500}, {"1-1 Cavalry",  BLUE,  6, 3, 440, 455},
    {"27th Guards HQ",  RED,  18, 4, 660, 540}, {"68th Tank",    RED,   5, 3, 600, 520}, {"243rd MR",  RED,  20, 3, 610, 560},
    {"54th Artillery",  RED,   8, 3, 640, 530}, {"5th Recon",    RED,  24, 3, 575, 540},
};
// clang-format on

int Make(const UNIT_PLAN& plan)
{
    const int unit = Free_Unit_Row(plan.SIDE);
    UNIT_RECORD& u = UNIT[unit];
    u = UNIT_RECORD{};
    u.NAME = plan.NAME;
    u.NATION = plan.SIDE == BLUE ? "U.S." : "U.S.S.R.";
    u.SIDE = plan.SIDE;
    u.TYPE = plan.TYPE;
    u.SIZE = plan.SIZE;
    u.IMAGE = Unit_Icon_Name(plan.SIDE, plan.TYPE, plan.SIZE);
    Give(u, "STATUS 2, STRENGTH 100, RCP 10, RCP2 10, RCP3 10, MORALE 2, C2 3, FATIGUE 2, RSF 3, RSF2 3, "
            "LOGSTATO 100, LOGSTATN 100, AIACTION 5, RETREATP 2");
    u.MOBILITY = plan.TYPE == 11 || plan.TYPE == 12 || plan.TYPE == 26 ? 3 : plan.TYPE == 19 ? 0 : 2;
    u.MOVEPOINTS = u.MOVEPOINTS2 = u.MOBILITY == 3 ? 400 : u.MOBILITY == 0 ? 6 : 24;
    u.MXRANGE = plan.TYPE == 8 ? 30 : 4;
    u.TACOPN = plan.TYPE == 18 ? 1 : 0;
    u.MISSION = plan.TYPE == 18 ? "Support" : "Offense";
    u.FACING = plan.SIDE == BLUE ? 90 : 270;
    Place_Unit(unit, plan.X, plan.Y);
    Set_Footprint(unit);
    return unit;
}

void Begin_Scenario()
{
    Clear_Game();
    Set_Start_Defaults();
    Choose_Stock_Map(1);
    GTURN = 0;
    if (!Prepare_Map()) throw std::runtime_error("the stock map of the build is missing");
    MAXGTURN = 15;
    BNAIMAX = RNAIMAX = 5;
    ABCAS = AOCAS = BTOTAL = OTOTAL = 12;
    GAMEAUTHOR = "Test";
    RSEED = 7;
}

fs::path Save_As(const Scratch_Home& home, const char* name)
{
    const fs::path file = home / "Scenarios" / std::string(name);
    if (!Save_Game_File(file.string(), true)) throw std::runtime_error("the scenario cannot be saved");
    Clear_Game();
    return file;
}

void Objective(int row, int type, int x, int y, int value)
{
    OBJ[row] = {.OTYPE = type, .OX = x, .OY = y, .OID = row, .OVALUE = value};
}

}   // namespace

Scratch_Home::Scratch_Home() : before_(Program_Folder())
{
    for (const char* folder : {"Maps", "Terrain", "icons", "events", "sounds"})
        fs::create_directory_symlink(fs::path(STONEMARCH_HOME_DIR) / folder, folder_ / folder);
    for (const char* folder : {"Scenarios", "Saved Games", "aar", "OPORDs"})
        fs::create_directory(folder_ / folder);
    for (const char* file : {"SMW.wef", "smintro1.wav", "SM Help.hlp"})
        if (fs::exists(fs::path(STONEMARCH_HOME_DIR) / file))
            fs::copy_file(fs::path(STONEMARCH_HOME_DIR) / file, folder_ / file);
    Set_Program_Folder(folder_.Path());
}

Scratch_Home::~Scratch_Home() { Set_Program_Folder(before_); }

fs::path Save_Small_Battle(const Scratch_Home& home)
{
    Begin_Scenario();
    for (const UNIT_PLAN& plan : SMALL) {
        const int unit = Make(plan);
        if (plan.TYPE != 18) UNIT[unit].HIGHERHQ = plan.SIDE == BLUE ? 1 : SIDE_UNITS + 1;
    }
    UNIT[302].SPOTTED = 1;
    UNIT[305].SPOTTED = 1;
    Objective(1, 1, 485, 500, 300);
    Objective(2, 2, 520, 545, 150);
    return Save_As(home, "Small Battle.sce");
}

fs::path Save_Full_Battle(const Scratch_Home& home)
{
    Begin_Scenario();
    constexpr int ROLES[] = {5, 20, 20, 8, 6, 14, 24, 19, 4, 13, 1, 18, 11, 9, 26};
    for (int side = BLUE; side <= RED; ++side) {
        for (int n = 0; n < SIDE_UNITS - 1; ++n) {   // the last row of a side is its line of communication's
            const int x = (side == BLUE ? 60 : 560) + n % 20 * 20, y = 60 + n / 20 * 58 + n % 3 * 9;
            const std::string name = Cat(To_Text(n + 1), side == BLUE ? " Btn" : " Regt");
            const int unit = Make({name.c_str(), side, ROLES[n % 15], 2 + n % 3, x, y});
            UNIT[unit].SPOTTED = 1;
            UNIT[unit].HIGHERHQ = side == BLUE ? 12 : SIDE_UNITS + 12;
            const int step = side == BLUE ? 1 : -1;
            Add_Move_Node(unit, Next_Free_Node(unit), x + step * 70, y + n % 5 * 12 - 24);
        }
        for (int n = 0; n < 40; ++n) {
            constexpr int KINDS[] = {12, 13, 30, 18};
            const int x = (side == BLUE ? 100 : 600) + n % 8 * 40, y = 100 + n / 8 * 160;
            P_RECORD& graphic = P[(side == BLUE ? 0 : 200) + n + 1];
            graphic = {.PTYPE = KINDS[n % 4], .PSIDE = side, .PX1 = x, .PY1 = y, .PX2 = x + 60, .PY2 = y + 30};
            graphic.PAGE = n % 3;
        }
    }
    for (int n = 0; n < 50; ++n) {
        constexpr int KINDS[] = {11, 20, 21};
        const int x = 80 + n % 10 * 90, y = 120 + n / 10 * 180;
        NBC[n + 1] = {Hex_Number(x, y), x, y, 1 + n % 2};
        Give(NBC[n + 1], "NBCVISIBLE 1, NBCSTIME 30, NBCSIZE 36");
        NBC[n + 1].NBCTYPE = KINDS[n % 3];
        Objective(n + 1, 1 + n % 3, 110 + n % 10 * 85, 150 + n / 10 * 170, 200);
    }
    for (int n = 0; n < 20; ++n) {
        TX[n + 1] = {1, BOTH, 70 + n % 5 * 190, 90 + n / 5 * 230, Cat("Phase line ", To_Text(n + 1))};
    }
    return Save_As(home, "Full Battle.sce");
}

}   // namespace sm::test
