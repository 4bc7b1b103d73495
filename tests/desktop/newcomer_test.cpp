#include "driver.h"

#include "core/game_state.h"
#include "core/seat.h"
#include "desktop/map/map_view.h"
#include "ui/desk.h"

#include <QTimer>
#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

const QSize SIZES[] = {{1024, 768}, {1152, 864}, {1280, 960}};

std::string Name(const char* what, QSize size) { return std::to_string(size.width()) + "-" + what; }

class Newcomer : public testing::TestWithParam<QSize> {};

}   // namespace

TEST_P(Newcomer, OpensTheScenarioPlansBothSidesRunsTurnsSavesAndGoesOn)
{
    const QSize size = GetParam();
    Player player(size);
    const auto look = [&](const char* what) {
        player.Screenshot(Name(what, size));
        EXPECT_EQ(player.Clipped_Texts(), "") << what;
    };
    EXPECT_EQ(player.Window().size(), size);
    look("1-start");

    player.Open();
    ASSERT_EQ(GameLoaded, -1);
    EXPECT_EQ(player.Window().windowTitle(), QStringLiteral("Stonemarch -- Two-Player Hotseat"));
    look("2-loaded");

    player.Look_At(2, 500, 500);
    player.Click(405, 440);
    ASSERT_EQ(SelUnit, 2);
    EXPECT_EQ(player.Text_Of("lblUnitName"), "UNIT: 1-35 Armor");
    look("3-selected");

    ASSERT_TRUE(player.Choose(Cmd::PLOT));
    player.Click(440, 430, Qt::RightButton);
    player.Click(470, 460, Qt::RightButton);
    player.Click(500, 455, Qt::RightButton);
    EXPECT_EQ(UNIT[2].NUMBER_OF_NODES, 3);
    player.Drag(player.On_Screen(470, 460), player.On_Screen(470, 430), Qt::LeftButton);
    EXPECT_EQ(MN[2].MNX, 470);
    EXPECT_EQ(MN[2].MNY, 430);
    EXPECT_EQ(MapMode, 10);   // the next click adds a node
    player.Click(440, 455);
    player.Click(480, 470, Qt::RightButton);
    player.Click(405, 440);
    look("4-plotted");

    ASSERT_TRUE(player.Choose(Cmd::HAND_OVER));
    look("5-covered");
    ASSERT_TRUE(player.Press("cmdUncover"));
    EXPECT_EQ(ActiveSide, RED);
    player.Click(600, 520);
    ASSERT_EQ(SelUnit, 302);
    player.Key(Qt::Key_M);
    player.Click(560, 500, Qt::RightButton);
    player.Click(530, 490, Qt::RightButton);
    EXPECT_EQ(UNIT[302].NUMBER_OF_NODES, 2);
    look("6-red");

    const int blue_x = UNIT[2].X, red_x = UNIT[302].X;
    player.Look_At(1.5, 500, 490);
    // In the middle of the march a picture of it is taken.
    bool seen = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (!SEAT.TurnRunning || UNIT[2].X <= blue_x + 12) return;
        watch.stop();
        seen = true;
        player.Screenshot_Of(player.Window(), Name("7-march", size));
    });
    watch.start(20);
    ASSERT_TRUE(player.Choose(Cmd::GO));
    watch.stop();
    EXPECT_TRUE(seen);
    EXPECT_EQ(GTURN, 1);
    EXPECT_GT(UNIT[2].X, blue_x);
    EXPECT_LT(UNIT[302].X, red_x);
    look("8-after");

    const auto evening = player.HOME / "Saved Games" / "evening.btl";
    player.Answer_File(evening.string());
    player.Answer("OK");
    ASSERT_TRUE(player.Choose(Cmd::SAVE));
    ASSERT_TRUE(std::filesystem::exists(evening));
    const int here = UNIT[2].X;

    player.Answer("Yes");
    player.Window().close();
    EXPECT_TRUE(DESK.CLOSED);

    DESK.CLOSED = false;
    player.Window().show();
    ASSERT_TRUE(player.Choose(Cmd::RETURN));
    player.Answer_File(evening.string());
    ASSERT_TRUE(player.Press("optGameType0"));
    player.Wait(50);
    ASSERT_EQ(GameLoaded, -1);
    EXPECT_EQ(GTURN, 1);
    EXPECT_EQ(UNIT[2].X, here);
    look("9-goes-on");
    EXPECT_EQ(player.UNEXPECTED, 0);
}

INSTANTIATE_TEST_SUITE_P(AtEverySize, Newcomer, testing::ValuesIn(SIZES),
                         [](const auto& size) { return "Width" + std::to_string(size.param.width()); });
