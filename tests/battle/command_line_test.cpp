// stonemarch-battle, run as a person runs it.

#include "support/places.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

#include <regex>

using namespace sm::test;

namespace {

class Command_Line : public testing::Test {
protected:
    static void SetUpTestSuite() { home = new Scratch_Folder; }
    static void TearDownTestSuite() { delete home; }
    COMMAND_RESULT Battle(const std::string& words, const std::string& behind = "")
    {
        const std::string place = home->Path().string();
        return Run_Command("'" STONEMARCH_BATTLE "' " + words + " --home '" + place + "' 2>&1" + behind);
    }
    std::string File(const std::string& name) { return "'" + (folder / name).string() + "'"; }
    static inline Scratch_Folder* home = nullptr;   // filled with the stock content by the first command
    const std::string SCENARIO = "'" STONEMARCH_HOME_DIR "/Scenarios/Saale Crossing.sce'";
    Scratch_Folder folder;
};

}   // namespace

TEST_F(Command_Line, ABattleSavedAfterTwoTurnsPlaysOnAsIfItHadNotBeenSaved)
{
    const auto whole = Battle("play " + SCENARIO + " --turns 3 --quiet --hash --save " + File("whole.btl"));
    ASSERT_EQ(whole.STATUS, 0) << whole.PRINTED;
    const auto first = Battle("play " + SCENARIO + " --turns 2 --quiet --hash --save " + File("two.btl"));
    const auto rest = Battle("play " + File("two.btl") + " --turns 1 --quiet --hash --save " + File("three.btl"));
    const auto hash_of = [](const std::string& printed, const char* turn) {
        std::smatch found;
        std::regex_search(printed, found, std::regex(std::string("hash ") + turn + ": ([0-9a-f]{16})"));
        return found.size() == 2 ? found[1].str() : std::string("none");
    };
    EXPECT_EQ(hash_of(whole.PRINTED, "2"), hash_of(first.PRINTED, "2"));
    EXPECT_EQ(hash_of(whole.PRINTED, "3"), hash_of(rest.PRINTED, "3"));
    EXPECT_EQ(hash_of(whole.PRINTED, "3").size(), 16u);
    EXPECT_EQ(Battle("check " + File("three.btl")).STATUS, 0);
    // A scenario named by its autosave numbers only its own tapes: the files differ in nothing else.
    const auto diff = Battle("diff " + File("whole.btl") + " " + File("three.btl"));
    EXPECT_TRUE(diff.STATUS == 0 || Count_Of(diff.PRINTED, "\n") == Count_Of(diff.PRINTED, "AARN "))
        << diff.PRINTED;
}

TEST_F(Command_Line, PhasesAndMessagesReadLikeAStaffLog)
{
    const auto played = Battle("play " + SCENARIO + " --turns 2");
    EXPECT_EQ(Count_Of(played.PRINTED, "-- Ground Combat Phase"), 2);
    EXPECT_EQ(Count_Of(played.PRINTED, "== Turn 2 of 15 ends, 0900 hrs"), 1);
    EXPECT_GT(Count_Of(played.PRINTED, "] Location: "), 20);
    EXPECT_TRUE(std::filesystem::exists(*home / "SM.log"));
    EXPECT_TRUE(std::filesystem::exists(*home / "Saved Games/autosave.btl"));
}

TEST_F(Command_Line, WrongUseIsToldInOneLine)
{
    // clang-format off
    const std::pair<const char*, const char*> wrong[] = {
        {"", "what shall be done?"},          {"conquer", "unknown command conquer"},
        {"play", "play takes one FILE"},      {"play nothing.sce", "nothing.sce"},
        {"play x --turns many", "--turns"},   {"play x --tank 3", "unknown option --tank"},
        {"play x --computer all", "none, blue, red or both"},
        {"odds x --keep 101", "1..100"},
        {"play x --turns", "--turns needs a value"},
        {"play x --workers 2", "--workers is no option of play"},
        {"soak --turns 2", "--turns is no option of soak"},
        {"odds x --keep 3", "--keep needs --save OUT"},
        {"odds x --save y", "--save needs --keep N"},
        {"play x --report y/", "not of a folder"},
    };
    // clang-format on
    for (const auto& [words, line] : wrong) {
        const auto result = Battle(words);
        EXPECT_EQ(result.STATUS, 2) << words;
        EXPECT_NE(result.PRINTED.find(line), std::string::npos) << words << ": " << result.PRINTED;
        EXPECT_EQ(Count_Of(result.PRINTED, "\n"), 1) << result.PRINTED;
    }
    EXPECT_EQ(Battle("--help").STATUS, 0);
    Put_File(folder / "bad.sce", "GTURN: many\r\n");
    EXPECT_EQ(Battle("play " + File("bad.sce")).STATUS, 2);
    const auto check = Battle("check " + File("bad.sce"));
    EXPECT_EQ(check.STATUS, 1);
    EXPECT_NE(check.PRINTED.find("bad.sce:1: "), std::string::npos);
}

TEST_F(Command_Line, AnOutputThatCannotBeWrittenIsToldBeforeTheBattle)
{
    std::filesystem::create_directory(folder / "taken.html");
    for (const std::string& words :
         {"play " + SCENARIO + " --save " + File("none/game.btl"),
          "play " + SCENARIO + " --report " + File("taken"), "odds " + SCENARIO + " --out " + File("none/odds"),
          "odds " + SCENARIO + " --keep 1 --save " + File("taken.html")}) {
        const auto result = Battle(words);
        EXPECT_EQ(result.STATUS, 2) << words;
        EXPECT_EQ(Count_Of(result.PRINTED, "\n"), 1) << result.PRINTED;
        EXPECT_TRUE(result.PRINTED.find("no folder") != result.PRINTED.npos ||
                    result.PRINTED.find("is a folder") != result.PRINTED.npos)
            << result.PRINTED;
    }
}

TEST_F(Command_Line, TheOddsAreTheSameForAnyNumberOfWorkersAndEveryOutcomeCanBeReopened)
{
    const auto one = Battle("odds " + SCENARIO + " --turns 3 --computer both --workers 1 --out " + File("one"));
    const auto three =
        Battle("odds " + SCENARIO + " --turns 3 --computer both --workers 3 --out " + File("three"));
    ASSERT_EQ(one.STATUS, 0) << one.PRINTED;
    EXPECT_EQ(one.PRINTED, three.PRINTED);
    const std::string csv = File_Content(folder / "one.csv");
    EXPECT_EQ(csv, File_Content(folder / "three.csv"));
    EXPECT_EQ(File_Content(folder / "one.html"), File_Content(folder / "three.html"));
    EXPECT_EQ(Count_Of(csv, "\r\n"), 301);
    EXPECT_NE(one.PRINTED.find("  moves ground units                 100       100\n"), std::string::npos)
        << one.PRINTED;

    ASSERT_EQ(
        Battle("odds " + SCENARIO + " --turns 3 --computer both --keep 42 --save " + File("kept.btl")).STATUS, 0);
    const std::string kept = File_Content(folder / "kept.btl");
    std::smatch row, points;
    ASSERT_TRUE(std::regex_search(csv, row, std::regex("\\r\\n42,3,[1-7],([0-9]+),")));
    ASSERT_TRUE(std::regex_search(kept, points, std::regex("\\r\\nBLUEVP:  ([0-9]+)\\r\\n")));
    EXPECT_EQ(row[1].str(), points[1].str());
}

TEST_F(Command_Line, TheComputerFightsItselfSoundlyOverVariedPositions)
{
    const auto soak = Battle("soak --battles 20");
    EXPECT_EQ(soak.STATUS, 0) << soak.PRINTED;
    EXPECT_NE(soak.PRINTED.find("20 battles, "), std::string::npos);
    // Whatever battles a worker has fought before, each is the same.
    const auto one = Battle("soak --first 3 --battles 4 --workers 1"),
               four = Battle("soak --first 3 --battles 4 --workers 4");
    EXPECT_EQ(one.PRINTED, four.PRINTED);
}

TEST_F(Command_Line, AReaderWhoStopsEarlyLosesNoReportAndItMayGoIntoAProgramFolderThatIsMadeForIt)
{
    Battle("play " + SCENARIO + " --turns 3 --report " + File("cut"), " | head -n 1");
    EXPECT_NE(File_Content(folder / "cut.txt").find("After turn 3 of 15"), std::string::npos);
    const auto played = Run_Command("'" STONEMARCH_BATTLE "' play " + SCENARIO + " --turns 1 --quiet --report " +
                                    File("new/aar/report") + " --home " + File("new") + " 2>&1");
    EXPECT_EQ(played.STATUS, 0) << played.PRINTED;
    EXPECT_TRUE(std::filesystem::exists(folder / "new/aar/report.html"));
}

TEST_F(Command_Line, AReportIsLeftAsTextAndAsOnePage)
{
    ASSERT_EQ(Battle("play " + SCENARIO + " --computer both --quiet --report " + File("report")).STATUS, 0);
    const std::string text = File_Content(folder / "report.txt"), html = File_Content(folder / "report.html");
    EXPECT_NE(text.find("After turn 15 of 15"), std::string::npos);
    EXPECT_EQ(Count_Of(html, "<g class=\"forces\""), 16);
    EXPECT_EQ(Count_Of(html, "data:image/bmp;base64,"), 1);
}
