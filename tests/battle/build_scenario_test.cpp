// The compiler of scenarios, run as the build runs it.

#include "core/game_state.h"
#include "persist/game_file.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/numbers.h"
#include "support/places.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;

namespace {

class Build_Scenario : public testing::Test {
protected:
    Build_Scenario() { Clear_Game(); }
    ~Build_Scenario() override { Clear_Game(); }
    COMMAND_RESULT Compile(const std::string& text)
    {
        Put_File(folder / "small.txt", text);
        return Run_Command("'" STONEMARCH_SCENARIO_BUILDER "' '" + (folder / "small.txt").string() + "' '" +
                           STONEMARCH_HOME_DIR + "' '" STONEMARCH_SOURCE_DIR "/data/maps' '" +
                           (folder / "small.sce").string() + "'");
    }
    /// Compiles and reads what was made.
    void Build(const std::string& text)
    {
        const COMMAND_RESULT made = Compile(text);
        ASSERT_EQ(made.STATUS, 0) << made.PRINTED;
        ASSERT_EQ(Read_Game_Text(File_Content(folder / "small.sce")), 0);
    }
    Scratch_Folder folder;
};

TEST_F(Build_Scenario, EachFaultIsToldWithItsLineAndNoFileIsMade)
{
    const COMMAND_RESULT made = Compile("map 1\n"
                                        "force blue\n"
                                        "unit A \"CP (Bde)\" Weimar\n"
                                        "unit B \"AR Co (M1A2)\" Weimar@1e; hq Nobody\n"
                                        "unit C \"AR Co (M1A2)\" Weimar@2w; route Atlantis\n");
    EXPECT_EQ(made.STATUS, 1);
    EXPECT_NE(made.PRINTED.find("small.txt:4: no such unit: Nobody"), std::string::npos) << made.PRINTED;
    EXPECT_NE(made.PRINTED.find("small.txt:5: no such place: Atlantis"), std::string::npos) << made.PRINTED;
    EXPECT_FALSE(std::filesystem::exists(folder / "small.sce"));
    EXPECT_NE(Compile("map 1\nforce blue\nunit A \"No Such Type\" Weimar\n").STATUS, 0);
    EXPECT_NE(Compile("map 1\nset RSEED many\n").STATUS, 0);
}

TEST_F(Build_Scenario, AnAttachedUnitLeavesTheMapAndItsParentTakesUpItsFigures)
{
    Build("map 1\nforce red\n"
          "unit \"1 TB\" \"TK Bn (T-80)\" Leipzig\n"
          "unit \"Egr\" \"Egr Co (IMR)\"; attach \"1 TB\"; bridging 1\n");
    // TK Bn 26 and Egr Co 3.5; supply loads are the sizes, 3 and 2
    EXPECT_TRUE(Has(UNIT[301], "RCP 29.5, RCP2 29.5, RSF2 5"));
    EXPECT_EQ(Row(UNIT[301].BRIDGING, UNIT[302].PARENT_UNIT, UNIT[302].X, UNIT[302].Y), Row(1, 301, -500, -2000));
}

TEST_F(Build_Scenario, AHeadquartersIsGivenAStanceAndAnObjectiveForItsUnits)
{
    const std::string text = "map 1\nobjective Halle 300 red\nforce blue\nunit CP \"CP (Bde)\" Weimar; action reserve; aim 1\n"
                             "unit A \"AR Co (M1A2)\" Weimar@1e; hq CP\nunit B \"AR Co (M1A2)\" Weimar@2e; hq CP; action defend\n";
    Build(text);
    EXPECT_EQ(Row(UNIT[2].AIACTION, UNIT[2].OBJ, UNIT[3].AIACTION), Row(4, 1, 3));
    const COMMAND_RESULT made = Compile(text + "  aim 1\n");
    EXPECT_EQ(made.STATUS, 1);
    EXPECT_NE(made.PRINTED.find("small.txt:7: objective 1 cannot be given to B"), std::string::npos) << made.PRINTED;
}

TEST_F(Build_Scenario, AUnitThatMayFordTakesTheShortWayOnlyWhenItIsToldSo)
{
    // the Saale flows past Merseburg's east; the nearest bridges lie seven and more cells up and down from there
    const std::string text = "map 1\nforce blue\nunit A \"AR Co (M1A2)\" Merseburg\n  route Merseburg@5e\n";
    Build(text);
    const int dry = UNIT[1].MOVECOST_TO_END;
    Build(text + "  ford\n");
    EXPECT_LT(UNIT[1].MOVECOST_TO_END, dry);
    EXPECT_LE(UNIT[1].NUMBER_OF_NODES, 2);
}

TEST_F(Build_Scenario, MeasuresTargetsAndEventsFillTheirRowsAndTheirCounts)
{
    Build("map 1\nset BTOTAL 10\nobjective Halle 300 red\nkeyterrain Riesa\n"
          "force blue\nnai road Zeitz\ntai gap Lützen\n"
          "unit Guns \"FA Bn (M109A6)\" Merseburg\n"
          "fire Guns Lützen tai gap class 5 ammo fascam\n"
          "strike Leipzig 4 turn 3 class 5\n"
          "obstacle Lützen@2e\n"
          "event 1 Borna \"Ambush (Red)\"; icon 2.ico; effect 1; attrition 10; trigger 2; movement 2\n"
          "  message \"Fire from the wood\"\n"
          "force red\nloc Riesa\nunit Late \"TK Regt (T-80)\"; arrives 6 Grimma\n");
    EXPECT_EQ(Row(OBJ[1].OVALUE, OBJ[1].OID), Row(300, RED));
    EXPECT_EQ(Row(P[1].PTYPE, P[2].PTYPE, P[2].PAGE), Row(12, 13, 2));
    EXPECT_EQ(Row(BNAI, BTAI), Row(1, 1));
    EXPECT_EQ(Row(TG[1].TGTYPE, TG[1].TGTOT, TG[1].TGRAPHIC), Row(5, 1002, 2));
    EXPECT_EQ(Row(TG[2].TGTYPE, TG[2].TGTOT, BTOTAL, UNIT[1].FIREMISSION), Row(4, 3, 6, 1));
    EXPECT_EQ(BOBST, 2) << "a minefield fired and an obstacle laid";
    EXPECT_EQ(PP[1].PPSIDE, RED);
    EXPECT_TRUE(Has(PP[1], "PPATRIGGER Any Blue Unit, PPMSG Fire from the wood"));
    EXPECT_EQ(UNIT[600].TYPE, 50);
    EXPECT_EQ(UNIT[600].X, OBJ[2].OX) << "the line of communication stands where it was placed";
    EXPECT_EQ(Row(UNIT[301].OFFMAP, UNIT[301].ATIME, UNIT[301].X), Row(1, 6, -1000));
}

}   // namespace
