#include "persist/game_file_fixture.h"
#include "support/fields.h"
#include "support/numbers.h"

using namespace sm;
using namespace sm::test;

namespace {

class Game_Reader : public Game_File_Test {
protected:
    /// Reads lines as a file of them; 0 or the failure's number.
    int Read(std::initializer_list<std::string_view> lines, std::string_view line_end = "\r\n")
    {
        std::string text;
        for (const std::string_view line : lines) text += Cat(line, line_end);
        return Read_Game_Text(text);
    }
};

TEST_F(Game_Reader, TakesKeysInAnyCaseAndOrderAndSkipsTheOnesItDoesNotKnow)
{
    EXPECT_EQ(Read({"  mapscale : 6", "========UNIT INFO", "NOSUCHKEY: words", "Terrain File: a.ter", "gTurn: 4",
                    "", "image: x", "Name: n", "TOTAL"}),
              0);
    EXPECT_EQ(MAPSCALE, 6.0f);
    EXPECT_EQ(TERRAIN_FILE, "a.ter");
    EXPECT_EQ(GTURN, 4);
    EXPECT_EQ(UNIT[1].NAME, "n");
}

TEST_F(Game_Reader, TakesEveryLineEndAndALastLineWithoutOne)
{
    EXPECT_EQ(Read_Game_Text("GTURN: 4\nBSCALE:  3\r\nGAMEAUTHOR: A\nMAXGTURN: 12"), 0);
    EXPECT_EQ(Row(GTURN, BSCALE, MAXGTURN), Row(4, 3, 12));
    EXPECT_EQ(GAMEAUTHOR, "A");
    EXPECT_EQ(Read_Game_Text("GAMEAUTHOR: B\rGTURN: 5\rIMAGE: x\rSTATUS: 2"), 0);
    EXPECT_EQ(GAMEAUTHOR, "B");
    EXPECT_EQ(Row(GTURN, UNIT[1].STATUS), Row(5, 2));
}

TEST_F(Game_Reader, SplitsALineAtItsFirstColonOnlyAndTrimsTexts)
{
    EXPECT_EQ(Read({"GAMEAUTHOR:   A: B : C  ", "IMAGE: b.ico", "NAME:   1-1 AR, C Co",
                    "UNITTYPE: twenty-one bytes long"}),
              0);
    EXPECT_EQ(GAMEAUTHOR, "A: B : C");
    EXPECT_EQ(UNIT[1].NAME, "1-1 AR, C Co") << "leading blanks are lost, commas stay";
    EXPECT_EQ(UNIT[1].UNITTYPE.Full(), "twenty-one bytes lon") << "cut at 20 bytes";
    EXPECT_EQ(UNIT[1].NAME.Full().size(), 20u);
}

TEST_F(Game_Reader, LetsNoControlCharacterIntoATextThatWillBeWrittenAgain)
{
    EXPECT_EQ(Read({"GAMEAUTHOR: \x01"
                    "A\rB\tC\x7F",
                    "IMAGE", "NAME: nineteen characters\r and more"}),
              0);
    EXPECT_EQ(GAMEAUTHOR, "A B C");
    EXPECT_EQ(UNIT[1].NAME, "nineteen characters");
    EXPECT_TRUE(UNIT[1].IMAGE == "") << "a key without a colon has an empty text";
    EXPECT_EQ(Read({Cat("GAMEAUTHOR: ", std::string(249, 'x'), " y")}), 0);
    EXPECT_EQ(std::string_view(GAMEAUTHOR).size(), 249u)
        << "cut at 250, where a blank would be lost by the next save";
}

TEST_F(Game_Reader, TakesEveryWayOfWritingANumber)
{
    EXPECT_EQ(
        Read({"MAPSCALE: .5", "ULLAT: 1.25E+02", "ULLONG: -3e-1", "DLATY: 1e-60", "DLONGX:-7.", "BSCALE:+12",
              "WINDD: 2.5", "WINDS: 3.5", "VSTATUS: -2.5", "BLUEVP: 3E2", "REDVP: 0032767", "MAXGTURN: 32767.4"}),
        0);
    EXPECT_EQ(MAPSCALE, 0.5f);
    EXPECT_EQ(ULLAT, 125.0f);
    EXPECT_EQ(ULLONG, -0.3f);
    EXPECT_EQ(DLATY, 0.0f) << "too small for a real is 0";
    EXPECT_EQ(DLONGX, -7.0f);
    // Halves go to the even number.
    EXPECT_EQ(Row(BSCALE, WINDD, WINDS, VSTATUS, BLUEVP, REDVP, MAXGTURN), Row(12, 2, 4, -2, 300, 32767, 32767));
}

TEST_F(Game_Reader, RefusesEachKindOfBadLineUnderItsNumber)
{
    const std::pair<int, std::vector<const char*>> KINDS[] = {
        {13,
         {"GTURN:", "GTURN:  ", "GTURN", "GTURN: 4x", "GTURN: 1,5", "GTURN: - 5", "GTURN: +-5", "GTURN: 4 5",
          "MAPSCALE: nan", "MAPSCALE: inf", "MAPSCALE:", "MAPSCALE: 0x10"}},
        {6,
         {"GTURN: 32768", "GTURN: -32769", "GTURN: 32767.5", "GTURN: 1e400", "GTURN: 99999999999",
          "MAPSCALE: 1e39", "MAPSCALE: -1e400"}},
        {9, {"NAME: n", "OVALUE: 1", "PX1: 1", "RRCP: 1", "PPMSG: late", "MNX: 1"}}};
    for (const auto& [number, lines] : KINDS)
        for (const char* line : lines) {
            const Log_Lines log;
            EXPECT_EQ(Read({"BSCALE: 2", line, "MAXGTURN: 7"}), number) << line;
            EXPECT_EQ(log.Count(Cat("Error: ", To_Text(number), ", line 2: ")), 1) << line;
            EXPECT_EQ(log.Count("Game file is loaded"), 0) << line;
        }
}

TEST_F(Game_Reader, KeepsWhatItReadBeforeAFailureAndTellsThePlayerTheNumber)
{
    Put_File(home / "bad.btl", "BSCALE: 2\r\nIMAGE: a\r\nSIDE:  x\r\nMAXGTURN:  7\r\n");
    MAXGTURN = 15;
    GameFileName = (home / "bad.btl").string();
    const Log_Lines log;
    EXPECT_FALSE(Game_File(1));
    EXPECT_EQ(BSCALE, 2);
    EXPECT_EQ(UNIT[1].IMAGE, "a");
    EXPECT_EQ(MAXGTURN, 15);
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 13"), 1);
    EXPECT_EQ(log.All().back(), "End of file process");

    GameFileName = (home / "none.btl").string();
    EXPECT_FALSE(Game_File(1));
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 53"), 1);
    GameFileName = home.Path().string();
    EXPECT_FALSE(Game_File(1)) << "a folder is no file";
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 57"), 1);
}

TEST_F(Game_Reader, CountsRecordsByTheirFirstKeysAlone)
{
    EXPECT_EQ(Read({"IMAGE: a", "UNIT NUMBER: 400", "NAME: one", "IMAGE: b", "OTYPE: 0", "OX: 7", "NAME: two",
                    "OTYPE: 0", "OX: 8", "PTYPE: 0", "PX1: 9", "OX: 10"}),
              0);
    EXPECT_EQ(UNIT[1].NAME, "one");
    EXPECT_EQ(UNIT[2].NAME, "two") << "a table's keys go on where its own count stands";
    EXPECT_EQ(Row(OBJ[1].OX, OBJ[2].OX), Row(7, 10));
    EXPECT_EQ(P[1].PX1, 9);
    EXPECT_TRUE(UNIT[400].NAME == "");
}

TEST_F(Game_Reader, RefusesARecordMoreThanATableHas)
{
    const std::pair<std::string, int> TABLES[] = {{"IMAGE", 600}, {"PTYPE", 400}, {"TXTYPE", 100}, {"MNUNIT", 600},
                                                  {"TGX", 200},   {"BGHEX", 300}, {"NBCHEX", 50},  {"OTYPE", 50},
                                                  {"BRCP", 50},   {"PPTYPE", 20}};
    for (const auto& [first_key, size] : TABLES) {
        std::string text;
        for (int i = 0; i < size; ++i) text += first_key + ": 0\r\n";
        EXPECT_EQ(Read_Game_Text(text), 0) << first_key;
        EXPECT_EQ(Read_Game_Text(text + first_key + ": 0\r\n"), 9) << first_key;
    }
}

TEST_F(Game_Reader, LogsEachTableOnceWhenItsFirstRecordBegins)
{
    const Log_Lines log;
    ASSERT_EQ(Read_Game_Text(Game_Text()), 0);
    EXPECT_EQ(log.All(), (std::vector<std::string>{
                             "Loading game file...", "Loading unit info...", "Loading graphics info...",
                             "Loading text info...", "Loading movement info...", "Loading target info...",
                             "Loading bridge info...", "Loading NBC info...", "Loading objective info...",
                             "Loading AAR info...", "Loading event info...", "Game file is loaded"}));
}

TEST_F(Game_Reader, KeepsTheOldQuirksOfTheFormat)
{
    BAIAB = 5;
    EXPECT_EQ(Read({"BAIAB: 9", "IMAGE: ", "DX: 3", "DY: 4", "DISTANCE_TO_END: 12", "ROE: 1", "FREEHUNT: 1",
                    "HPTVALUE: 8", "TGTLINK: 8", "HQPOWER: 8", "TURNLOSS: 8", "PPTYPE: 0", "PPVISIBLE: 1",
                    "PPVisible: 1", "PPACTIVE: 1"}),
              0);
    EXPECT_EQ(BAIAB, 5) << "written under this key, read under another";
    EXPECT_TRUE(Has(UNIT[1], "DX 3, DY 4")) << "the reader keeps the two apart";
    EXPECT_TRUE(Has(UNIT[1], "DISTANCE_TO_END 12")) << "read when present";
    EXPECT_TRUE(Has(UNIT[1], "ROE 0, FREEHUNT 0, HPTVALUE 0, TGTLINK 0, HQPOWER 0, TURNLOSS 0"));
    EXPECT_EQ(Row(PP[1].PPVISIBLE, PP[1].PPACTIVE), Row(0, 1));
    EXPECT_EQ(Read({"NAIAB: 9"}), 0);
    EXPECT_EQ(BAIAB, 9);
}

TEST_F(Game_Reader, ErasesTheTablesFirstAndLeavesScalarsWeaponsAndPlayers)
{
    Give(UNIT[7], "ROE 1, TURNLOSS 3");
    MN[9].MNUNIT = P[9].PTYPE = TX[9].TXSIDE = TG[9].TGTYPE = BG[9].BGTYPE = 7;
    NBC[9].NBCTYPE = OBJ[9].OTYPE = PP[9].PPTYPE = 7;
    AAR[9].BRCP = 7;
    SITREPLIST[1].USED = SitrepCount = 1;
    PLAYERS[1].STATUS = 4;
    WPN.ROW.resize(3);
    AIRSUPER = 70;
    EXPECT_EQ(Read({"GTURN: 1"}), 0);
    EXPECT_TRUE(Has(UNIT[7], "ROE 0, TURNLOSS 0"));
    EXPECT_EQ(Row(MN[9].MNUNIT, P[9].PTYPE, TX[9].TXSIDE, TG[9].TGTYPE, BG[9].BGTYPE, NBC[9].NBCTYPE, OBJ[9].OTYPE,
                  PP[9].PPTYPE, SITREPLIST[1].USED, SitrepCount),
              std::vector<int>(10, 0));
    EXPECT_EQ(AAR[9].BRCP, 0.0f);
    EXPECT_EQ(PLAYERS[1].STATUS, 4);
    EXPECT_EQ(WPN.Count(), 3);
    EXPECT_EQ(AIRSUPER, 70);
}

TEST_F(Game_Reader, TellsEachMissingIconOnceInTheLogAndOneBoxALoad)
{
    Put_File(home / "icons/BADA3.ICO", "picture");
    Put_File(home / "icons/gas.ico", "picture");
    const Log_Lines log;
    EXPECT_EQ(
        Read({"IMAGE: bada3.ico",  "STATUS: 2",         "IMAGE: rada3.ico", "STATUS: 2",       "IMAGE: rada3.ico",
              "STATUS: 1",         "IMAGE: unused.ico", "STATUS: 0",        "IMAGE: ",         "STATUS: 2",
              "IMAGE: ..\\SM.log", "STATUS: 2",         "PTYPE: 12",        "PIMAGE: NAI.ico", "PTYPE: 3",
              "PIMAGE: ",          "NBCHEX: 5",         "NBCTYPE: 11",      "NBCHEX: 6",       "NBCTYPE: 20",
              "OTYPE: 3",          "OVALUE: 100",       "OTYPE: 0",         "OVALUE: 0",       "OTYPE: 2",
              "OVALUE: 100",       "OTYPE: 1",          "OVALUE: 100",      "PTYPE: 0",        "PIMAGE: TAI.ico"}),
        0);
    const auto missing = [&](const char* name) {
        return log.Count(Cat("Error: 53, missing icon: \\icons\\", name));
    };
    EXPECT_EQ(missing("bada3.ico"), 0) << "names are looked up without regard to case";
    EXPECT_EQ(Row(missing("unused.ico"), missing("gas.ico"), missing("TAI.ico")), Row(0, 0, 0))
        << "free rows, too";
    // Nothing outside the program folder is opened.
    for (const char* name :
         {"rada3.ico", "NAI.ico", "smoke.ico", "Mcorridor.ico", "KeyT.ico", "Obj.ico", "..\\SM.log"})
        EXPECT_EQ(missing(name), 1) << name;
    EXPECT_EQ(log.Count("missing icon"), 8) << "the unit without a name among them";
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 53"), 1);
}

TEST_F(Game_Reader, AnIconThatCameOrWentBetweenTwoLoadsIsSeen)
{
    Put_File(home / "icons/a.ico", "picture");
    const auto missing = [&] {
        const Log_Lines log;
        EXPECT_EQ(Read({"IMAGE: a.ico", "STATUS: 2", "IMAGE: b.ico", "STATUS: 2"}), 0);
        return log.Count("missing icon: \\icons\\a.ico") + 2 * log.Count("missing icon: \\icons\\b.ico");
    };
    EXPECT_EQ(missing(), 2);
    EXPECT_EQ(missing(), 2);
    Put_File(home / "icons/b.ico", "picture");
    EXPECT_EQ(missing(), 0);
    // The folder's time stands still within a tick of the system's clock.
    const auto before = std::filesystem::last_write_time(home / "icons");
    while (std::filesystem::last_write_time(home / "icons") == before) {
        std::filesystem::remove(home / "icons/a.ico");
        Put_File(home / "icons/c.ico", "picture");
        std::filesystem::remove(home / "icons/c.ico");
    }
    EXPECT_EQ(missing(), 1);
}

TEST_F(Game_Reader, AFileThatBreaksOffDoesNotBecomeABattleOfHalfItsUnits)
{
    const std::string whole = Game_Text();
    EXPECT_EQ(Read_Game_Text(whole), 0);
    for (const char* cut : {"UNIT NUMBER:  312", "========TARGETS", "RBOMBERS"})
        EXPECT_EQ(Read_Game_Text(std::string_view(whole).substr(0, whole.find(cut))), 62) << cut;
    EXPECT_EQ(Read({"GTURN: 1", "========UNIT INFORMATION=========", "---------NEW UNIT---------", "IMAGE: x"}), 0)
        << "a short file by hand is a game";
    EXPECT_EQ(Read_Game_Text(""), 62);
    EXPECT_EQ(Read_Game_Text(std::string(100000, '\0')), 62);
    EXPECT_EQ(Read_Game_Text(std::string(3000000, ':')), 62) << "one huge line";
    EXPECT_EQ(Read_Game_Text("GAMEAUTHOR: " + std::string(3000000, 'x')), 0);
    EXPECT_EQ(std::string_view(GAMEAUTHOR).size(), 250u);
}

}   // namespace
