#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "support/scratch.h"
#include <gtest/gtest.h>

using namespace sm;
using namespace sm::test;
namespace fs = std::filesystem;

namespace {

class ProgramFolder : public ::testing::Test {
protected:
    ProgramFolder() : before_(Program_Folder()) { Set_Program_Folder(home_.Path()); }
    ~ProgramFolder() override { Set_Program_Folder(before_); }

    Scratch_Folder home_;
    fs::path before_;
};

}   // namespace

TEST_F(ProgramFolder, AnySpellingAndEitherSlashFindTheFile)
{
    Put_File(home_ / "Maps/Germany1.bmp", "map");
    for (const char* name : {"\\Maps\\Germany1.bmp", "maps/GERMANY1.BMP", "/MAPS\\germany1.bmp",
                             "\\Maps\\\\.\\Germany1.bmp", "  \\Maps\\Germany1.bmp   "})
        EXPECT_EQ(Home_Path(name), home_ / "Maps/Germany1.bmp") << name;
}

TEST_F(ProgramFolder, OfSeveralSpellingsTheExactOneWinsAndElseTheLowestInByteOrder)
{
    for (const char* name : {"icons/tank.ico", "icons/Tank.ico", "icons/TANK.ico"}) Put_File(home_ / name, name);
    EXPECT_EQ(Home_Path("icons\\tank.ico"), home_ / "icons/tank.ico");
    EXPECT_EQ(Home_Path("icons\\tAnK.ico"), home_ / "icons/TANK.ico");   // 'A' comes before 'a'
    // A plain file cannot be the folder that the name means.
    Put_File(home_ / "MAPS", "not a folder");
    Put_File(home_ / "Maps/x.bmp", "map");
    EXPECT_EQ(Home_Path("MAPS\\x.bmp"), home_ / "Maps/x.bmp");
}

TEST_F(ProgramFolder, ANameToBeWrittenKeepsItsSpellingFromTheFirstNewPartOn)
{
    fs::create_directory(home_ / "Saved Games");
    EXPECT_EQ(Home_Path("\\saved games\\Game.MPL"), home_ / "Saved Games/Game.MPL");
    EXPECT_EQ(Home_Path("New Folder\\A\\b.Btl"), home_ / "New Folder/A/b.Btl");
}

TEST_F(ProgramFolder, ANameCannotLeaveTheFolder)
{
    Put_File(home_ / "home/SMW.wef", "weapons");
    Put_File(home_ / "secret", "secret");
    Set_Program_Folder(home_ / "home");
    for (const char* name : {"..\\secret", "Maps/../../secret", "\\..\\secret", "..", "a/..", "", "  ", "\\"})
        EXPECT_EQ(Home_Path(name), fs::path()) << name;
    EXPECT_EQ(Home_Path(std::string("SMW.wef\0.ter", 12)), fs::path());
    EXPECT_EQ(Home_Path("/etc/passwd"), home_ / "home/etc/passwd");
    EXPECT_TRUE(Read_File_Whole(Home_Path("..\\secret"), 100).MISSING);
    EXPECT_NE(Write_File_Whole(Home_Path("..\\secret"), "changed"), "");
    EXPECT_EQ(File_Content(home_ / "secret"), "secret");
}

TEST_F(ProgramFolder, LettersBeyondASCIIAreOfTheCodePageInNamesAndOfUtf8OnTheDisk)
{
    Put_File(home_ / "Maps/Zürich Süd.bmp", "map");
    EXPECT_EQ(Home_Path("\\Maps\\Z\xFCrich S\xFC"
                        "d.bmp"),
              home_ / "Maps/Zürich Süd.bmp");
    EXPECT_EQ(Home_Path("\\Maps\\Z\xDCRICH S\xDC"
                        "D.BMP"),
              home_ / "Maps/Zürich Süd.bmp");
    EXPECT_EQ(Home_Path("\\Maps\\\xD7.bmp"), home_ / "Maps/×.bmp");   // not the upper case of the division sign
}

TEST_F(ProgramFolder, TheStockContentComesOnceAndNeverOverAPersonsFile)
{
    Scratch_Folder stock;
    Put_File(stock / "SMW.wef", "stock weapons");
    Put_File(stock / "Maps/Germany1.bmp", "stock map");
    Put_File(stock / "Maps/sheets/A1.bmp", "sheet");
    Put_File(home_ / "new/maps/GERMANY1.BMP", "my map");
    Put_File(home_ / "new/.stonemarch-4194999-1.part", "left by a dead writer");

    ASSERT_EQ(Make_Program_Folder(home_ / "new", stock.Path()), "");
    const std::vector<std::string> made = {"OPORDs", "SMW.wef", "Saved Games", "Scenarios", "Terrain",
                                           "aar",    "events",  "icons",       "maps"};
    EXPECT_EQ(Names_In(home_ / "new"), made);
    EXPECT_EQ(Names_In(home_ / "new/maps"), (std::vector<std::string>{"GERMANY1.BMP", "sheets"}));
    EXPECT_EQ(File_Content(home_ / "new/maps/GERMANY1.BMP"), "my map");
    EXPECT_EQ(File_Content(home_ / "new/maps/sheets/A1.bmp"), "sheet");

    // Again, after a change: nothing is put back over it.
    Put_File(home_ / "new/SMW.wef", "my weapons");
    ASSERT_EQ(Make_Program_Folder(home_ / "new", stock.Path()), "");
    EXPECT_EQ(File_Content(home_ / "new/SMW.wef"), "my weapons");
}

TEST_F(ProgramFolder, WhatCannotBeMadeOrReadIsTold)
{
    Put_File(home_ / "file", "x");
    EXPECT_NE(Make_Program_Folder(home_ / "file", "").find("Cannot make the folder"), std::string::npos);
    EXPECT_NE(Make_Program_Folder(home_ / "new", home_ / "none").find("Cannot read the folder"),
              std::string::npos);
    EXPECT_EQ(Make_Program_Folder(home_ / "new", home_ / "new"), "");
}
