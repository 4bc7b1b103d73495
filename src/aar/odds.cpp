#include "aar/odds.h"

#include "aar/columns.h"
#include "aar/html.h"
#include "aar/odds_measures.h"
#include "aar/victory.h"
#include "core/game_state.h"

#include <algorithm>

namespace sm {

OUTCOME Note_Outcome(const SIGNS& signs)
{
    OUTCOME o{GTURN, VSTATUS, BLUEVP, REDVP, Loss_Percent(BLUE), Loss_Percent(RED), BRCP3, RRCP3, signs, {}};
    for (int i = 1; i <= MAX_OBJ; ++i)
        o.HOLDERS[i - 1] = static_cast<std::int8_t>(OBJ[i].OTYPE == 1 ? int{OBJ[i].OID} : -1);
    return o;
}

SPREAD Spread_Of(std::vector<double> values)
{
    if (values.empty()) return {};
    std::sort(values.begin(), values.end());
    double sum = 0;
    for (const double v : values) sum += v;
    const auto at = [&](int percent) {
        return values[(values.size() - 1) * static_cast<std::size_t>(percent) / 100];
    };
    return {values.front(), at(10), at(50), at(90), values.back(), sum / static_cast<double>(values.size())};
}

// ------------------------------------------------------------------------------------------------------- counting

int Turns_Of(const ODDS& odds) { return odds.BATTLES.empty() ? 0 : static_cast<int>(odds.BATTLES[0].size()); }

int Count_Battles(const ODDS& odds, int turn, const std::function<bool(const OUTCOME&)>& test)
{
    int n = 0;
    for (const auto& battle : odds.BATTLES) n += test(battle[static_cast<std::size_t>(turn)]) ? 1 : 0;
    return n;
}

int Count_Verdict(const ODDS& odds, int turn, int status)
{
    return Count_Battles(odds, turn, [status](const OUTCOME& o) { return o.STATUS == status; });
}

SPREAD Spread_Of_Turn(const ODDS& odds, int turn, const MEASURE& measure)
{
    std::vector<double> values;
    for (const auto& battle : odds.BATTLES)
        values.push_back(measure.VALUE(battle[static_cast<std::size_t>(turn)]));
    return Spread_Of(std::move(values));
}

std::vector<int> Objectives_Of(const ODDS& odds)
{
    std::vector<int> list;
    for (int o = 0; o < 50; ++o)
        if (Turns_Of(odds) > 0 && odds.BATTLES[0][0].HOLDERS[o] >= 0) list.push_back(o);
    return list;
}

int Count_Held(const ODDS& odds, int turn, int objective, int side)
{
    return Count_Battles(odds, turn, [=](const OUTCOME& o) { return o.HOLDERS[objective] == side; });
}

std::vector<SIGN_ROW> Signs_Of(const ODDS& odds)
{
    const int last = Turns_Of(odds) - 1;
    const auto row = [&](const char* name, const std::function<bool(const OUTCOME&, int)>& shows) {
        return SIGN_ROW{name, Count_Battles(odds, last, [&](const OUTCOME& o) { return shows(o, BLUE); }),
                        Count_Battles(odds, last, [&](const OUTCOME& o) { return shows(o, RED); })};
    };
    return {
        row("moves ground units", [](const OUTCOME& o, int side) { return (o.SIGN.MOVED & side) != 0; }),
        row("fires direct fires", [](const OUTCOME& o, int side) { return (o.SIGN.FIRED & side) != 0; }),
        row("is resupplied", [](const OUTCOME& o, int side) { return (o.SIGN.RESUPPLIED & side) != 0; }),
        row("keeps a fifth of its power",
            [](const OUTCOME& o, int side) { return (side == BLUE ? o.BLUE_LOSS : o.RED_LOSS) <= 80; }),
        row("is ahead", [](const OUTCOME& o,
                           int side) { return side == RED ? o.STATUS <= 3 : o.STATUS >= 4 && o.STATUS <= 6; }),
    };
}

std::string Changes_Of_Hands(const ODDS& odds)
{
    const int last = Turns_Of(odds) - 1;
    const MEASURE changes{"", [](const OUTCOME& o) { return static_cast<double>(o.SIGN.CHANGES); }};
    const SPREAD spread = Spread_Of_Turn(odds, last, changes);
    return Cat("Objectives change hands in ",
               To_Text(Count_Battles(odds, last, [](const OUTCOME& o) { return o.SIGN.CHANGES > 0; })),
               " of 100 battles, ", Html_Number(spread.LEAST), " to ", Html_Number(spread.GREATEST), " times, ",
               Html_Number(spread.MIDDLE), " in the middle.");
}

std::string Verdict_Of_Odds(const ODDS& odds)
{
    const int last = Turns_Of(odds) - 1;
    const auto ahead = [&](int from, int to) {
        return To_Text(
            Count_Battles(odds, last, [=](const OUTCOME& o) { return o.STATUS >= from && o.STATUS <= to; }));
    };
    return Cat("After turn ", To_Text(odds.FIRST_TURN + last + 1), ": Red is ahead in ", ahead(1, 3),
               ", neither side in ", ahead(7, 7), ", Blue in ", ahead(4, 6), " of 100 battles.");
}

std::string Extent_Of_Odds(const ODDS& odds)
{
    const bool one = Turns_Of(odds) == 1;
    return Cat("from all 100 dice positions, turn", one ? "" : Cat("s ", To_Text(odds.FIRST_TURN + 1), " to"), " ",
               To_Text(odds.FIRST_TURN + Turns_Of(odds)), " of ", To_Text(odds.LAST_TURN));
}

// ----------------------------------------------------------------------------------------------------------- text

namespace {

std::string Turn_Number(const ODDS& odds, int turn)
{
    return Right(To_Text(odds.BATTLES[0][static_cast<std::size_t>(turn)].TURN), 6);
}

std::string Measure_Text(const ODDS& odds, const MEASURE& measure)
{
    std::string s =
        Cat("\n", measure.NAME, "\n  turn     least       10%    middle       90%  greatest      mean\n");
    for (int t = 0; t < Turns_Of(odds); ++t) {
        const SPREAD spread = Spread_Of_Turn(odds, t, measure);
        s += Turn_Number(odds, t);
        for (const double v : {spread.LEAST, spread.LOW, spread.MIDDLE, spread.HIGH, spread.GREATEST, spread.MEAN})
            s += Right(Html_Number(v), 10);
        s += "\n";
    }
    return s;
}

std::string Objectives_Text(const ODDS& odds)
{
    const std::vector<int> objectives = Objectives_Of(odds);
    if (objectives.empty()) return {};
    std::string s = "\nObjectives, battles of 100 in which Blue / Red holds them\n  turn";
    for (const int o : objectives) s += Right(Cat("Obj ", To_Text(o + 1)), 10);
    s += "\n";
    for (int t = 0; t < Turns_Of(odds); ++t) {
        s += Turn_Number(odds, t);
        for (const int o : objectives)
            s +=
                Right(Cat(To_Text(Count_Held(odds, t, o, BLUE)), " / ", To_Text(Count_Held(odds, t, o, RED))), 10);
        s += "\n";
    }
    return s;
}

}   // namespace

std::string Odds_Text(const ODDS& odds)
{
    std::string s =
        Cat(odds.NAME, " ", Extent_Of_Odds(odds), "\n\n", Verdict_Of_Odds(odds), "\n", Changes_Of_Hands(odds),
            "\n\nBattles of 100 in which a side", Right("Blue", 10), Right("Red", 10), "\n");
    for (const SIGN_ROW& sign : Signs_Of(odds))
        s += Cat(Left(Cat("  ", sign.NAME), 30), Right(To_Text(sign.BLUE_BATTLES), 10),
                 Right(To_Text(sign.RED_BATTLES), 10), "\n");
    s += "\nVerdict, battles of 100\n  turn";
    for (const char* name : VERDICT_NAMES) s += Right(name, 14);
    s += "\n";
    for (int t = 0; t < Turns_Of(odds); ++t) {
        s += Turn_Number(odds, t);
        for (const int status : VERDICTS_BY_SIDE) s += Right(To_Text(Count_Verdict(odds, t, status)), 14);
        s += "\n";
    }
    for (const MEASURE& measure : MEASURES) s += Measure_Text(odds, measure);
    return s + Objectives_Text(odds);
}

std::string Odds_Csv(const ODDS& odds)
{
    std::string s =
        "position,turn,verdict,blue_points,red_points,blue_loss_percent,red_loss_percent,blue_power,red_power,"
        "moved,fired,resupplied,changes_of_hands";
    const std::vector<int> objectives = Objectives_Of(odds);
    for (const int o : objectives) s += Cat(",objective_", To_Text(o + 1));
    s += "\r\n";
    for (std::size_t p = 0; p < odds.BATTLES.size(); ++p)
        for (const OUTCOME& o : odds.BATTLES[p]) {
            s += To_Text(static_cast<int>(p) + 1);
            for (const int n : {o.TURN, o.STATUS, o.BLUE_POINTS, o.RED_POINTS, o.BLUE_LOSS, o.RED_LOSS})
                s += Cat(",", To_Text(n));
            s += Cat(",", To_Text(o.BLUE_POWER), ",", To_Text(o.RED_POWER));
            for (const int n : {o.SIGN.MOVED, o.SIGN.FIRED, o.SIGN.RESUPPLIED, o.SIGN.CHANGES})
                s += Cat(",", To_Text(n));
            for (const int k : objectives) s += Cat(",", To_Text(static_cast<int>(o.HOLDERS[k])));
            s += "\r\n";
        }
    return s;
}

}   // namespace sm
