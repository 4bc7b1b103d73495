#include "manoeuvre/aviation.h"

#include "core/seat.h"
#include "core/state_hash.h"
#include "intel/area_triggers.h"
#include "manoeuvre/routes.h"
#include "support/fields.h"
#include "support/fires.h"

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

/// Plots a node; returns its row.
int Plot(int unit, int x, int y)
{
    const int row = Next_Free_Node(unit);
    Add_Move_Node(unit, row, x, y);
    return row;
}

void Fly_Slices(int n)
{
    for (int slice = 0; slice < n; ++slice) Aviation_Pass();
}

}   // namespace

TEST(Aviation, AHelicopterFliesOutHoldsItsStationAndIsHomeWithItsLastDropOfFuel)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 11);
    const int station = Plot(unit, 255, 55);   // 20 cells out
    Plot(unit, 55, 55);                        // and 20 back
    UNIT[unit].LZ = station;
    const UNIT_RECORD& u = UNIT[unit];
    EXPECT_TRUE(Has(u, "MOVESTATUS 9, DISTANCE_TO_END 40"));
    EXPECT_EQ(Aviation_Pass(), 1);
    EXPECT_TRUE(Has(u, "X 65, TIMERM 1, FACING 95, DISTANCE_TO_END 39"));   // FACING: 10 pixels due east
    Fly_Slices(19);
    EXPECT_TRUE(Has(u, "X 255, MOVESTATUS 8, TIMERM 20, NUMBER_OF_NODES 1, DISTANCE_TO_END 20, LZ 0"));
    EXPECT_FALSE(Used(MN[station]));
    EXPECT_EQ(u.C2T, 1);
    EXPECT_EQ(Aviation_Pass(), 0);                     // hovering is no move
    Fly_Slices(358);                                   // slice 379
    EXPECT_TRUE(Has(u, "TIMERM 379, MOVESTATUS 8"));   // MOVESTATUS: 21 points for 20 cells
    Fly_Slices(1);
    EXPECT_TRUE(Has(u, "MOVESTATUS 9, X 255"));   // MOVESTATUS: 20 for 20: time to go
    Fly_Slices(19);
    EXPECT_EQ(u.X, 65);
    EXPECT_FALSE(Posted("B1 has landed."));
    Fly_Slices(1);   // slice 400
    EXPECT_TRUE(Has(u, "X 55, MOVESTATUS 0, TIMERM 0, NUMBER_OF_NODES 0, MOVEPOINTS2 360"));
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
    Plot(unit, 355, 55);
    const int home = Plot(unit, 55, 55);
    const UNIT_RECORD& u = UNIT[unit];
    EXPECT_EQ(u.MOVESTATUS, 7);
    Fly_Slices(3);
    EXPECT_TRUE(Has(u, "X 55, TIMERM 0"));
    const int tanks = board.Place(RED, 255, 155);
    Launch_Waiting_Helicopters(tanks, nai);
    EXPECT_EQ(u.MOVESTATUS, 9);
    Place_Unit(tanks, 255, 65);
    // The TAI at 255 is within round(3 x 10 + 40 / 2) + 20 = 70 pixels from x = 185 on: 13 steps made, seen before
    // the 14th.
    Fly_Slices(13);
    EXPECT_TRUE(Has(u, "X 185, FREEHUNT 0"));
    Fly_Slices(1);
    EXPECT_TRUE(Has(u, "FREEHUNT 1, FIREMISSIONN 0"));
    // Weapons reach 30 and half a footprint, 50 pixels, from the place flown to: (215, 55) is 41 away, (205,
    // 55) 51.
    Fly_Slices(1);
    EXPECT_TRUE(Has(u, "X 205, FIREMISSIONN 0"));
    Fly_Slices(1);
    EXPECT_EQ(u.FIREMISSIONN, 2);
    EXPECT_TRUE(Posted("attack against R301!"));
    EXPECT_EQ(u.X, 215);
    Fly_Slices(1);
    EXPECT_TRUE(Has(u, "FIREMISSIONN 4, MOVESTATUS 10, X 215"));   // X: turned round before the step was made
    EXPECT_EQ(u.NUMBER_OF_NODES, 1);
    EXPECT_EQ(MN[home].MNUNITNUMBER, 1);
    EXPECT_EQ(u.DISTANCE_TO_END, 16);
    Fly_Slices(15);
    EXPECT_TRUE(Has(u, "X 65, FIREMISSIONN 4"));   // FIREMISSIONN: nothing more to shoot with
    Fly_Slices(1);
    EXPECT_TRUE(Has(u, "X 55, MOVESTATUS 0, TIMERM 0, NAI 0"));   // MOVESTATUS: an aborted flight ends at once
    EXPECT_TRUE(Has(u, "FREEHUNT 0, LX 55"));
}

TEST(Aviation, AnAirAssaultTakesInfantryFromItsPickUpToItsLandingZone)
{
    Board board(60, 60);
    const int lift = Place_Landed(board, 12), infantry = board.Place(BLUE, 105, 55, 19);
    UNIT[infantry].MOBILITY = 0;
    UNIT[infantry].CARRIER = lift;
    UNIT[infantry].SUPPRESSED = 3;
    Plot(infantry, 105, 155);
    UNIT[lift].PZ = Plot(lift, 105, 55);
    UNIT[lift].LZ = Plot(lift, 205, 55);
    Plot(lift, 55, 55);
    HEXMAP[UNIT[board.Place(BLUE, 205, 55)].HEXNUM].TVALUE = 4;
    const UNIT_RECORD& l = UNIT[lift];
    const UNIT_RECORD& k = UNIT[infantry];
    Fly_Slices(4);
    EXPECT_EQ(k.X, 105);
    Fly_Slices(1);
    EXPECT_EQ(l.PASSENGER, infantry);
    EXPECT_EQ(l.PZ, 0);
    EXPECT_TRUE(Has(k, "X -1000, Y -1000, HEXNUM 0"));
    EXPECT_EQ(k.NUMBER_OF_NODES, 0);   // its own route is off
    EXPECT_EQ(l.MOVESTATUS, 9);
    Fly_Slices(10);
    EXPECT_TRUE(Has(k, "X 205, Y 55, CARRIER 0, TERTYPE 4, SUPPRESSED 4"));
    EXPECT_TRUE(Has(l, "PASSENGER 0, LZ 0"));
    EXPECT_TRUE(Posted("B2 reports the air assault is complete!"));
    Fly_Slices(15);
    EXPECT_TRUE(Has(l, "X 55, NUMBER_OF_NODES 0"));
    EXPECT_TRUE(Has(l, "MOVESTATUS 8, TIMERM 30"));   // MOVESTATUS: hovers at home until its fuel is spent
    Fly_Slices(369);
    EXPECT_EQ(l.MOVESTATUS, 8);
    Fly_Slices(1);
    EXPECT_EQ(l.MOVESTATUS, 0);
    EXPECT_TRUE(Posted("B1 has landed."));
    EXPECT_EQ(k.SUPPRESSED, 4);
}

TEST(Aviation, AnAbortedAssaultPutsItsPassengerDownAtHome)
{
    Board board(60, 60);
    const int lift = Place_Landed(board, 12), infantry = board.Place(BLUE, 105, 55, 19);
    UNIT[infantry].CARRIER = lift;
    UNIT[lift].PZ = Plot(lift, 105, 55);
    UNIT[lift].LZ = Plot(lift, 205, 55);
    Plot(lift, 55, 65);
    Fly_Slices(8);
    Abort_Mission(lift);
    EXPECT_TRUE(Has(UNIT[lift], "MOVESTATUS 10, NUMBER_OF_NODES 1"));
    Fly_Slices(8);
    EXPECT_EQ(UNIT[lift].MOVESTATUS, 0);
    EXPECT_TRUE(Has(UNIT[infantry], "X 55, Y 65, SUPPRESSED 1, CARRIER 0"));
    EXPECT_TRUE(Posted("B2 reports air assault failed!"));
    EXPECT_TRUE(Has(UNIT[lift], "PZ 0, LZ 0"));
}

TEST(Aviation, AtFourHundredEveryAircraftIsDownWhereverItIs)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 12);
    Plot(unit, 555, 55);
    Plot(unit, 55, 55);
    Give(UNIT[unit], "TIMERM 398, VISIBLE -1, SPOTTED 2");
    Fly_Slices(1);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 9);
    Fly_Slices(1);
    EXPECT_TRUE(Has(UNIT[unit], "MOVESTATUS 0, X 75, VISIBLE 0, SPOTTED 0, NUMBER_OF_NODES 2"));
}

TEST(Aviation, AShortOrBrokenFlightEndsAndNobodyIsStuck)
{
    Board board(60, 60);
    const int unit = Place_Landed(board, 11);
    Abort_Mission(unit);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 0);   // no route, nothing to abort
    Give(UNIT[unit], "MOVESTATUS 9, TIMERM 20, SUPPRESSED 3");
    Fly_Slices(1);
    EXPECT_TRUE(Has(UNIT[unit], "MOVESTATUS 0, TIMERM 0"));   // MOVESTATUS: in the air without a node: down
    EXPECT_EQ(UNIT[unit].SUPPRESSED, 0);
    Plot(unit, 155, 55);
    const int home = Plot(unit, 55, 55);
    UNIT[unit].LZ = home;
    UNIT[unit].MOVESTATUS = 10;
    Fly_Slices(20);
    EXPECT_EQ(UNIT[unit].MOVESTATUS, 0);   // an aborting aircraft is not held at its station
    UNIT[unit].MOVEPOINTS2 = 0;
    Plot(unit, 155, 55);
    Fly_Slices(5);
    EXPECT_TRUE(Has(UNIT[unit], "X 55, TIMERM 5"));   // TIMERM: time runs all the same
}

TEST(Aviation, FightersTakeALittleOfAHelicopterMoreOfALiftUnitAndAUAVWhole)
{
    const auto loss = [](int type, auto change) {
        Board board(60, 60);
        AIRSUPER = 0;
        const int unit = Place_In_The_Air(board, BLUE, 155, 55, type);
        change(UNIT[unit]);
        RSEED = type == 26 ? 9 : 9;   // 5, 5: intercepted; the UAV's second test, or the loss
        Air_Interception_Slice();
        return static_cast<float>(BADAL);
    };
    // 5 / 3 x 0.01
    EXPECT_FLOAT_EQ(loss(11, [](auto&) {}), 0.016666667f);
    EXPECT_TRUE(Posted("B1 lost no aircraft!"));
    EXPECT_FLOAT_EQ(loss(12, [](auto&) {}), 0.05f);
    EXPECT_FLOAT_EQ(loss(11, [](auto& u) { u.TACOPN = 3; }), 0.016666667f / 4);
    EXPECT_FLOAT_EQ(loss(11, [](auto& u) { u.MOVESTATUS = 10; }), 0.0016666667f);
    EXPECT_FLOAT_EQ(loss(11, [](auto& u) { u.RCP2 = 0.01f; }), 0.01f);
    EXPECT_TRUE(Posted("B1 lost 100%!"));
    EXPECT_FLOAT_EQ(loss(26, [](auto&) {}), 0);
    EXPECT_TRUE(Posted("UAV is destroyed!"));
    EXPECT_EQ(RSEED, 11);
    EXPECT_FLOAT_EQ(loss(11, [](auto& u) { u.MOVESTATUS = 8; }), 0);   // on station it is not met
    EXPECT_EQ(RSEED, 9);
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
        Plot(unit, 255, 55);
        Plot(unit, 55, 55);
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
