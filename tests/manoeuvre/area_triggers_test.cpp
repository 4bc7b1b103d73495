#include "intel/area_triggers.h"

#include "manoeuvre/movement.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/march.h"

#include <gtest/gtest.h>

namespace sm::test {
namespace {

/// A Red unit about to step from (5, 105) to (15, 105), on turn 3.
struct Approach {
    Approach()
    {
        GTURN = 3;
        unit = board.Place(RED, 5, 105);
        Plot(unit, {{205, 105}});
    }
    void Area(int row, int type, int x, int y, int side = BLUE, int age = 2)
    {
        P[row].PTYPE = type;
        P[row].PSIDE = side;
        P[row].PX1 = x;
        P[row].PY1 = y;
        P[row].PAGE = age;
    }
    Board board{21, 21};
    int unit = 0;
};

TEST(Area_Triggers, AnAreaSeesUpToFortyPixelsFromThePlaceAhead)
{
    struct CASE {
        const char* WHAT;
        int X;
        int SIDE, AGE, TURN, OBSCURED, SPOTTED;
    };
    const CASE cases[] = {
        {"at 40", 55, BLUE, 2, 3, 0, 1},
        {"at 41", 56, BLUE, 2, 3, 0, 0},
        {"in smoke at 1", 16, BLUE, 2, 3, 1, 1},
        {"in smoke at 2", 17, BLUE, 2, 3, 1, 0},
        {"placed this turn", 15, BLUE, 1, 3, 0, 0},
        {"placed before turn 1", 15, BLUE, 1, 1, 0, 1},
        {"its own", 15, RED, 2, 3, 0, 0},
    };
    for (const CASE& c : cases) {
        Approach a;
        GTURN = c.TURN;
        UNIT[a.unit].OBSCURED = c.OBSCURED;
        a.Area(7, 12, c.X, 105, c.SIDE, c.AGE);
        Move_Units(a.unit);
        EXPECT_EQ(UNIT[a.unit].SPOTTED, c.SPOTTED) << c.WHAT;
        EXPECT_EQ(UNIT[a.unit].X, 15) << c.WHAT;
    }
    Approach a;
    a.Area(7, 12, 15, 105);
    INTELPLAY = 1;
    Move_Units(a.unit);
    EXPECT_EQ(UNIT[a.unit].SPOTTED, 0);
    EXPECT_FALSE(Meets_Area(a.unit, 6, 15, 105));
    UNIT[a.unit].TYPE = 50;
    EXPECT_FALSE(Meets_Area(a.unit, 7, 15, 105));
}

TEST(Area_Triggers, WaitingHelicoptersLaunchForTheirClasses)
{
    Approach a;   // a tank unit: class 5
    a.Area(7, 12, 15, 105);
    struct WAITING {
        const char *STATE, *AFTER;
    };
    const WAITING waiting[] = {
        {"NAI 7, HPTL1 5", "MOVESTATUS 9"},
        {"NAI 7, HPTL1 3, HPTL2 5", "MOVESTATUS 9"},
        {"NAI 7, HPTL1 3", "MOVESTATUS 7"},
        {"NAI 8, HPTL1 5", "MOVESTATUS 7"},
        {"NAI 7, HPTL1 5, NUMBER_OF_NODES 0", "MOVESTATUS 0, NAI 0"},
        {"NAI 7, HPTL1 5, MOVESTATUS 8", "MOVESTATUS 8"},   // flies already
    };
    for (const WAITING& w : waiting) {
        UNIT_RECORD& helicopter = UNIT[a.board.Place(BLUE, 195, 5, 11)];
        Give(helicopter, "MOBILITY 3, MOVESTATUS 7, NUMBER_OF_NODES 2");
        Give(helicopter, w.STATE);
    }
    Move_Units(a.unit);
    for (int h = 1; h <= 6; ++h) EXPECT_TRUE(Has(UNIT[h], waiting[h - 1].AFTER)) << waiting[h - 1].STATE;
    EXPECT_TRUE(Posted("Failed AH mission; B5 did not have a flight route!"));
    EXPECT_TRUE(Has(SITREPLIST[1], "SIDE BLUE, UNIT 5"));
}

TEST(Area_Triggers, LinkedTargetsFireOnceAtASpottedUnitOfTheirClass)
{
    Approach a;
    a.Area(9, 13, 15, 105);
    // Engineers, target 3, do not wait for anybody.
    const char* targets[] = {"TGTYPE 1", "TGTYPE 4", "TGTYPE 150", "TGTYPE 1, TGHPT 6", "TGTYPE 1, TGRAPHIC 8",
                             "TGTYPE 21"};
    for (int row = 1; row <= 6; ++row) {
        Give(TG[row], "TGSIDE BLUE, TGHPT 5, TGRAPHIC 9");
        Give(TG[row], targets[row - 1]);
    }
    CurTarget = 77;
    CurGraphic = 55;
    Move_Units(a.unit);
    EXPECT_EQ(TG[1].TGTYPE, 1);   // not spotted yet
    UNIT[a.unit].SPOTTED = 1;
    Fire_Linked_Targets(a.unit, 9);
    for (const int fired : {1, 2, 6}) EXPECT_EQ(TG[fired].TGTYPE, 0) << fired;
    for (const int waiting : {3, 4, 5}) EXPECT_TRUE(Has(TG[waiting], Cat(targets[waiting - 1], ", TGX 0")));
    EXPECT_EQ(CurTarget, 77);
    EXPECT_EQ(CurGraphic, 55);
}

}   // namespace
}   // namespace sm::test
