#include "core/session.h"
#include "persist/game_file_fixture.h"

#include <algorithm>

using namespace sm;
using namespace sm::test;

namespace {

class Check_File_Test : public Game_File_Test {
protected:
    /// A small sound scenario in the game in play: two units, one with a route of two nodes.
    void Lay_Sound_Game()
    {
        MAPFILE = "Germany1.bmp";
        TERRAIN_FILE = "Germany1.ter";
        MAPSCALE = 6;
        HEXWIDTH = 6;
        NUMROWS = NUMCOLS = 168;
        Set_Start_Defaults();
        for (const int u : {1, 301}) {
            UNIT[u].STATUS = 2;
            UNIT[u].SIDE = u == 1 ? BLUE : RED;
        }
        UNIT[1].NUMBER_OF_NODES = 2;
        for (int row = 1; row <= 2; ++row) MN[row] = {.MNUNIT = 1, .MNUNITNUMBER = row, .MNSIDE = BLUE};
    }

    /// Faults and remarks of a text under a file name, "line: text", remarks with "remark".
    std::vector<std::string> Check(const std::string& content, const char* name = "a.sce")
    {
        Put_File(home / name, content);
        std::vector<std::string> lines;
        for (const File_Fault& f : Check_File((home / name).string()))
            lines.push_back(Cat(To_Text(f.LINE), f.FAULT ? ": " : ": remark: ", f.TEXT));
        return lines;
    }

    /// The sound game with one line of it put in other words; the first that starts so behind a place.
    std::string With(const std::string& behind, const std::string& start, const std::string& other)
    {
        std::string text = Game_Text();
        const auto at = text.find("\n" + start, text.find(behind)) + 1;
        EXPECT_NE(at, 0u) << start;
        return text.replace(at, text.find('\r', at) - at, other);
    }

    static int Line_Number(const std::string& text, std::size_t at)
    {
        return 1 +
               static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }
};

TEST_F(Check_File_Test, AFileOfOursHasNothingWrongAndTheGameInPlayIsNotTouched)
{
    Lay_Sound_Game();
    std::string text = Game_Text();
    Clear_Game();
    UNIT[5].NAME = "in play";
    EXPECT_EQ(Check(text), std::vector<std::string>{});
    text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
    EXPECT_EQ(Check(text), std::vector<std::string>{}) << "nor with the line ends of another system";
    EXPECT_EQ(UNIT[5].NAME, "in play");
    EXPECT_EQ(UNIT[1].STATUS, 0);
}

TEST_F(Check_File_Test, NamesTheLineAndTheFaultOfABadValue)
{
    Lay_Sound_Game();
    struct BAD {
        const char *BEHIND, *START, *OTHER, *WORDS;
    };
    static constexpr BAD LINES[] = {
        {"GTIME", "DDAY:", "DDAY: soon", "DDAY: \"soon\" is not a number"},
        {"GTIME", "DDAY:", "DDAY: ", "DDAY has no number"},
        {"GTIME", "DDAY:", "DDAY: 70000", "DDAY: \"70000\" does not fit into 16 bits"},
        {"GTIME", "BRCP1:", "BRCP1: 1e39", "BRCP1: \"1e39\" does not fit into 32 bits"},
        {"UNIT NUMBER:  301", "MORALE:", "MORALE: 9", "UNIT[301].MORALE is 9, outside 0..4"},
        {"UNIT NUMBER:  301", "SIDE:", "SIDE:  1", "UNIT[301].SIDE is 1, and rows 301..600 are Red's (2)"},
        {"UNIT NUMBER:  301", "HIGHERHQ:", "HIGHERHQ:  302", "UNIT[301].HIGHERHQ is 302, a free row of UNIT"},
        {"MOVEMENT NODES", "MNUNITNUMBER:", "MNUNITNUMBER:  3",
         "MN[2].MNUNITNUMBER is 2, and the nodes of unit 1 are to be numbered 1 to 2"},
        {"MOVEMENT NODES", "MNSIDE:", "MNSIDE:  2", "MN[1].MNSIDE is 2, not the side of its unit 1"},
        {"UNIT NUMBER:  1", "NUMBER_OF_NODES:", "NUMBER_OF_NODES:  3",
         "UNIT[1].NUMBER_OF_NODES is 3, and MN holds 2 nodes of this unit"},
        {"MAPSCALE", "HEXWIDTH:", "HEXWIDTH:  0", "HEXWIDTH \"0\": a cell is at least 1 pixel wide"},
        {"MAPSCALE", "NUMCOLS:", "NUMCOLS:  1000", "NUMCOLS \"1000\": the grid has at most 150000 cells"},
        {"GTIME", "GMONTH:", "GMONTH: Brumaire", "GMONTH \"Brumaire\": the month is Jan to Dec"},
    };
    for (const BAD& bad : LINES) {
        const std::string text = With(bad.BEHIND, bad.START, bad.OTHER);
        const auto found = Check(text);
        const std::string words = bad.WORDS;
        // The numbering is told at the node that is out of step, which is not the line that was changed.
        const bool elsewhere = words.starts_with("MN[2]");
        const int line = Line_Number(text, text.find(Cat("\n", bad.OTHER, "\r"), text.find(bad.BEHIND)) + 1) +
                         (elsewhere ? 5 : 0);
        EXPECT_TRUE(std::find(found.begin(), found.end(), Cat(To_Text(line), ": ", words)) != found.end())
            << line << ": " << words << "\nfound: " << (found.empty() ? "nothing" : found.front());
    }
}

TEST_F(Check_File_Test, CountsRecordsAndMissesKeys)
{
    Lay_Sound_Game();
    const std::string whole = Game_Text();
    const auto without = [&](const std::string& start, const std::string& stop) {
        std::string text = whole;
        const auto from = text.find(start);
        return text.erase(from, text.find(stop, from) - from);
    };
    EXPECT_EQ(Check("PX1: 3\r\n").front(), "1: PX1 stands before the first record of P");
    EXPECT_EQ(Check(without("MAPSCALE", "HEXWIDTH")), std::vector<std::string>{"1: the header has no MAPSCALE"});
    std::string surplus = whole;
    surplus.insert(surplus.find("========CONTROL"), "IMAGE: x\r\nNAME: the 601st\r\n");
    const std::pair<std::string, const char*> texts[] = {
        {without("---------NEW UNIT---------\r\nUNIT NUMBER:  600", "========CONTROL"),
         ": UNIT has 599 records of 600"},
        {surplus, ": more than 600 records of UNIT"},
        {"GTURN:  1\r\n" + whole, ": GTURN stands twice, in line 1 first"}};
    for (const auto& [text, fault] : texts) {
        const auto found = Check(text);
        ASSERT_EQ(found.size(), 1u) << fault;
        EXPECT_TRUE(found[0].ends_with(fault)) << found[0];
    }
}

TEST_F(Check_File_Test, AnUnknownKeyAndALeftReferenceOfAGameUnderWayAreRemarks)
{
    Lay_Sound_Game();
    UNIT[1].LOGUNIT = 17;
    UNIT[1].PARENT_UNIT = 18;
    const std::string text = "COMMENT: by hand\r\n" + Game_Text();
    int faults = 0, remarks = 0;
    Put_File(home / "a.btl", text);
    for (const File_Fault& f : Check_File((home / "a.btl").string())) ++(f.FAULT ? faults : remarks);
    EXPECT_EQ(faults, 1) << "an attached unit without its parent";
    EXPECT_EQ(remarks, 2) << "the comment, and the supplier that was lost";
    faults = 0;
    Put_File(home / "a.sce", text);
    for (const File_Fault& f : Check_File((home / "a.sce").string())) faults += f.FAULT ? 1 : 0;
    EXPECT_EQ(faults, 2) << "nothing has been lost in a scenario";
}

TEST_F(Check_File_Test, ChecksWeaponsAndTerrainByTheirNames)
{
    EXPECT_EQ(
        Check(
            "RANGE: 4\nWPN: Tank Bn\nNATION: U.S.\nIMAGE: b\nRIMAGE: r\nRANGE: far\nMRANGE: 0\nRCP: 24\nSIDE: 0\n"
            "SIZE: 9\nTYPE: 5\nSENSORT: 0\nMOBILITY: 2\nIMAGETYPE: 0\nCOLOUR: red\n",
            "a.WEF"),
        (std::vector<std::string>{"1: RANGE stands before the first row", "2: WPN[1] has no RIMAGETYPE",
                                  "6: WPN[1].RANGE: \"far\" is not a number", "10: WPN[1].SIZE is 9, outside 0..6",
                                  "15: remark: unknown key \"COLOUR\""}));

    // Cells of 21 bytes: value, 15 characters, high ground, contamination.
    const auto cell = [](char value) {
        return std::string{value, '\0'} + std::string(15, ' ') + std::string(4, '\0');
    };
    EXPECT_EQ(Check(cell(0) + cell(7) + cell(10), "a.ter"), std::vector<std::string>{});
    EXPECT_EQ(
        Check(cell(0) + cell(9) + cell(12) + "short", "a.ter"),
        (std::vector<std::string>{"2: record 2: TVALUE 9 is no terrain value",
                                  "3: remark: record 3: TVALUE 12 is an obstacle or a fortification, no ground",
                                  "4: the last record has 5 bytes of 21"}));
    EXPECT_EQ(Check("", "a.ter"), std::vector<std::string>{"0: no cell in the file"});
    EXPECT_EQ(Check("x", "a.txt").size(), 1u);
    EXPECT_EQ(Check_File((home / "none.sce").string()).size(), 1u);
}

TEST_F(Check_File_Test, StopsListingWhenNobodyReadsOn)
{
    std::string text;
    for (int i = 0; i < 1500; ++i) text += "PX1: x\n";
    const auto found = Check_File((Put_File(home / "a.sce", text), (home / "a.sce").string()));
    EXPECT_EQ(found.size(), 1001u);
    EXPECT_TRUE(found.back().TEXT.starts_with("and ")) << found.back().TEXT;
    EXPECT_TRUE(found.back().FAULT);
}

}   // namespace
