#include "aar/battle_record.h"
#include "aar/columns.h"
#include "core/numbers.h"
#include "core/text.h"

namespace sm {

namespace {

/// One decimal, half to even in the last place.
std::string One_Decimal(float value)
{
    const int tenths = Round_Even(static_cast<double>(value) * 10);
    const int whole = tenths / 10, rest = tenths < 0 ? -(tenths % 10) : tenths % 10;
    return Cat(tenths < 0 && whole == 0 ? "-" : "", To_Text(whole), ".", To_Text(rest));
}

const char* Holder(int side) { return side == 1 ? "Blue" : side == 2 ? "Red" : "-"; }

std::string Verdict_Part(const BATTLE_RECORD& r)
{
    const TURN_RECORD& last = r.TURNS.back();
    return Cat("After turn ", To_Text(last.TURN), " of ", To_Text(r.LAST_TURN), ", ", last.CLOCK, ":\n  ",
               Verdict_Text(last.TURN, last.STATUS, r.OVER), "\n\n", Left("", 24), Right("Blue", 10),
               Right("Red", 10), "\n", Left("  Victory points", 24), Right(To_Text(last.BLUE_POINTS), 10),
               Right(To_Text(last.RED_POINTS), 10), "\n", Left("  Power at the start", 24),
               Right(One_Decimal(r.BLUE_START), 10), Right(One_Decimal(r.RED_START), 10), "\n",
               Left("  Power now", 24), Right(One_Decimal(last.BLUE_POWER), 10),
               Right(One_Decimal(last.RED_POWER), 10), "\n", Left("  Losses, percent", 24),
               Right(To_Text(last.BLUE_LOSS), 10), Right(To_Text(last.RED_LOSS), 10), "\n",
               Left("  Units in play", 24), Right(To_Text(last.BLUE_UNITS), 10),
               Right(To_Text(last.RED_UNITS), 10), "\n");
}

std::string Causes_Part(const TURN_RECORD& last)
{
    std::string s = "\nLosses by cause, in points of combat power\n";
    for (const CAUSE& c : last.CAUSES)
        s += Cat(Left(Cat("  ", Trim(c.NAME)), 24), Right(One_Decimal(c.BLUE_LOSS), 10),
                 Right(One_Decimal(c.RED_LOSS), 10), "\n");
    return s;
}

std::string Turns_Part(const BATTLE_RECORD& r)
{
    std::string s = "\nStrengths by turn\n  turn  clock                 Blue power  points  lost  units    Red "
                    "power  points  lost  units\n";
    for (const TURN_RECORD& t : r.TURNS)
        s += Cat(Right(To_Text(t.TURN), 6), "  ", Left(t.CLOCK, 20), Right(One_Decimal(t.BLUE_POWER), 12),
                 Right(To_Text(t.BLUE_POINTS), 8), Right(To_Text(t.BLUE_LOSS), 5), "%",
                 Right(To_Text(t.BLUE_UNITS), 7), Right(One_Decimal(t.RED_POWER), 13),
                 Right(To_Text(t.RED_POINTS), 8), Right(To_Text(t.RED_LOSS), 5), "%",
                 Right(To_Text(t.RED_UNITS), 7), "\n");
    return s;
}

std::string Objectives_Part(const BATTLE_RECORD& r)
{
    std::string s = "\nPossession of objectives by turn\n  turn";
    for (const OBJECTIVE_MARK& o : r.OBJECTIVES) s += Right(Cat("Obj ", To_Text(o.OBJECTIVE)), 8);
    s += "\n";
    for (const TURN_RECORD& t : r.TURNS) {
        s += Right(To_Text(t.TURN), 6);
        for (const int holder : t.HOLDERS) s += Right(Holder(holder), 8);
        s += "\n";
    }
    return s;
}

std::string Messages_Part(const BATTLE_RECORD& r)
{
    static constexpr const char* AUDIENCE[] = {"     ", "Blue ", " Red ", " All "};
    std::string s = "\nMessages\n";
    for (const TURN_RECORD& t : r.TURNS) {
        if (t.MESSAGES.empty()) continue;
        s += Cat("  Turn ", To_Text(t.TURN), ", ", t.CLOCK, "\n");
        for (const MESSAGE_MARK& m : t.MESSAGES)
            s += Cat("    [", AUDIENCE[m.SIDE >= 0 && m.SIDE <= 3 ? m.SIDE : 0], "] ", To_Utf8(m.TEXT), "\n");
    }
    return s;
}

}   // namespace

std::string Report_Text(const BATTLE_RECORD& r)
{
    return Cat("After-action report: ", r.NAME, "\n\n", Verdict_Part(r), Causes_Part(r.TURNS.back()),
               Turns_Part(r), Objectives_Part(r), Messages_Part(r));
}

}   // namespace sm
