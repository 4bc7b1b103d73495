// The window in the states a player meets, as screenshots to look at; what can be told by a rule is tested.

#include "driver.h"

#include "core/clock.h"
#include "core/game_state.h"
#include "core/seat.h"
#include "core/shared.h"
#include "desktop/dialogs/boxes.h"
#include "desktop/map/map_view.h"
#include "support/places.h"
#include "ui/desk.h"
#include "ui/game_commands.h"
#include "ui/options.h"
#include "ui/selection.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <gtest/gtest.h>

#include <filesystem>

using namespace sm;
using namespace sm::test;

namespace {

void Post_Many()
{
    static constexpr const char* TEXTS[] = {
        "SITREP: 1-35 Armor lost 5% as a result of direct fires!",
        "SPOTREP: 1-1 Cavalry reports enemy armor battalion!",
        "INTREP: Enemy artillery located by counterfire radar.",
        "Artillery Attack BDA:  68th Tank lost 12%!",
        "2-6 Mech is at it's final destination!",
        "NBC MESSAGE: Persistent agent reported!",
    };
    static constexpr int SIDES[] = {BLUE, RED, BOTH};
    for (int n = 0; n < 288; ++n)   // a number of three digits beside the title
        Post_Message(2 + n % 4, TEXTS[n % 6], 400 + n % 24 * 6, 430 + n % 24 * 5, 0, SIDES[n % 3]);
}

}   // namespace

TEST(Looks, ReportsAtEverySizeShowWithoutClippedText)
{
    for (const QSize size : {QSize(1024, 768), QSize(1280, 960)}) {
        Player player(size);
        player.Open();
        Post_Many();
        player.Choose(Cmd::VIEW_ALL);
        player.Screenshot("reports-" + std::to_string(size.width()));
        EXPECT_EQ(player.Clipped_Texts(), "");
    }
}

TEST(Looks, NightOverlaysAndLongLinesStayReadable)
{
    Player player(QSize(1024, 768));
    player.Open();
    GTIME = "2300";
    Update_Header();
    player.Look_At(1.6, 500, 490);
    UNIT_RECORD& u = UNIT[4];
    u.NAME = "1st Bn 27th Fd Arty W";
    u.STATUS = 1;
    u.STRENGTH = 31;
    u.RCP2 = 103.1f;
    u.C2 = 1;
    u.C2D = 61;
    u.SUPPRESSED = 4;
    u.FATIGUE = 25;
    u.MISSION = "Deliberate Defense";
    u.TERTYPE = 2;
    u.FSP = 3;
    u.WSRO = 3;
    u.NUMBER_OF_NODES = 1;   // ten lines in each column, the longest of each among them
    u.TIME_TO_END = 12;
    player.Click(390, 500);
    ASSERT_EQ(SelUnit, 4);
    player.Screenshot("night");
    EXPECT_EQ(player.Clipped_Texts(), "");
    player.Choose(Cmd::OVERLAY_1);
    player.Screenshot("night-overlay-1");
    GTIME = "1100";
    Update_Header();
    player.Screenshot("day-overlay-1");
    player.Choose(Cmd::OVERLAY_2);
    player.Map().Set_Zoom(2.6, QPointF(400, 300));
    player.Screenshot("day-overlay-2");
}

TEST(Looks, AFullBattleAtThreeZooms)
{
    Player player;
    const std::string full = Save_Full_Battle(player.HOME).string();
    DESK = Desk{};
    SEAT.WritesFiles = true;
    player.Open(full);
    ASSERT_EQ(GameLoaded, -1);
    player.Choose(Cmd::VIEW_ALL);
    player.Choose(Cmd::WHOLE_MAP);
    player.Screenshot("full-far");
    player.Map().Set_Zoom(1.4, QPointF(400, 300));
    player.Screenshot("full-middle");
    player.Map().Set_Zoom(3.2, QPointF(400, 300));
    player.Choose(Cmd::NEXT_UNIT);
    player.Map().Settle();
    player.Screenshot("full-near");
}

TEST(Looks, SheetsAndBoxes)
{
    Player player;
    player.Open();
    player.Click(405, 440);
    const struct {
        Cmd ID;
        const char *NAME, *SHEET;
    } sheets[] = {
        {Cmd::UNIT_REPORT, "sheet-unit", "sheet Unit Status Report"},
        {Cmd::GAME_DATA, "sheet-data", "sheet Game Data"},
        {Cmd::HELP_KEYS, "sheet-keys", "sheet Keyboard Commands"},
        {Cmd::HELP_TURN, "sheet-help", "sheet Game Setup Instructions"},
    };
    for (const auto& s : sheets) {
        player.Choose(s.ID);
        player.Wait(30);
        auto* dialog = player.Find<QDialog>(s.SHEET);
        ASSERT_NE(dialog, nullptr) << s.SHEET;
        player.Screenshot_Of(*dialog, s.NAME);
        dialog->close();
        player.Wait(10);
    }

    const auto shoot_modal = [&](const char* name) {
        QTimer::singleShot(0, &player.Window(), [&player, name] {
            if (auto* box = QApplication::activeModalWidget(); box != nullptr) player.Screenshot_Of(*box, name);
        });
    };
    player.Answer("OK");
    shoot_modal("box");
    Screen().Box("From the G-4:", "This Unit Must Have a Supporting Logistics Unit to Get Resupplied!");
    player.Answer("No");
    shoot_modal("box-ask");
    mnuSpeedFast_Click();
    player.Answer("Cancel");
    shoot_modal("box-save");
    The_Window().Ask_To_Save("Stonemarch",
                             "The game has changed since it was last saved.\rDo you want to save it now?");
    player.Answer("OK");
    shoot_modal("box-list");
    EXPECT_EQ(The_Window().Choose_Unit("Available Units", {3, 2, 4}), 3);
    player.Answer_File("");
    shoot_modal("box-file");
    cmdSavegame_Click();
    EXPECT_EQ(player.UNEXPECTED, 0);
}

TEST(Looks, TheStockScenarioIsReadInFullUnitByUnit)
{
    Player player(QSize(1024, 768));
    const auto stock = player.HOME / "Scenarios" / "Saale Crossing.sce";
    std::filesystem::copy_file(STONEMARCH_HOME_DIR "/Scenarios/Saale Crossing.sce", stock);
    player.Open(stock.string());
    ASSERT_EQ(GameLoaded, -1);
    player.Screenshot("stock-blue");
    std::string cut;
    for (int u = 1; u <= SIDE_UNITS; ++u) {
        if (UNIT[u].STATUS < 1) continue;
        Get_Unit(u);
        player.Wait(1);
        cut += player.Clipped_Texts();
        for (const QLabel* label : player.Window().findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains(QChar(0x2026)))
                cut += label->text().toStdString() + "\n";
    }
    EXPECT_EQ(cut, "");
    Get_Unit(0);
    player.Choose(Cmd::VIEW_ALL);
    player.Choose(Cmd::WHOLE_MAP);
    player.Screenshot("stock-all");
    player.Choose(Cmd::GO);
    EXPECT_EQ(GTURN, 1);
    player.Screenshot("stock-after");
}
