#include "builder.h"

#include "core/game_state.h"
#include "core/text.h"
#include "terrain/grid.h"
#include "terrain/map.h"

#include <algorithm>
#include <iterator>

namespace sm::scenario {

namespace {

struct MEASURE {
    const char* WORD;
    int PTYPE;
    const char* IMAGE;
    Int16& BLUE_COUNT;
    Int16& RED_COUNT;
};
Int16 NOT_COUNTED;
// clang-format off
const MEASURE MEASURES[] = {
    {"point", 11, "coordpt.ico", NOT_COUNTED, NOT_COUNTED},
    {"nai",   12, "NAI.ico",     BNAI,        RNAI},
    {"tai",   13, "TAI.ico",     BTAI,        RTAI},
    {"sead",  17, "SEAD.bmp",    BSEAD,       RSEAD},
    {"cffz",  18, "CFFZ.bmp",    BCFFZ,       RCFFZ},
};
// clang-format on

/// A measure placed before the first turn is live at once.
constexpr int LIVE = 2;
/// Half of an icon, which stands on its anchor.
constexpr int ANCHOR = 8;

int Row_For(const auto& table, int side, int half, const STATEMENT& s)
{
    if (side == 0) throw Bad_Script(s.LINE, s.WORDS[0] + " before its force");
    const int row = side == BLUE ? Free_Row(table, 1, half) : Free_Row(table, half + 1, 2 * half);
    if (row == 0) throw Bad_Script(s.LINE, "no row is left for this");
    return row;
}

void Place_Graphic(Builder& b, const STATEMENT& s, const MEASURE& m)
{
    Expect_Words(s, 3, 3);
    const CELL at = b.Place(s, 2);
    const int row = Row_For(P, b.SIDE, 200, s);
    P_RECORD& p = P[row];
    p.PTYPE = m.PTYPE;
    p.PSIDE = b.SIDE;
    p.PX1 = Middle(at.COLUMN) - ANCHOR;
    p.PY1 = Middle(at.ROW) - ANCHOR;
    p.PIMAGE = m.IMAGE;
    p.PAGE = LIVE;
    (b.SIDE == BLUE ? m.BLUE_COUNT : m.RED_COUNT) += 1;
    if (!b.GRAPHICS.emplace(std::pair{b.SIDE, s.WORDS[1]}, row).second)
        throw Bad_Script(s.LINE, "a second measure " + s.WORDS[1]);
}

void Draw_Line(Builder& b, const STATEMENT& s)
{
    Expect_Words(s, 3, 4);
    const CELL from = b.Place(s, 1), to = b.Place(s, 2);
    P_RECORD& p = P[Row_For(P, b.SIDE, 200, s)];
    p.PTYPE = 30;
    p.PSIDE = b.SIDE;
    p.PX1 = Middle(from.COLUMN);
    p.PY1 = Middle(from.ROW);
    p.PX2 = Middle(to.COLUMN);
    p.PY2 = Middle(to.ROW);
    p.PLINE = s.WORDS.size() > 3 ? Number(s, 3, 0, 20) : 0;
}

void Write_Text(Builder& b, const STATEMENT& s)
{
    Expect_Words(s, 3, 3);
    const CELL at = b.Place(s, 1);
    TX_RECORD& t = TX[Row_For(TX, b.SIDE, 50, s)];
    t.TXTYPE = 1;
    t.TXSIDE = b.SIDE;
    t.TXX1 = Middle(at.COLUMN);
    t.TXY1 = Middle(at.ROW);
    t.TXTEXT = s.WORDS[2];
    t.TXWIDTH = static_cast<int>(s.WORDS[2].size()) * 8;
}

void Set_Objective(Builder& b, const STATEMENT& s, int type)
{
    const int row = Free_Row(OBJ, 1, MAX_OBJ);
    if (row == 0) throw Bad_Script(s.LINE, "no objective is left");
    const CELL at = b.Place(s, 1);
    OBJ_RECORD& o = OBJ[row];
    o.OTYPE = type;
    o.OX = Middle(at.COLUMN);
    o.OY = Middle(at.ROW);
    if (type == 1) {
        Expect_Words(s, 3, 4);
        o.OVALUE = Number(s, 2, 100, 500);
        o.OID = s.WORDS.size() > 3 ? Choice(s, 3, {"none", "blue", "red"}) : 0;
    }
}

/// Works that stand when the battle begins; the map takes them up as it does those of a saved game.
void Build_Work(Builder& b, const STATEMENT& s, int type)
{
    Expect_Words(s, 2, 2);
    const CELL at = b.Place(s, 1);
    const int hex = Hex_Of(at.COLUMN, at.ROW);
    if (type != 5 && b.SIDE == 0) throw Bad_Script(s.LINE, s.WORDS[0] + " before its force");
    int row = 1;
    while (row <= MAX_BG && BG[row].BGHEX != hex) ++row;
    if (row > MAX_BG) row = Free_Row(BG, 1, MAX_BG);
    if (row == 0) throw Bad_Script(s.LINE, "no row is left for this");
    if (type == 5 && BG[row].BGTYPE != 7) throw Bad_Script(s.LINE, "there is no bridge to be blown");
    if (type == 7 && Cell_Value(hex) != 5) throw Bad_Script(s.LINE, "a bridge stands over a river");
    if (type > 7 && (BG[row].BGHEX > 0 || Cell_Value(hex) > 4))
        throw Bad_Script(s.LINE, "nothing can be built here");
    BG_RECORD& g = BG[row];
    g.BGHEX = hex;
    g.BGX = Hex_Origin(hex).X;
    g.BGY = Hex_Origin(hex).Y;
    g.BGTYPE = type;
    g.BGSIDE = type == 5 ? BOTH : b.SIDE;
    const bool blue = b.SIDE == BLUE;
    if (type == 7) (blue ? BBNOW : RBNOW) += 1;
    if (type == 8) (blue ? BOBST : ROBST) += 1;
    if (type == 9) (blue ? BFORTS : RFORTS) += 1;
    Prepare_Map();
}

void Contaminate(Builder& b, const STATEMENT& s)
{
    const bool smoke = s.WORDS[0] == "smoke";
    const std::size_t size = smoke ? 2 : 3;
    Expect_Words(s, size + 2, size + 2);
    const CELL at = b.Place(s, 1);
    const int row = Free_Row(NBC, 1, MAX_NBC);
    if (row == 0) throw Bad_Script(s.LINE, "no row is left for this");
    NBC_RECORD& n = NBC[row];
    n.NBCHEX = Hex_Of(at.COLUMN, at.ROW);
    n.NBCX = Middle(at.COLUMN);
    n.NBCY = Middle(at.ROW);
    n.NBCSIDE = b.SIDE;
    n.NBCVISIBLE = smoke ? 0 : 1;
    n.NBCORDER = smoke ? 1 : 0;
    n.NBCTYPE = smoke ? 20 : Choice(s, 2, {"np", "persistent"}) == 0 ? 11 : 21;
    n.NBCSIZE = Number(s, size, 1, 1000);
    n.NBCSTIME = Number(s, size + 1, 1, 50);
}

constexpr const char* TRIGGERS[] = {"Immediate", "Any Blue Unit", "Blue Logistics Unit", "Blue Combat Unit"};

void Set_Trigger(PP_RECORD& e, int trigger)
{
    e.PPTRIGGER = trigger;
    e.PPATRIGGER = TRIGGERS[trigger - 1];
    e.PPACTIVE = trigger == 1 ? 1 : 0;
}

void Open_Event(Builder& b, const STATEMENT& s)
{
    Expect_Words(s, 4, 4);
    b.EVENT = Free_Row(PP, 1, MAX_PP);
    if (b.EVENT == 0) throw Bad_Script(s.LINE, "no event is left");
    const CELL at = b.Place(s, 2);
    PP_RECORD& e = PP[b.EVENT];
    e.PPTYPE = Number(s, 1, 1, 50);
    e.PPATYPE = s.WORDS[3];
    e.PPX = Middle(at.COLUMN);
    e.PPY = Middle(at.ROW);
    const std::string& label = s.WORDS[3];
    e.PPSIDE = label.find("(Blue") != label.npos ? BLUE : label.find("(Red") != label.npos ? RED : BOTH;
    Set_Trigger(e, 2);
}

struct EVENT_WORD {
    const char* WORD;
    std::size_t COUNT;   // words, its own included
    void (*TELL)(PP_RECORD& e, const STATEMENT& s);
};
// clang-format off
constexpr EVENT_WORD EVENT_WORDS[] = {
    {"icon",      2, [](PP_RECORD& e, const STATEMENT& s) { e.PPIMAGE = s.WORDS[1]; }},
    {"side",      2, [](PP_RECORD& e, const STATEMENT& s) { e.PPSIDE = Choice(s, 1, {"", "blue", "red", "neutral"}); }},
    {"trigger",   2, [](PP_RECORD& e, const STATEMENT& s) { Set_Trigger(e, Number(s, 1, 1, 4)); }},
    {"effect",    2, [](PP_RECORD& e, const STATEMENT& s) { e.PPEFFECT = Number(s, 1, 0, 3); }},
    {"attrition", 2, [](PP_RECORD& e, const STATEMENT& s) { e.PPDURATION = Number(s, 1, 0, 100); }},
    {"movement",  2, [](PP_RECORD& e, const STATEMENT& s) { e.PPOBSTACLE = Number(s, 1, 0, 2); }},
    {"message",   2, [](PP_RECORD& e, const STATEMENT& s) { e.PPMSG = s.WORDS[1]; }},
    {"file",      3, [](PP_RECORD& e, const STATEMENT& s) { e.PPPROBE = Choice(s, 1, {"none", "audio", "picture", "video"});
                                                            e.PPPFILE = s.WORDS[2]; }},
};
// clang-format on

/// A statement of the event under way.
bool Tell_Event(Builder& b, const STATEMENT& s)
{
    if (b.EVENT == 0) return false;
    for (const EVENT_WORD& word : EVENT_WORDS) {
        if (s.WORDS[0] != word.WORD) continue;
        Expect_Words(s, word.COUNT, word.COUNT);
        word.TELL(PP[b.EVENT], s);
        return true;
    }
    return false;
}

/// The optional words of a task: pairs of a key and its value.
const std::string* Option(const STATEMENT& s, std::size_t first, const char* key)
{
    for (std::size_t i = first; i + 1 < s.WORDS.size(); i += 2)
        if (s.WORDS[i] == key) return &s.WORDS[i + 1];
    return nullptr;
}

int Option_Number(const STATEMENT& s, std::size_t first, const char* key, int low, int high, int otherwise)
{
    const std::string* word = Option(s, first, key);
    if (word == nullptr) return otherwise;
    return Number({s.LINE, {key, *word}}, 1, low, high);
}

struct TASK {
    const char* WORD;
    int TGTYPE;
    bool BY_UNIT;   ///< a unit carries it out; otherwise a number of sorties
};
constexpr TASK TASKS[] = {
    {"fire", 1, true}, {"strike", 4, false}, {"bombers", 3, false}, {"demolish", 150, true}, {"mine", 151, true},
};

void Book_Rounds(const STATEMENT& s, TG_RECORD& t, std::size_t options)
{
    const std::string* ammo = Option(s, options, "ammo");
    if (ammo == nullptr) return;
    constexpr int TYPES[] = {1, 5, 11, 21};
    t.TGTYPE = TYPES[Choice({s.LINE, {"ammo", *ammo}}, 1, {"he", "fascam", "np", "persistent"})];
    const bool blue = t.TGSIDE == BLUE;
    if (t.TGTYPE == 5) (blue ? BOBST : ROBST) += 1;
    if (t.TGTYPE > 5) (blue ? BCHNOW : RCHNOW) += 1;
}

}   // namespace

bool Lay_Measure(Builder& b, const STATEMENT& s)
{
    const std::string& word = s.WORDS[0];
    if (Tell_Event(b, s)) return true;
    for (const MEASURE& m : MEASURES) {
        // "nai NAME" alone is a unit's order
        if (word == m.WORD && !(word == "nai" && s.WORDS.size() == 2)) return Place_Graphic(b, s, m), true;
    }
    if (word == "smoke" && s.WORDS.size() == 2) return false;   // a unit's order
    if (word == "line") return Draw_Line(b, s), true;
    if (word == "text") return Write_Text(b, s), true;
    if (word == "objective") return Set_Objective(b, s, 1), true;
    if (word == "keyterrain") return Set_Objective(b, s, 2), true;
    if (word == "corridor") return Set_Objective(b, s, 3), true;
    if (word == "blown") return Build_Work(b, s, 5), true;
    if (word == "bridge") return Build_Work(b, s, 7), true;
    if (word == "obstacle") return Build_Work(b, s, 8), true;
    if (word == "fort") return Build_Work(b, s, 9), true;
    if (word == "gas" || word == "smoke") return Contaminate(b, s), true;
    if (word == "event") return Open_Event(b, s), true;
    return false;
}

bool Is_Task(const std::string& word)
{
    return std::any_of(std::begin(TASKS), std::end(TASKS), [&](const TASK& t) { return word == t.WORD; });
}

void Assign_Task(Builder& b, const STATEMENT& s, int side)
{
    const TASK& task =
        *std::find_if(std::begin(TASKS), std::end(TASKS), [&](const TASK& t) { return s.WORDS[0] == t.WORD; });
    const std::size_t place = task.BY_UNIT ? 2 : 1, options = 3;
    const CELL at = b.Place(s, place);
    TG_RECORD& t = TG[Row_For(TG, side, 100, s)];
    t.TGTYPE = task.TGTYPE;
    t.TGSIDE = side;
    t.TGX = Middle(at.COLUMN);
    t.TGY = Middle(at.ROW);
    t.TGHEX = Hex_Of(at.COLUMN, at.ROW);
    t.TGHPT = Option_Number(s, options, "class", 0, 12, 0);
    if (const std::string* area = Option(s, options, "tai")) {
        t.TGRAPHIC = b.Graphic(side, *area, s.LINE);
        t.TGTOT = 1000 + t.TGRAPHIC;
    } else {
        t.TGTOT = Option_Number(s, options, "turn", 1, MAXGTURN, 1);
    }
    if (task.BY_UNIT) {
        t.FUNIT = b.Unit(side, s.WORDS[1], s.LINE);
        UNIT[t.FUNIT].FIREMISSION += 1;
        if (task.TGTYPE == 151) (side == BLUE ? BOBST : ROBST) += 1;
        if (task.TGTYPE == 1) Book_Rounds(s, t, options);
    } else {
        t.TGNSORTIES = Number(s, 2, 1, 50);
        Int16& pool = task.TGTYPE == 4 ? (side == BLUE ? BTOTAL : OTOTAL) : (side == BLUE ? BTOTAL2 : OTOTAL2);
        if (pool < t.TGNSORTIES) throw Bad_Script(s.LINE, "there are not so many sorties");
        pool -= t.TGNSORTIES;
    }
}

}   // namespace sm::scenario
