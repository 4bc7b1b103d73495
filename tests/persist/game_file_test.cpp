#include "core/session.h"
#include "core/state_hash.h"
#include "persist/game_file_fixture.h"

#include <cstring>
#include <sstream>

using namespace sm;
using namespace sm::test;

namespace {

// clang-format off
/// The keys of the file as its readers elsewhere know them, in order.
constexpr const char* HEADER_KEYS =
    "GAMEAUTHOR,GAMEVERSION,GAMEFILE,BSCALE,SCENARION,SCENARIOT,MAPFILE,MAPSCALE,HEXWIDTH,NUMROWS,NUMCOLS,"
    "TERRAIN FILE,WINDD,WINDS,VSTATUS,BLUEVP,REDVP,RBMAX,BBMAX,RBNOW,BBNOW,AIRSUPER,INITIATIVE,MAXGTURN,GTURN,"
    "GTIME,GDAY,GMONTH,DDAY,BMNT,EENT,TIME_OF_DAY,NBCSTATUS,ULLAT,ULLONG,DLATY,DLONGX,BFIREF,RFIREF,BRCP1,BRCP2,"
    "BMANL,BARTYL,BAIRL,BADAL,BNBCL,RRCP1,RRCP2,RMANL,RARTYL,RAIRL,RADAL,RNBCL,BEPW,REPW,LOGPLAYR,LOGPLAYB,"
    "INTELPLAY,TERRAINE,BNAI,RNAI,BNAIMAX,RNAIMAX,BFOBJ,RFOBJ,BTAI,RTAI,BTAIMAX,RTAIMAX,BOBST,BOBSTMAX,BFORTS,"
    "BFORTSMAX,ROBST,ROBSTMAX,RFORTS,RFORTSMAX,RCHMAX,BCHMAX,RCHNOW,BCHNOW,RMFILE,BMFILE,RSEED,BLOCSIDE,"
    "RLOCSIDE,PBMT,MRLOSS,MBLOSS,BCFZ,RCFZ,BCFZMAX,RCFZMAX,BCFFZ,RCFFZ,BCFFZMAX,RCFFZMAX,BSEAD,RSEAD,BSEADMAX,"
    "RSEADMAX,AARN,NAIAR,BAIAB";
constexpr const char* UNIT_KEYS =
    "UNIT NUMBER,IMAGE,IMAGETYPE,NAME,NATION,ACTIVITY,X,Y,X1,Y1,DX,DY,ROW,COL,HEXNUM,FACING,RCP,RCP2,SIDE,SIZE,"
    "SPEED,STATUS,STRENGTH,TYPE,UNITTYPE,MOVEPOINTS,MOVEPOINTS2,MOVEX,MOVEY,DISTANCE_IN_HEXES,MOVECOST_TO_END,"
    "TIME_TO_END,NUMBER_OF_MOVES,NUMBER_OF_NODES,DROW1,DCOL1,MISSION,MORALE,SPOTTED,MXRANGE,MINRANGE,TIMEREGR,"
    "BRIDGING,MOPP,MOBILITY,FIREMISSION,FIREMISSIONN,FIREMISSIONT,VISIBLE,MOVESTATUS,FOOTPRINT,UDENSITY,TACOPN,"
    "PARENT_UNIT,HIGHERHQ,LOGSTATO,LOGSTATN,LOGUNIT,RSF,LSF,ADATYPE,CHEMWPN,TERTYPE,TARGET,SUPPRESSED,C2,C2D,"
    "RCP3,LSF2,RSF2,LOGD,FATIGUE,SUPPLYT,CONVOYD,TIMERM,LX,LY,RX,RY,WPN,HPTL1,HPTL2,FSP,CARRIER,LOAD,MAXLOAD,"
    "WGHT,PASSENGER,PZ,LZ,OFFMAP,UBTYPE,UCONTROL,SENSORT,SENSORS,SENSORA,C2T,SMOKE,OBSCURED,EWSTATUS,ATIME,POPS,"
    "OBJ,HVTTYPE,OX1,OY1,OX2,OY2,ARX,ARY,TACFORM,AIACTION,BREACH,CFZ,BCOP,RCOP,NAI,TAI,SEADP,WSRO,RETREATP,"
    "RETREATS";
// clang-format on

struct SECTION_ROW {
    const char* LINE;
    int RECORDS;
    const char* KEYS;
};
constexpr SECTION_ROW SECTIONS[] = {
    {"========UNIT INFORMATION=========", 600, UNIT_KEYS},
    {"========CONTROL MEASURES=========", 400,
     "PTYPE,PSIDE,PLINE,PX1,PY1,PX2,PY2,PCOLOR,PTEXT,PIMAGE,PAGE,LINKEDGRAPHIC,LINKEDUNIT"},
    {"========TEXT BOXES=========", 100, "TXTYPE,TXSIDE,TXX1,TXY1,TXTEXT,TXWIDTH"},
    {"========MOVEMENT NODES=========", 600, "MNUNIT,MNUNITNUMBER,MNSIDE,MNX,MNY"},
    {"========TARGETS=========", 200,
     "TGX,TGY,FUNIT,TGHEX,TGHPT,TGSIDE,TGTYPE,TGDEPTH,TGTOT,TGPTIME,TGNSORTIES,TGRAPHIC"},
    {"========BRIDGES=========", 300, "BGHEX,BGX,BGY,BGSIDE,BGVISIBLE,BGORDER,BGSTIME,BGTYPE"},
    {"========NBC CONTAMINATION=========", 50,
     "NBCHEX,NBCX,NBCY,NBCSIDE,NBCVISIBLE,NBCORDER,NBCSTIME,NBCSIZE,NBCTYPE"},
    {"======OBJECTIVES==================", 50, "OTYPE,OX,OY,OSIDE,OID,OVALUE"},
    {"========RCP VALUES=========", 50, "BRCP,RRCP,TTIME"},
    {"========EVENTS=========", 20,
     "PPTYPE,PPATYPE,PPIMAGE,PPX,PPY,PPEFFECT,PPSIDE,PPPROBE,PPPFILE,PPPROLE,PPTRIGGER,PPATRIGGER,PPDURATION,"
     "PPMSG,PPTOT,"
     "PPACTIVE,PPVISIBLE,PPOBSTACLE"},
    {"========TACAIR=========", 1, "BTOTAL,OTOTAL,ABCAS,AOCAS,BTOTAL2,OTOTAL2,ABCAS2,AOCAS2,BBOMBERS,RBOMBERS"},
};

/// Key of every line of a text, section lines whole.
std::vector<std::string> Keys_Of(const std::string& text)
{
    std::vector<std::string> keys;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        line = line.substr(0, line.size() - 1);
        keys.push_back(line.substr(0, line.find(':')));
    }
    return keys;
}

void Append_Split(std::vector<std::string>& keys, const char* list)
{
    std::istringstream names(list);
    for (std::string name; std::getline(names, name, ',');) keys.push_back(name);
}

/// The line of a text that begins with this, without its line end.
std::string Line_With(const std::string& text, const std::string& start)
{
    const auto at = text.find("\n" + start);
    if (at == text.npos) return "none";
    return text.substr(at + 1, text.find('\r', at) - at - 1);
}

TEST_F(Game_File_Test, EveryRecordIsWrittenInTheOrderThatOtherReadersOfTheFormatExpect)
{
    std::vector<std::string> expected;
    Append_Split(expected, HEADER_KEYS);
    for (const SECTION_ROW& section : SECTIONS) {
        expected.push_back(section.LINE);
        for (int i = 0; i < section.RECORDS; ++i) {
            if (section.KEYS == UNIT_KEYS) expected.push_back("---------NEW UNIT---------");
            Append_Split(expected, section.KEYS);
        }
    }
    EXPECT_EQ(Keys_Of(Game_Text()), expected);
}

TEST_F(Game_File_Test, ANumberHasABlankForItsMissingSignAndATextItsFullWidth)
{
    BSCALE = 3;
    GTURN = -1;
    GAMEAUTHOR = "";
    MAPFILE = "Germany1.bmp";
    MAPSCALE = 0.1f;
    NUMROWS = 168;
    ULLONG = -10.98058f;
    DLATY = -0.0f;
    DLONGX = 1e-7f;
    UNIT[1].NAME = "1-1 AR";
    const std::string text = "\n" + Game_Text();
    for (const char* line : {"BSCALE:  3", "GTURN: -1", "GAMEAUTHOR: ", "MAPFILE: Germany1.bmp", "MAPSCALE:  0.1",
                             "NUMROWS:  168", "ULLONG: -10.98058", "DLATY: -0" /* must read back as minus 0 */,
                             "DLONGX:  0.0000001", "UNIT NUMBER:  1"})
        EXPECT_EQ(Line_With(text, std::string(line, std::strchr(line, ':'))), line);
    EXPECT_EQ(Line_With(text, "NAME"), "NAME: 1-1 AR" + std::string(14, ' ')) << "20 bytes";
}

TEST_F(Game_File_Test, AGameReadBackDiffersOnlyWhereTheFileIsToldToForget)
{
    Fill_Everything();
    const Game before = GAME;
    const std::string text = Game_Text();
    Clear_Game();
    BAIAB = 77;
    ASSERT_EQ(Read_Game_Text(text), 0);

    Game expected = before;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        expected.UNIT[u].DX = before.UNIT[u].DY;
        expected.UNIT[u].DISTANCE_TO_END = 0;   // never written
    }
    for (int e = 1; e <= MAX_PP; ++e) expected.PP[e].PPVISIBLE = 0;
    expected.BAIAB = 77;   // a scalar that the reader does not find keeps its value
    EXPECT_EQ(Differences(GAME, expected), std::vector<std::string>{});

    // Written again, the file is the same but for what was forgotten.
    GAME.BAIAB = before.BAIAB;
    for (int e = 1; e <= MAX_PP; ++e) PP[e].PPVISIBLE = before.PP[e].PPVISIBLE;
    EXPECT_EQ(Game_Text(), text);
}

TEST_F(Game_File_Test, RealsComeBackBitForBit)
{
    const float hard[] = {1.0f / 3.0f, 16777216.0f, 0.1f,       123456.789f, 1e-30f,
                          3.4e38f,     -0.0f,       9999999.0f, 1e7f,        -1e-45f, 5e9f};
    int row = 0;
    for (const float value : hard) {
        AAR[++row].BRCP = value;
        AAR[row].RRCP = -value;
    }
    const Game before = GAME;
    ASSERT_EQ(Read_Game_Text(Game_Text()), 0);
    EXPECT_EQ(State_Hash(GAME), State_Hash(before));
}

TEST_F(Game_File_Test, AScenarioTakesTheNameOfItsFileAndASavedGameKeepsIt)
{
    GAMEVERSION = "of another program";
    GAMEFILE = "Fulda.sce";
    const auto saved = [&](const char* name) {
        EXPECT_TRUE(Save_Game_File((home / name).string(), true));
        return File_Content(home / name);
    };
    const std::string scenario = saved("Fulda Two.SCE"), game = saved("turn 3.btl");
    EXPECT_EQ(Line_With(scenario, "GAMEFILE"), "GAMEFILE: Fulda Two.SCE");
    EXPECT_EQ(Line_With(game, "GAMEFILE"), "GAMEFILE: Fulda.sce");
    EXPECT_EQ(Line_With(game, "GAMEVERSION"), "GAMEVERSION: Version 2.04 --- 3 Jan 05");
    EXPECT_EQ(GAMEVERSION, "of another program") << "a save changes nothing in the game";
}

TEST_F(Game_File_Test, ASaveIsToldAndAFailedOneLeavesTheOldFile)
{
    const Log_Lines log;
    GameFileName = (home / "a.btl").string();
    ASSERT_TRUE(Game_File(2));
    EXPECT_EQ(log.All(), (std::vector<std::string>{"Saving game file...", "Game file has been saved",
                                                   "End of file process"}));
    EXPECT_EQ(screen.Count("box", "Stonemarch|Game file has been saved!"), 1);
    ASSERT_TRUE(Save_Game_File(GameFileName, true));
    EXPECT_EQ(screen.Count("box", ""), 1) << "nobody is held up by an autosave";
    EXPECT_EQ(screen.Count("status", "Game file has been saved!"), 1);

    const std::string old = File_Content(home / "a.btl");
    UNIT[1].RCP = 1e30f * 1e30f;   // no file can hold it
    EXPECT_FALSE(Game_File(2));
    EXPECT_EQ(screen.Count("box", "Stonemarch|Error: 6"), 1);
    EXPECT_EQ(File_Content(home / "a.btl"), old);

    UNIT[1].RCP = 1;
    GameFileName = (home / "no M\xC3\xBChle" / "a.btl").string();
    EXPECT_FALSE(Game_File(2));
    EXPECT_EQ(screen.Count("status", "no M\xFChle"), 1) << "in the code page of all texts";
    EXPECT_EQ(screen.Count("box", "Error: 57"), 1);
    EXPECT_EQ(log.Count("End of file process"), 4);
}

}   // namespace
