#include "intel/command.h"
#include "support/board.h"
#include "support/dice.h"
#include "support/fields.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

/// Command state of a unit of this role, so many pixels from its headquarters (10 pixels are 1 km).
int C2_At(int pixels, int type = 5, int hq_status = 2, int ew = 0, int hq_ew = 0)
{
    Board board(100, 10);
    const int hq = board.Place(BLUE, 5, 5, 18), u = board.Place(BLUE, 5 + pixels, 5, type);
    UNIT[u].HIGHERHQ = hq;
    UNIT[hq].STATUS = hq_status;
    UNIT[u].EWSTATUS = ew;
    UNIT[hq].EWSTATUS = hq_ew;
    C2_Check(u);
    return UNIT[u].C2;
}

/// A Blue collector of range 10 km at (200, 50); FOOTPRINT 10, so that it reaches 10 x 10 + 10 / 2 = 105 pixels.
struct Sweep {
    Board BOARD{60, 10};
    int COLLECTOR;

    explicit Sweep(int sensor, int task = 0)
    {
        COLLECTOR = BOARD.Place(BLUE, 200, 50, 16);
        UNIT_RECORD& c = UNIT[COLLECTOR];
        c.SENSORS = 1;
        c.SENSORT = sensor;
        c.SENSORA = task;
        Give(c, "MXRANGE 10, FOOTPRINT 10");
    }
    int Enemy(int pixels_away) { return BOARD.Place(RED, 200 + pixels_away, 50); }
};

/// Morale after one leaflet drop at this roll.
int Morale_After(int roll, int morale, int suppressed = 0, int c2 = 3)
{
    Board board(20, 20);
    const int psyops = board.Place(BLUE, 50, 50, 23), enemy = board.Place(RED, 60, 50);
    Give(UNIT[psyops], "POPS 1, MXRANGE 5");
    UNIT[enemy].MORALE = morale;
    UNIT[enemy].SUPPRESSED = suppressed;
    UNIT[enemy].C2 = c2;
    Roll_Next(roll);
    Psyops_Attack(psyops);
    EXPECT_EQ(UNIT[psyops].C2T, 10);
    return UNIT[enemy].MORALE;
}

}   // namespace

TEST(Command, TheStateFallsAt31And51And71Kilometres)
{
    EXPECT_EQ(C2_At(309), 3);   // 30.9 km count as 30
    EXPECT_EQ(C2_At(310), 2);
    EXPECT_EQ(C2_At(509), 2);
    EXPECT_EQ(C2_At(510), 1);
    EXPECT_EQ(C2_At(709), 1);
    EXPECT_EQ(C2_At(710), 0);
    EXPECT_EQ(C2_At(100, 5, 1), 0);   // the headquarters is ineffective
}

TEST(Command, AviationLogisticsAndHeadquartersAreNeverOutOfTouchButCanBeJammed)
{
    for (const int type : {11, 12, 13, 17, 18, 26, 50}) EXPECT_EQ(C2_At(900, type), 3) << type;
    EXPECT_EQ(C2_At(900, 5), 0);
    EXPECT_EQ(C2_At(900, 11, 2, 5), 2);
}

TEST(Command, AJamOfTheUnitOrOfItsHeadquartersCostsOneLevelAndNotTwo)
{
    EXPECT_EQ(C2_At(100, 5, 2, 5), 2);
    EXPECT_EQ(C2_At(100, 5, 2, 0, 10), 2);
    EXPECT_EQ(C2_At(100, 5, 2, 10, 10), 2);
    EXPECT_EQ(C2_At(100, 5, 2, 2, 2), 3);   // located is not degraded
    EXPECT_EQ(C2_At(900, 5, 2, 10), -1);
    Board board(10, 10);
    const int alone = board.Place(BLUE, 5, 5);
    UNIT[alone].EWSTATUS = 5;
    C2_Check(alone);
    EXPECT_EQ(UNIT[alone].C2, -1);   // no headquarters at all
    EXPECT_EQ(C2_Panel(alone).TEXT, "");
}

TEST(Command, CommunicationsAreReportedWhenTheyImproveAndNotWhenTheyFail)
{
    struct CASE {
        int OLD, PIXELS, EW, TYPE;
        const char* REPORT;   ///< "" for none
    };
    for (const CASE& c : {CASE{0, 400, 0, 5, "Communications are difficult with my HQ!"},
                          CASE{0, 600, 0, 5, "Communications are difficult with my HQ!"},
                          CASE{-1, 900, 0, 5, "Communications are lost - Where is my HQ!"}, CASE{0, 100, 0, 5, ""},
                          CASE{2, 400, 0, 5, ""}, CASE{3, 900, 0, 5, ""}, CASE{0, 100, 5, 11, ""}}) {
        Board board(100, 10);
        const int hq = board.Place(BLUE, 5, 5, 18), u = board.Place(BLUE, 5 + c.PIXELS, 5, c.TYPE);
        UNIT[u].HIGHERHQ = hq;
        UNIT[u].C2 = c.OLD;
        UNIT[u].EWSTATUS = c.EW;
        C2_Check(u);
        EXPECT_EQ(Messages(), *c.REPORT == 0 ? std::vector<std::string>{} : std::vector{Cat("B2: ", c.REPORT)})
            << c.OLD << c.PIXELS;
    }
}

TEST(Command, ThePanelNamesStateAndDistance)
{
    Board board(60, 10);
    const int hq = board.Place(BLUE, 5, 5, 18), u = board.Place(BLUE, 425, 5);
    UNIT[u].HIGHERHQ = hq;
    C2_Check(u);
    EXPECT_EQ(C2_Panel(u).TEXT, "C2 Status: Average - 42 kms");
    EXPECT_EQ(C2_Panel(u).BACKGROUND, 14);
    UNIT[u].C2 = 0;
    EXPECT_EQ(C2_Panel(u).TEXT, "C2 Status: Bad - 42 kms");
    EXPECT_EQ(C2_Panel(u).FOREGROUND, 15);
}

TEST(Sweep, OpticsSeeOneKilometreAndRadarSeesWhatMoves)
{
    Sweep optics(0);
    const int near = optics.Enemy(10), far = optics.Enemy(11);
    IEW_Sweep(optics.COLLECTOR);
    EXPECT_TRUE(Has(UNIT[near], "SPOTTED 2, VISIBLE -1"));
    EXPECT_EQ(UNIT[far].SPOTTED, 0);
    EXPECT_EQ(UNIT[optics.COLLECTOR].C2T, 1);

    Sweep radar(2);
    const int moving = radar.Enemy(105), halted = radar.Enemy(50), beyond = radar.Enemy(106);
    UNIT[moving].MOVESTATUS = UNIT[beyond].MOVESTATUS = 2;
    IEW_Sweep(radar.COLLECTOR);
    EXPECT_EQ(UNIT[moving].SPOTTED, 2);
    EXPECT_EQ(UNIT[halted].SPOTTED, 0);
    EXPECT_EQ(UNIT[beyond].SPOTTED, 0);
    UNIT[radar.COLLECTOR].SENSORS = 0;
    UNIT[halted].MOVESTATUS = 2;
    IEW_Sweep(radar.COLLECTOR);
    EXPECT_EQ(UNIT[halted].SPOTTED, 0);   // switched off
}

TEST(Sweep, ATransmitterIsHeardAtTenTimesItsTrafficPlusTwenty)
{
    for (const int roll : {50, 51}) {
        Sweep elint(3);
        const int enemy = elint.Enemy(105);   // collection works at the whole range
        UNIT[enemy].C2T = 3;                  // 3 x 10 + 20 = 50
        Roll_Next(roll);
        IEW_Sweep(elint.COLLECTOR);
        EXPECT_TRUE(Has(UNIT[enemy], roll == 50 ? "EWSTATUS 2, SPOTTED 2" : "EWSTATUS 0, SPOTTED 0"));
    }
    Sweep detailed(3);
    const int enemy = detailed.Enemy(50);
    ELINTDetail = 1;
    UNIT[enemy].C2T = 8;   // 100 is heard at any roll
    Roll_Next(100);
    IEW_Sweep(detailed.COLLECTOR);
    EXPECT_TRUE(Has(UNIT[enemy], "EWSTATUS 2, SPOTTED 0"));   // SPOTTED: detailed play: located, not spotted
    EXPECT_EQ(UNIT[enemy].VISIBLE, 0);
}

TEST(Sweep, JammingReachesHalfOfTheRangeAndFindsNothing)
{
    Sweep attack(3, 1);
    const int near = attack.Enemy(52), far = attack.Enemy(53);   // twice 52 is within 105, twice 53 is not
    UNIT[near].C2T = UNIT[far].C2T = 8;
    IEW_Sweep(attack.COLLECTOR);
    EXPECT_TRUE(Has(UNIT[near], "EWSTATUS 10, SPOTTED 0"));
    EXPECT_EQ(Messages(), std::vector<std::string>{"Enemy EW successfully degrades R301's C2!"});
    IEW_Sweep(attack.COLLECTOR);
    EXPECT_EQ(Messages().size(), 1u);   // jammed already
    EXPECT_EQ(UNIT[far].EWSTATUS, 0);

    Sweep collect(3, 0);
    const int jammed = collect.Enemy(20);
    Give(UNIT[jammed], "C2T 8, EWSTATUS 10");
    IEW_Sweep(collect.COLLECTOR);
    EXPECT_EQ(UNIT[jammed].EWSTATUS, 2);   // a location takes the place of a jam
}

TEST(Sweep, ACollectorOnTheGroundFindsNothingButRollsAsOneInTheAir)
{
    for (const int movestatus : {0, 7}) {
        Sweep elint(3);
        UNIT[elint.COLLECTOR].MOBILITY = 3;
        UNIT[elint.COLLECTOR].MOVESTATUS = movestatus;
        const int enemy = elint.Enemy(50);
        UNIT[enemy].C2T = 8;
        UNIT[elint.Enemy(20)].TYPE = 50;   // neither lines of communication nor friends cost a roll
        elint.BOARD.Place(BLUE, 210, 50);
        RSEED = 20;
        IEW_Sweep(elint.COLLECTOR);
        EXPECT_EQ(UNIT[enemy].SPOTTED, movestatus == 7 ? 2 : 0);
        EXPECT_EQ(RSEED, 21);
    }
}

TEST(Sweep, WhatASeatSeesNeverChangesTheModel)
{
    for (const int user : {1, 3}) {
        Sweep radar(2);
        const int enemy = radar.Enemy(50);
        UNIT[enemy].MOVESTATUS = 2;
        UserSide = user;
        IEW_Sweep(radar.COLLECTOR);
        EXPECT_EQ(SEAT.PICTURE[enemy], user == 1);   // both sides at one screen in the default view: not shown
        EXPECT_EQ(UNIT[enemy].VISIBLE, -1);
    }
}

TEST(Psyops, ALowSumCostsALevelOfMorale)
{
    // The sum is roll - 20 and what the target's state adds; below 30 the target loses a level.
    EXPECT_EQ(Morale_After(31, 2), 1);         // 31 - 20 + 15 = 26
    EXPECT_EQ(Morale_After(34, 2), 1);         // 29
    EXPECT_EQ(Morale_After(35, 2), 2);         // 30
    EXPECT_EQ(Morale_After(19, 4), 3);         // 19 - 20 + 30 = 29
    EXPECT_EQ(Morale_After(21, 4), 4);         // 31
    EXPECT_EQ(Morale_After(39, 1), 0);         // 39 - 20 + 10 = 29
    EXPECT_EQ(Morale_After(56, 2, 4, 0), 1);   // 56 - 20 - 10 - 15 + 15 = 26
    EXPECT_EQ(Morale_After(56, 2, 3, 1), 2);   // 56 - 20 - 5 - 10 + 15 = 36
    EXPECT_EQ(Morale_After(5, 0), 0);          // broken already, and told all the same
    EXPECT_TRUE(Posted("R301 loses morale as a result of PSYOPS attack!"));
    EXPECT_EQ(Morale_After(100, 2), 2);
    EXPECT_FALSE(Posted("loses morale"));
}

TEST(C4ISR, OnlyOperationalSpecialistsActAndEveryUnitIsChecked)
{
    Board board(60, 20);
    const int radar = board.Place(BLUE, 50, 50, 16), weak = board.Place(BLUE, 60, 50, 16);
    const int psyops = board.Place(BLUE, 50, 60, 23), hq = board.Place(BLUE, 55, 55, 18);
    const int enemy = board.Place(RED, 100, 50);
    for (const int u : {radar, weak}) {
        Give(UNIT[u], "SENSORS 1, SENSORT 2, MXRANGE 10, C2 0");
        UNIT[u].HIGHERHQ = hq;
    }
    UNIT[weak].STATUS = 1;
    Give(UNIT[psyops], "POPS 1, MXRANGE 10");
    UNIT[enemy].MOVESTATUS = 2;
    C4ISR_Check();
    EXPECT_EQ(UNIT[enemy].SPOTTED, 2);
    EXPECT_EQ(UNIT[radar].C2T, 1);
    EXPECT_TRUE(Has(UNIT[weak], "C2T 0, C2 3"));
    EXPECT_EQ(UNIT[psyops].C2T, 10);
    EXPECT_EQ(UNIT[enemy].C2, 0);   // no headquarters
}
