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
    int Helicopter(int nai, int nodes, int first_class, int second_class = 0)
    {
        const int h = board.Place(BLUE, 195, 5, 11);
        Give(UNIT[h], "MOBILITY 3, MOVESTATUS 7");
        UNIT[h].NAI = nai;
        UNIT[h].HPTL1 = first_class;
        UNIT[h].HPTL2 = second_class;
        UNIT[h].NUMBER_OF_NODES = nodes;
        return h;
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
    const int first = a.Helicopter(7, 2, 5), second = a.Helicopter(7, 2, 3, 5),
              other_class = a.Helicopter(7, 2, 3);
    const int other_area = a.Helicopter(8, 2, 5), no_route = a.Helicopter(7, 0, 5), flying = a.Helicopter(7, 2, 5);
    UNIT[flying].MOVESTATUS = 8;
    Move_Units(a.unit);
    EXPECT_EQ(UNIT[first].MOVESTATUS, 9);
    EXPECT_EQ(UNIT[second].MOVESTATUS, 9);
    EXPECT_EQ(UNIT[other_class].MOVESTATUS, 7);
    EXPECT_EQ(UNIT[other_area].MOVESTATUS, 7);
    EXPECT_EQ(UNIT[flying].MOVESTATUS, 8);
    EXPECT_TRUE(Has(UNIT[no_route], "MOVESTATUS 0, NAI 0"));
    EXPECT_TRUE(Posted("Failed AH mission; B5 did not have a flight route!"));
    EXPECT_EQ(SITREPLIST[1].SIDE, BLUE);
    EXPECT_EQ(SITREPLIST[1].UNIT, no_route);
}

TEST(Area_Triggers, LinkedTargetsFireOnceAtASpottedUnitOfTheirClass)
{
    Approach a;
    a.Area(9, 13, 15, 105);
    const auto target = [](int row, int type, int target_class, int graphic) {
        TG[row].TGTYPE = type;
        TG[row].TGSIDE = BLUE;
        TG[row].TGHPT = target_class;
        TG[row].TGRAPHIC = graphic;
    };
    target(1, 1, 5, 9);
    target(2, 4, 5, 9);
    target(3, 150, 5, 9);   // engineers do not wait for anybody
    target(4, 1, 6, 9);
    target(5, 1, 5, 8);
    target(6, 21, 5, 9);
    CurTarget = 77;
    CurGraphic = 55;
    Move_Units(a.unit);
    EXPECT_EQ(TG[1].TGTYPE, 1);   // not spotted yet
    UNIT[a.unit].SPOTTED = 1;
    Fire_Linked_Targets(a.unit, 9);
    for (const int fired : {1, 2, 6}) EXPECT_EQ(TG[fired].TGTYPE, 0) << fired;
    for (const int waiting : {3, 4, 5}) {
        EXPECT_GT(TG[waiting].TGTYPE, 0) << waiting;
        EXPECT_EQ(TG[waiting].TGX, 0) << waiting;
    }
    EXPECT_EQ(CurTarget, 77);
    EXPECT_EQ(CurGraphic, 55);
}

}   // namespace
}   // namespace sm::test
