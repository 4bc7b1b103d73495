#include "persist/game_file_fixture.h"
#include "persist/weapons_file.h"
#include "support/fields.h"

using namespace sm;
using namespace sm::test;

namespace {

using Weapons_File = Game_File_Test;

constexpr const char* TWO_ROWS =
    "WPN: ADA Btry (Avenger)\r\nNATION: U.S.\r\nIMAGE: bada3.ico\r\nRIMAGE: rada3.ico\r\n"
    "RANGE: 4\r\nMRANGE: 0\r\nRCP: .5\r\nsize: 2\r\nTYPE: 1\r\nMOBILITY: 1\r\nREMARK: short\r\n"
    "\r\nWPN: Tank Bn\r\nRCP: 24\r\n";

TEST_F(Weapons_File, EachWpnLineBeginsARowAndNothingElseOfTheGameIsTouched)
{
    Give(UNIT[1], "NAME kept, TYPE 5");
    const Log_Lines log;
    ASSERT_EQ(Read_Weapons_Text(TWO_ROWS), 0);
    ASSERT_EQ(WPN.Count(), 2);
    EXPECT_EQ(Cat(WPN[1].WPN, ",", WPN[1].NATION, ",", WPN[1].IMAGE, ",", WPN[1].RIMAGE),
              "ADA Btry (Avenger),U.S.,bada3.ico,rada3.ico");
    EXPECT_EQ(WPN[1].RCP, 0.5f);
    EXPECT_EQ(WPN[1].SIZE, 2);
    EXPECT_EQ(WPN[2].WPN, "Tank Bn");
    EXPECT_EQ(WPN[2].RCP, 24.0f);
    EXPECT_EQ(WPN[2].TYPE, 0);
    EXPECT_TRUE(Has(UNIT[1], "NAME kept, TYPE 5"));
    EXPECT_EQ(log.All(), (std::vector<std::string>{"Loading weapons file...", "Weapons file is loaded"}));
    EXPECT_EQ(Read_Weapons_Text("WPN: A\rRANGE: 4\rWPN: B"), 0) << "CR alone ends a line, too";
    EXPECT_EQ(WPN.Count(), 2);
}

TEST_F(Weapons_File, TheTableIsClearedBeforeEachLoadAndABadLineEndsIt)
{
    ASSERT_EQ(Read_Weapons_Text(TWO_ROWS), 0);
    EXPECT_EQ(Read_Weapons_Text("WPN: A\nRANGE: far\nWPN: B\n"), 13);
    EXPECT_EQ(WPN.Count(), 1);
    EXPECT_EQ(Read_Weapons_Text("WPN: A\nRANGE: 40000\n"), 6);
    EXPECT_EQ(Read_Weapons_Text("RANGE: 4\nWPN: A\n"), 9);
    EXPECT_EQ(Read_Weapons_Text("nothing of ours"), 62);
    EXPECT_EQ(WPN.Count(), 0);

    std::string many;
    for (int i = 0; i < 32768; ++i) many += "WPN: x\n";
    EXPECT_EQ(Read_Weapons_Text(many), 9) << "a unit's WPN field is 16 bits wide";
    EXPECT_EQ(WPN.Count(), 32767);
}

TEST_F(Weapons_File, AMissingStockFileIsLoggedAndAMissingChosenOneIsTold)
{
    const Log_Lines log;
    WPN.ROW.resize(2);
    EXPECT_FALSE(Game_File(8));
    EXPECT_EQ(WPN.Count(), 0);
    EXPECT_EQ(log.Count("Error: 53"), 1);
    EXPECT_EQ(screen.Count("box", ""), 0);
    EXPECT_FALSE(Read_Weapons_File("\\other.wef"));
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 53"), 1);
    Put_File(home / "SMW.wef", "WPN: A\nRANGE: far\n");
    EXPECT_FALSE(Game_File(8));
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 13"), 1) << "a broken stock file is told, too";
    std::filesystem::remove(home / "SMW.wef");

    Put_File(home / "smw.WEF", TWO_ROWS);
    EXPECT_TRUE(Game_File(8));
    EXPECT_EQ(WPN.Count(), 2);
    EXPECT_EQ(log.Count("End of file process"), 4);
}

}   // namespace
