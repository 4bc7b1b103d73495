#include "manoeuvre/aviation.h"

#include "core/seat.h"
#include "core/state_hash.h"
#include "intel/area_triggers.h"
#include "support/fields.h"
#include "support/fires.h"
#include "support/march.h"

using namespace sm;
using namespace sm::test;

namespace {

/// An aircraft on the ground at cell (6, 6), ready to be plotted.
int Place_Landed(Board& board, int type, int side = BLUE)
{
    const int unit = Place_In_The_Air(board, side, 55, 55, type);
    Give(UNIT[unit], "MOVESTATUS 0, TACOPN 4");
    return unit;
}

void Fly_Slices(int n)
{
    for (int slice = 0; slice < n; ++slice) Aviation_Pass();
}

/// Whether the unit's fields hold these values so many slices on.
testing::AssertionResult After(int slices, const UNIT_RECORD& unit, std::string_view values)
{
    Fly_Slices(slices);
    return Has(unit, values);
}

}   // namespace

TEST(Aviation, AHelicopterFliesOutHoldsItsStationAndIsHomeWithItsLastDropOfFuel)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 11);
    const int station = Plot(unit, {{255, 55}});   // 20 cells out
    Plot(unit, {{55, 55}});                        // and 20 back
    UNIT[unit].LZ = station;
    const UNIT_RECORD& u = UNIT[unit];
    EXPECT_TRUE(Has(u, "MOVESTATUS 9, DISTANCE_TO_END 40"));
    EXPECT_EQ(Aviation_Pass(), 1);
    EXPECT_TRUE(Has(u, "X 65, TIMERM 1, FACING 95, DISTANCE_TO_END 39"));   // FACING: 10 pixels due east
    EXPECT_TRUE(After(19, u, "X 255, MOVESTATUS 8, TIMERM 20, NUMBER_OF_NODES 1, DISTANCE_TO_END 20, LZ 0"));
    EXPECT_FALSE(Used(MN[station]));
    EXPECT_EQ(u.C2T, 1);
    EXPECT_EQ(Aviation_Pass(), 0);                            // hovering is no move
    EXPECT_TRUE(After(358, u, "TIMERM 379, MOVESTATUS 8"));   // 21 points for 20 cells
    EXPECT_TRUE(After(1, u, "MOVESTATUS 9, X 255"));          // 20 for 20: time to go
    EXPECT_TRUE(After(19, u, "X 65"));
    EXPECT_FALSE(Posted("B1 has landed."));
    EXPECT_TRUE(After(1, u, "X 55, MOVESTATUS 0, TIMERM 0, NUMBER_OF_NODES 0, MOVEPOINTS2 360"));
    EXPECT_TRUE(Posted("B1 has landed."));
    EXPECT_TRUE(board.SCREEN.Heard("sound", ""));
}

TEST(Aviation, AHelicopterWaitsForItsNAIHuntsInItsTAIAndTurnsForHomeWithoutAmmunition)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 11);
    Give(UNIT[unit], "MXRANGE 3, HPTL1 5, RCP2 1");
    const int nai = Place_Area(BLUE, 12, 255, 155);
    Place_Area(BLUE, 13, 255, 55);
    UNIT[unit].NAI = nai;
    UNIT[unit].MOVESTATUS = 7;
    const int home = Plot(unit, {{355, 55}, {55, 55}});
    const UNIT_RECORD& u = UNIT[unit];
    EXPECT_EQ(u.MOVESTATUS, 7);
    EXPECT_TRUE(After(3, u, "X 55, TIMERM 0"));
    const int tanks = board.Place(RED, 255, 155);
    Launch_Waiting_Helicopters(tanks, nai);
    EXPECT_EQ(u.MOVESTATUS, 9);
    Place_Unit(tanks, 255, 65);
    // The TAI at 255 is within round(3 x 10 + 40 / 2) + 20 = 70 pixels from x = 185 on: 13 steps, seen on the
    // 14th.
    EXPECT_TRUE(After(13, u, "X 185, FREEHUNT 0"));
    EXPECT_TRUE(After(1, u, "FREEHUNT 1, FIREMISSIONN 0"));
    // Weapons reach 30 and half a footprint, 50 pixels, from the place flown to: (215, 55) is 41 away, (205,
    // 55) 51.
    EXPECT_TRUE(After(1, u, "X 205, FIREMISSIONN 0"));
    EXPECT_TRUE(After(1, u, "FIREMISSIONN 2"));
    EXPECT_TRUE(Posted("attack against R301!"));
    EXPECT_EQ(u.X, 215);
    EXPECT_TRUE(After(1, u, "FIREMISSIONN 4, MOVESTATUS 10, X 215"));   // X: turned round before the step was made
    EXPECT_EQ(u.NUMBER_OF_NODES, 1);
    EXPECT_EQ(MN[home].MNUNITNUMBER, 1);
    EXPECT_EQ(u.DISTANCE_TO_END, 16);
    EXPECT_TRUE(After(15, u, "X 65, FIREMISSIONN 4"));   // FIREMISSIONN: nothing more to shoot with
    // An aborted flight ends at once.
    EXPECT_TRUE(After(1, u, "X 55, MOVESTATUS 0, TIMERM 0, NAI 0, FREEHUNT 0, LX 55"));
}

TEST(Aviation, AnAirAssaultTakesInfantryFromItsPickUpToItsLandingZone)
{
    Board board(60, 60);
    const int lift = Place_Landed(board, 12), infantry = board.Place(BLUE, 105, 55, 19);
    UNIT[infantry].MOBILITY = 0;
    UNIT[infantry].CARRIER = lift;
    UNIT[infantry].SUPPRESSED = 3;
    Plot(infantry, {{105, 155}});
    UNIT[lift].PZ = Plot(lift, {{105, 55}});
    UNIT[lift].LZ = Plot(lift, {{205, 55}});
    Plot(lift, {{55, 55}});
    HEXMAP[UNIT[board.Place(BLUE, 205, 55)].HEXNUM].TVALUE = 4;
    const UNIT_RECORD& l = UNIT[lift];
    const UNIT_RECORD& k = UNIT[infantry];
    EXPECT_TRUE(After(4, k, "X 105"));
    Fly_Slices(1);
    EXPECT_EQ(l.PASSENGER, infantry);
    EXPECT_TRUE(Has(l, "PZ 0, MOVESTATUS 9"));
    EXPECT_TRUE(Has(k, "X -1000, Y -1000, HEXNUM 0, NUMBER_OF_NODES 0"));   // its own route is off
    EXPECT_TRUE(After(10, k, "X 205, Y 55, CARRIER 0, TERTYPE 4, SUPPRESSED 4"));
    EXPECT_TRUE(Has(l, "PASSENGER 0, LZ 0"));
    EXPECT_TRUE(Posted("B2 reports the air assault is complete!"));
    // It hovers at home until its fuel is spent.
    EXPECT_TRUE(After(15, l, "X 55, NUMBER_OF_NODES 0, MOVESTATUS 8, TIMERM 30"));
    EXPECT_TRUE(After(369, l, "MOVESTATUS 8"));
    EXPECT_TRUE(After(1, l, "MOVESTATUS 0"));
    EXPECT_TRUE(Posted("B1 has landed."));
    EXPECT_EQ(k.SUPPRESSED, 4);
}

TEST(Aviation, AnAbortedAssaultPutsItsPassengerDownAtHome)
{
    Board board(60, 60);
    const int lift = Place_Landed(board, 12), infantry = board.Place(BLUE, 105, 55, 19);
    UNIT[infantry].CARRIER = lift;
    UNIT[lift].PZ = Plot(lift, {{105, 55}});
    UNIT[lift].LZ = Plot(lift, {{205, 55}});
    Plot(lift, {{55, 65}});
    Fly_Slices(8);
    Abort_Mission(lift);
    EXPECT_TRUE(Has(UNIT[lift], "MOVESTATUS 10, NUMBER_OF_NODES 1"));
    EXPECT_TRUE(After(8, UNIT[lift], "MOVESTATUS 0"));
    EXPECT_TRUE(Has(UNIT[infantry], "X 55, Y 65, SUPPRESSED 1, CARRIER 0"));
    EXPECT_TRUE(Posted("B2 reports air assault failed!"));
    EXPECT_TRUE(Has(UNIT[lift], "PZ 0, LZ 0"));
}

TEST(Aviation, AtFourHundredEveryAircraftIsDownWhereverItIs)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 12);
    Plot(unit, {{555, 55}, {55, 55}});
    Give(UNIT[unit], "TIMERM 398, VISIBLE -1, SPOTTED 2");
    EXPECT_TRUE(After(1, UNIT[unit], "MOVESTATUS 9"));
    EXPECT_TRUE(After(1, UNIT[unit], "MOVESTATUS 0, X 75, VISIBLE 0, SPOTTED 0, NUMBER_OF_NODES 2"));
}

TEST(Aviation, AShortOrBrokenFlightEndsAndNobodyIsStuck)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 11);
    Abort_Mission(unit);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 0);   // no route, nothing to abort
    Give(UNIT[unit], "MOVESTATUS 9, TIMERM 20, SUPPRESSED 3");
    EXPECT_TRUE(After(1, UNIT[unit], "MOVESTATUS 0, TIMERM 0"));   // MOVESTATUS: in the air without a node: down
    EXPECT_EQ(UNIT[unit].SUPPRESSED, 0);
    const int home = Plot(unit, {{155, 55}, {55, 55}});
    UNIT[unit].LZ = home;
    UNIT[unit].MOVESTATUS = 10;
    EXPECT_TRUE(After(20, UNIT[unit], "MOVESTATUS 0"));   // an aborting aircraft is not held at its station
    UNIT[unit].MOVEPOINTS2 = 0;
    Plot(unit, {{155, 55}});
    EXPECT_TRUE(After(5, UNIT[unit], "X 55, TIMERM 5"));   // TIMERM: time runs all the same
}

TEST(Aviation, FightersTakeALittleOfAHelicopterMoreOfALiftUnitAndAUAVWhole)
{
    struct CASE {
        int TYPE;
        const char* STATE;
        float LOSS;
        const char* TOLD;
        bool MET;
    };
    const CASE cases[] = {
        {11, "", 0.016666667f, "B1 lost no aircraft!", true},   // 5 / 3 x 0.01
        {12, "", 0.05f, "", true},
        {11, "TACOPN 3", 0.016666667f / 4, "", true},
        {11, "MOVESTATUS 10", 0.0016666667f, "", true},
        {11, "RCP2 0.01", 0.01f, "B1 lost 100%!", true},
        {11, "MOVESTATUS 8", 0, "", false},   // on station it is not met
        {26, "", 0, "UAV is destroyed!", true},
    };
    for (const CASE& c : cases) {
        Board board(60, 60);
        AIRSUPER = 0;
        Give(UNIT[Place_In_The_Air(board, BLUE, 155, 55, c.TYPE)], c.STATE);
        RSEED = 9;   // 5, 5: intercepted; the UAV's second test, or the loss
        Air_Interception_Slice();
        EXPECT_FLOAT_EQ(BADAL, c.LOSS) << c.TYPE << c.STATE;
        EXPECT_TRUE(*c.TOLD == 0 || Posted(c.TOLD)) << c.TOLD;
        EXPECT_EQ(RSEED > 9, c.MET) << c.TYPE << c.STATE;
    }
    EXPECT_EQ(RSEED, 11);   // the UAV's two tests
}

TEST(Aviation, OnSensorSlicesAirDefenceSignsItselfAndCollectorsSweep)
{
    Board board(60, 60);
    const int sam = board.Place(RED, 355, 355, 1);
    const int uav = Place_In_The_Air(board, BLUE, 55, 55, 26), plane = Place_In_The_Air(board, BLUE, 55, 55, 17);
    const int ground = board.Place(BLUE, 55, 55, 16);
    Sensor_Slice();
    EXPECT_EQ(UNIT[sam].C2T, 1);
    EXPECT_TRUE(Has(UNIT[uav], "C2T 0, SENSORS 0"));   // C2T: flying, it sweeps at each step instead
    EXPECT_TRUE(Has(UNIT[plane], "C2T 1, SENSORS 1"));
    EXPECT_EQ(UNIT[ground].C2T, 0);   // its switch is the player's
    UNIT[uav].MOVESTATUS = 8;
    UNIT[ground].SENSORS = 1;
    Sensor_Slice();
    EXPECT_EQ(UNIT[uav].C2T, 1);
    EXPECT_EQ(UNIT[ground].C2T, 1);
}

TEST(Aviation, WhatASeatLooksAtChangesNothing)
{
    const auto hash = [](int view, int plan) {
        Board board(60, 60);
        ViewMode = view;
        PlanSide = plan;
        const int unit = Place_Landed(board, 11);
        UNIT[unit].MXRANGE = 3;
        Place_Area(BLUE, 13, 155, 55);
        board.Place(RED, 155, 65);
        Plot(unit, {{255, 55}, {55, 55}});
        for (int slice = 0; slice < 60; ++slice) {
            Aviation_Pass();
            if (slice % 12 == 0) Sensor_Slice();
            if (slice % 25 == 0) Air_Interception_Slice();
        }
        return State_Hash();
    };
    const auto first = hash(0, 3);
    EXPECT_EQ(hash(1, 1), first);
    EXPECT_EQ(hash(2, 2), first);
    EXPECT_EQ(hash(3, 1), first);
}
