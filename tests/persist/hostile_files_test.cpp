#include "persist/fault_list.h"
#include "persist/game_file_fixture.h"
#include "persist/keyed_text.h"
#include "persist/weapons_file.h"
#include "support/two_ways.h"
#include "terrain/map.h"

using namespace sm;
using namespace sm::test;

namespace {

/// The same spoilt files on every machine.
struct Spoiler {
    std::uint32_t STATE;
    std::size_t Below(std::size_t n)
    {
        STATE = STATE * 1664525u + 1013904223u;
        return n == 0 ? 0 : (STATE >> 8) % n;
    }

    /// One to three things wrong with a text, of the kinds that hands, disks and other programs make.
    std::string Spoil(std::string text)
    {
        for (std::size_t n = 1 + Below(3); n > 0; --n) Spoil_Once(text);
        return text;
    }

private:
    std::size_t Line_Start(const std::string& text)
    {
        const auto before = text.rfind('\n', Below(text.size()));
        return before == text.npos ? 0 : before + 1;
    }

    void Spoil_Once(std::string& text)
    {
        static constexpr std::string_view PIECES[] = {"40000", "-",   "-0", ".5",   "1e9",   "9999999",
                                                      ":",     " ",   "\r", "\n",   "\t",    "=",
                                                      "7 7",   "0x1", "",   "\r\n", "IMAGE", "NAME: x"};
        const std::size_t at = Line_Start(text), size = text.size();
        const std::size_t colon = text.find(':', at), stop = text.find('\n', at);
        const auto kind = Below(9);
        if (kind == 0) text[Below(size)] = static_cast<char>(Below(256));
        if (kind == 1) text.erase(Below(size), Below(200));
        if (kind == 2) text.resize(Below(size));
        if (kind == 3) text.insert(at, text, Line_Start(text), Below(300));   // from elsewhere, lines mostly whole
        if (kind == 4) text.insert(Below(size), PIECES[Below(std::size(PIECES))]);
        if (kind == 5 && colon < stop && stop != text.npos)   // another value
            text.replace(colon + 1, stop - colon - 1, PIECES[Below(std::size(PIECES))]);
        if (kind == 6) text.erase(at, stop == text.npos ? text.npos : stop + 1 - at);   // a line gone
        if (kind == 7 && stop != text.npos && stop > 0 && text[stop - 1] == '\r')   // another system's line end
            text.erase(stop - 1, 1);
        if (kind == 8) text.insert(at, std::string(Below(3000), 'A'));
        if (text.empty()) text = "x";
    }
};

using Hostile_Files = Game_File_Test;

/// A file of a few records of each table, used ones among them.
std::string Small_Game()
{
    for (int row = 1; row <= 3; ++row) {
        UNIT[row].NAME = Cat("unit ", To_Text(row));
        UNIT[row].STATUS = row - 1;
        UNIT[row].RCP = static_cast<float>(row) / 3.0f;
        UNIT[row].DY = row * 7;
        MN[row] = {.MNUNIT = row, .MNX = -row};
        PP[row].PPMSG = "Bridge: out";
        PP[row].PPVISIBLE = row;
        NBC[row].NBCTYPE = row + 18;
        P[row].PIMAGE = "NAI.ico";
        P[row].PTYPE = 12;
        OBJ[row].OTYPE = row;
    }
    std::string text;
    const std::string whole = Game_Text();
    int part = 0, records = 0;
    std::string_view rest = whole;
    while (!rest.empty()) {
        const std::string_view from = rest;
        const std::string_view line = Next_Line(rest);
        if (part + 1 < FILE_PARTS && line == File_Parts()[part + 1].SECTION) ++part, records = 0;
        const FILE_PART& here = File_Parts()[part];
        const std::string opens = here.RECORD_LINE != nullptr ? here.RECORD_LINE : Written_Lines(part)[0].START;
        if (here.Is_Table() && line.starts_with(opens)) ++records;
        if (records <= 4) text += from.substr(0, from.size() - rest.size());
    }
    return text;
}

TEST_F(Hostile_Files, ASpoiltGameReadsTheSameByTheQuickWayAndByThePlainOne)
{
    const std::string small = Small_Game();
    ASSERT_EQ(Read_Afresh(small).FAILURE, 0);
    Spoiler spoiler{2004};
    int failed = 0;
    for (int i = 0; i < 2000; ++i) {
        const std::string spoilt = spoiler.Spoil(small);
        const READING quick = Read_Afresh(spoilt), plain = Read_Afresh(Indented(spoilt));
        ASSERT_EQ(quick.FAULT, plain.FAULT) << "mutation " << i << "\n" << spoilt;
        ASSERT_TRUE(quick == plain) << "mutation " << i << "\n" << spoilt;
        failed += quick.FAILURE != 0 ? 1 : 0;
    }
    EXPECT_GT(failed, 500) << "most of them should have been spoilt enough to be refused";
    EXPECT_LT(failed, 1900) << "and some not";
}

TEST_F(Hostile_Files, WhateverWasReadCanBeWrittenAndReadAgain)
{
    const std::string small = Small_Game();
    Spoiler spoiler{1};
    for (int i = 0; i < 200; ++i) {
        Read_Afresh(spoiler.Spoil(small));
        const std::string written = Game_Text();
        ASSERT_EQ(Read_Game_Text(written), 0) << i;
        ASSERT_EQ(Game_Text(), written) << i;
    }
}

TEST_F(Hostile_Files, EveryReaderAndEveryCheckComesToAnEnd)
{
    const std::string game = Small_Game();
    std::string weapons;
    for (int i = 0; i < 5; ++i)
        weapons +=
            Cat("WPN: row\r\nNATION: U.S.\r\nIMAGE: b.ico\r\nRANGE: ", To_Text(i), "\r\nRCP: 1.5\r\nTYPE: 5\r\n");
    std::string terrain;
    for (int i = 0; i < 40; ++i) terrain += std::string(1, static_cast<char>(i % 8)) + std::string(20, '\0');
    const std::string bitmap = std::string("BM") + std::string(12, '\0') +
                               std::string("\x28\0\0\0\x10\0\0\0\x08\0\0\0", 12) + std::string(30, '\0');
    const std::string jpeg = "\xFF\xD8\xFF\xE0" + std::string("\0\x10", 2) + std::string(14, 'J') +
                             std::string("\xFF\xC0\0\x11\x08\0\x10\0\x20\x03", 10) + std::string(20, '\0');
    Spoiler spoiler{77};
    for (int i = 0; i < 500; ++i) {
        Fault_List game_faults, weapon_faults, terrain_faults;
        Check_Game(spoiler.Spoil(game), i % 2 == 0, game_faults);
        const std::string spoilt = spoiler.Spoil(weapons);
        Read_Weapons_Text(spoilt);
        EXPECT_LE(WPN.Count(), MAX_WPN);
        Check_Weapons(spoilt, weapon_faults);
        const std::string ground = spoiler.Spoil(terrain);
        Check_Terrain(ground, terrain_faults);
        HEXCOUNT = 40;
        std::string fault;
        const bool taken = Take_Terrain(ground, fault);
        EXPECT_EQ(taken, fault.empty());
        int width = 1, height = 1;
        Picture_Header(spoiler.Spoil(bitmap), width, height);
        Picture_Header(spoiler.Spoil(jpeg), width, height);
        EXPECT_TRUE(width > 0 && height > 0);
    }
    HEXCOUNT = 0;
}

}   // namespace
