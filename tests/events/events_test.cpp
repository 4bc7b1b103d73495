#include "events/events.h"

#include "core/unit_reset.h"
#include "events/event_kinds.h"
#include "manoeuvre/movement.h"
#include "persist/program_folder.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/log_lines.h"
#include "support/march.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

#include <set>

using namespace sm;
using namespace sm::test;

namespace {

/// A Blue unit of 40 points, 24 movement points and a footprint of 20, standing on an event of row 4.
struct Road {
    Board BOARD{20, 20};
    Log_Lines LOG;
    int COLUMN;

    explicit Road(int trigger, int type = 5)
    {
        COLUMN = BOARD.Place(BLUE, 100, 100, type, 40.0f);
        UNIT[COLUMN].FOOTPRINT = 20;
        PP[4].PPTYPE = 1;
        PP[4].PPX = PP[4].PPY = 100;
        PP[4].PPTRIGGER = trigger;
    }
    void Meet() { Event_Check(COLUMN, UNIT[COLUMN].X, UNIT[COLUMN].Y); }
    bool Happened() const { return PP[4].PPACTIVE == 1 && PP[4].PPVISIBLE == 1; }
};

bool Fires_For(int trigger, int type)
{
    Road road(trigger, type);
    road.Meet();
    return road.Happened();
}

}   // namespace

TEST(Events, EveryKindHasItsSideAndIcon)
{
    struct CASE {
        int TYPE;
        const char *LABEL, *ICON;
        int SIDE;
    };
    for (const CASE& c :
         {CASE{1, "Ambush (Red)", "2.ico", RED}, CASE{12, "Casualties (Blue)", "36.ico", BLUE},
          CASE{23, "Government Building (Neutral)", "42.ico", BOTH},
          CASE{25, "Government Building (Neutral)", "44.ico", BOTH},
          CASE{34, "Recruitment (Red-Willing)", "47.ico", RED},
          CASE{47, "Vandalism/Rape/Plunder (Red)", "39.ico", RED}, CASE{50, "Other (Neutral)", "38.ico", BOTH}}) {
        const EVENT_KIND& kind = *Event_Kind(c.TYPE);
        EXPECT_STREQ(kind.LABEL, c.LABEL);
        EXPECT_STREQ(kind.ICON, c.ICON);
        EXPECT_EQ(Event_Side(kind), c.SIDE) << c.LABEL;
    }
    std::set<std::string> icons;
    for (int type = 1; type <= EVENT_KINDS; ++type) icons.insert(Event_Kind(type)->ICON);
    EXPECT_EQ(Event_Kind(0), nullptr);
    EXPECT_EQ(Event_Kind(51), nullptr);
    EXPECT_EQ(icons.size(), 47u);   // every kind its own, but for the UN report and the three others
}

TEST(Events, TriggersAskForTheRoleOfTheUnit)
{
    EXPECT_TRUE(Fires_For(1, 5));
    EXPECT_TRUE(Fires_For(2, 13));
    EXPECT_TRUE(Fires_For(2, 5));
    EXPECT_TRUE(Fires_For(3, 13));
    EXPECT_FALSE(Fires_For(3, 5));
    EXPECT_TRUE(Fires_For(4, 5));
    EXPECT_FALSE(Fires_For(4, 13));
    EXPECT_FALSE(Fires_For(0, 5));
    EXPECT_FALSE(Fires_For(5, 5));
}

TEST(Events, AnEventReachesHalfTheFootprintAndEightPixels)
{
    for (const int distance : {18, 19}) {
        Road road(2);
        Event_Check(road.COLUMN, 100 + distance, 100);   // 20 / 2 + 8
        EXPECT_EQ(road.Happened(), distance == 18);
    }
}

TEST(Events, AStopTakesAllMovementAndASlowdownHalfOfTheBaseAgainAndAgain)
{
    struct CASE {
        const char *EVENT, *BEFORE, *AFTER, *LOG;
    };
    // The base is 24; a slowdown takes 12 of more than 12.
    const CASE cases[] = {
        {"PPOBSTACLE 2", "MOVEPOINTS2 24", "MOVEPOINTS2 0", "B1 movement is stopped."},
        {"PPOBSTACLE 2", "MOVEPOINTS2 0", "MOVEPOINTS2 0", ""},
        {"PPOBSTACLE 2, PPACTIVE 1", "MOVEPOINTS2 24", "MOVEPOINTS2 0",
         "B1 movement is stopped."},                                            // has happened
        {"PPOBSTACLE 2", "MOVEPOINTS2 24, MOBILITY 3", "MOVEPOINTS2 24", ""},   // flies
        {"PPOBSTACLE 1", "MOVEPOINTS2 20", "MOVEPOINTS2 8", "B1 movement is slowed."},
        {"PPOBSTACLE 1", "MOVEPOINTS2 12", "MOVEPOINTS2 12", ""},
        {"PPOBSTACLE 1, PPACTIVE 1", "MOVEPOINTS2 13", "MOVEPOINTS2 1", "B1 movement is slowed."},
    };
    for (const CASE& c : cases) {
        Road road(2);
        Give(PP[4], c.EVENT);
        Give(UNIT[road.COLUMN], c.BEFORE);
        road.Meet();
        EXPECT_TRUE(Has(UNIT[road.COLUMN], c.AFTER)) << c.EVENT << ": " << c.BEFORE;
        EXPECT_EQ(road.LOG.All(), *c.LOG == 0 ? std::vector<std::string>{} : std::vector<std::string>{c.LOG});
    }
}

TEST(Events, AttritionIsTakenOnceFromWhatTheUnitHasLeft)
{
    struct CASE {
        int EFFECT;
        const char* TEXT;
        float MANOEUVRE, ARTILLERY;
    };
    for (const CASE& c : {CASE{1, "SITREP: B1 lost 20% as a result of direct fires!", 8, 0},
                          CASE{2, "Artillery Attack BDA:  B1 lost 20% destroyed", 0, 8},
                          CASE{3, "SITREP: B1 lost 20% as a result of a mine/bomb!", 0, 0}}) {
        Road road(2);
        PP[4].PPEFFECT = c.EFFECT;
        PP[4].PPDURATION = 20;
        road.Meet();
        EXPECT_FLOAT_EQ(UNIT[road.COLUMN].TURNLOSS, 8.0f);   // 20 percent of 40
        EXPECT_EQ(UNIT[road.COLUMN].RCP2, 40.0f);            // applied with the turn's other losses
        EXPECT_EQ(Messages(), (std::vector<std::string>{c.TEXT}));
        EXPECT_TRUE(Has(SITREPLIST[1], "SIDE BOTH, UNIT 1"));
        EXPECT_FLOAT_EQ(BMANL, c.MANOEUVRE);
        EXPECT_FLOAT_EQ(BARTYL, c.ARTILLERY);
        EXPECT_TRUE(road.Happened());
        road.Meet();
        EXPECT_FLOAT_EQ(UNIT[road.COLUMN].TURNLOSS, 8.0f);
        EXPECT_EQ(Messages().size(), 1u);
    }
}

TEST(Events, AnEventWithoutEffectOrAttritionOrVictimIsMarkedHappened)
{
    for (const char* event :
         {"PPEFFECT 0, PPDURATION 50", "PPEFFECT 1, PPDURATION 0", "PPEFFECT 1, PPDURATION 100",
          "PPEFFECT 1, PPDURATION 50, PPACTIVE 1, PPVISIBLE 1"}) {
        Road road(2);
        Give(PP[4], event);
        if (PP[4].PPDURATION == 100) UNIT[road.COLUMN].RCP2 = 0;   // nobody left
        road.Meet();
        EXPECT_TRUE(road.Happened()) << event;
        EXPECT_EQ(UNIT[road.COLUMN].TURNLOSS, 0.0f) << event;
        EXPECT_TRUE(PP[4].PPDURATION == 100 || Messages().empty()) << event;
    }
}

TEST(Events, ARoadblockCostsTheRestOfATurnAndIsPassedInTheEnd)
{
    struct CASE {
        int TACOPN;
        std::vector<int> X;   ///< after each turn
    };
    // Nine steps of 95 / 9 pixels: 111, 121, 132, 142 .. 195. A platoon on the attack is 10 pixels wide and meets
    // the block within 13, on a screen 20 and within 18; 132 is 17 away. Each turn begins with a step.
    for (const CASE& c : {CASE{0, {111, 121, 195}}, CASE{3, {111, 121, 132, 195}}}) {
        Road road(2);
        Give(PP[4], "PPOBSTACLE 2, PPX 115");
        UNIT[road.COLUMN].SIZE = 1;
        UNIT[road.COLUMN].TACOPN = c.TACOPN;
        Plot(road.COLUMN, {{195, 100}});
        for (const int x : c.X) {
            Movement();
            Reset_Units();
            EXPECT_EQ(UNIT[road.COLUMN].X, x) << c.TACOPN;
        }
    }
}

TEST(Events, TheEndOfTheTurnTakesTheLossOfAHaltedColumn)
{
    Road road(2);
    Give(PP[4], "PPEFFECT 3, PPDURATION 10");
    Reset_Units();
    EXPECT_FLOAT_EQ(UNIT[road.COLUMN].RCP2, 36.0f);
    EXPECT_EQ(UNIT[road.COLUMN].TURNLOSS, 0.0f);
    Road red(2);
    UNIT[red.COLUMN].STATUS = 0;
    const int enemy = red.BOARD.Place(RED, 100, 100);
    Reset_Units();
    EXPECT_EQ(UNIT[enemy].STATUS, 2);
    EXPECT_FALSE(red.Happened());   // events are met by Blue
}

TEST(Events, AnEventIsOpenedOnceItHasHappenedAndByRedBefore)
{
    Scratch_Folder home;
    Put_File(home / "events/Riot.WAV", "sound");
    const auto before = Program_Folder();
    Set_Program_Folder(home.Path());
    Road road(2);
    Give(PP[4], "PPATYPE Ambush (Red), PPMSG Shots from the wood., PPPROBE 1, PPPFILE riot.wav");
    const auto& screen = road.BOARD.SCREEN;
    ActiveSide = BLUE;
    Open_Event(4);
    EXPECT_EQ(screen.Count("box", ""), 0);
    EXPECT_FALSE(Event_Shown(4));
    ActiveSide = RED;
    EXPECT_TRUE(Event_Shown(4));
    Open_Event(4);
    EXPECT_EQ(screen.Count("box", "Ambush (Red)|Shots from the wood."), 1);
    ActiveSide = BLUE;
    PP[4].PPACTIVE = 1;
    EXPECT_TRUE(Event_Shown(4));
    Open_Event(4);
    EXPECT_EQ(screen.Count("media", "Riot.WAV"), 2);
    PP[4].PPPFILE = "gone.wav";   // a missing file is silent
    Open_Event(4);
    PP[4].PPPFILE = "..\\events\\Riot.WAV";
    Open_Event(4);
    Give(PP[4], "PPPFILE riot.wav, PPPROBE 0");
    Open_Event(4);
    EXPECT_EQ(screen.Count("media", ""), 2);
    EXPECT_EQ(screen.Count("box", "Shots from the wood."), 5);
    Set_Program_Folder(before);
}
