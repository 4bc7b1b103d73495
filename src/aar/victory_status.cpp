#include "aar/victory_status.h"

#include "aar/victory.h"
#include "core/shared.h"

namespace sm {

namespace {

struct VERDICT_WORDS {
    const char *WINNING, *WON;
};
// clang-format off
constexpr VERDICT_WORDS VERDICTS[] = {
    {"RED is winning a decisive victory!",  "RED has won a decisive victory!"},
    {"RED is winning major victory!",       "RED has won major victory!"},
    {"RED is winning a minor victory!",     "RED has won a minor victory!"},
    {"BLUE is winning a minor victory!",    "BLUE has won a minor victory!"},
    {"BLUE is winning a major victory!",    "BLUE has won a major victory!"},
    {"BLUE is winning a decisive victory!", "BLUE has won a decisive victory!"},
    {"Neither side has an advantage!",      "The battle is a draw!"},
};
// clang-format on

void Log_Powers(const char* now_key, float now, const char* start_key, float start)
{
    const char* mark = start > 0 && now > 0 ? ": " : "!!: ";
    Log(Cat(now_key, mark, To_Text(now)));
    Log(Cat(start_key, mark, To_Text(start)));
}

/// "Red Losses: 12%", and whether the side has lost more than it may in the log.
std::string Losses_Of(const char* side, int percent, int allowed)
{
    const bool too_many = percent > allowed;
    if (too_many) {
        Log(Cat("===============", side, " Losses - Yes =================="));
        Log(Cat("Loss: ", To_Text(percent)));
    } else {
        Log(Cat("================", side, " Losses - No =================="));
    }
    return Cat(side, " Losses: ", To_Text(percent), too_many ? "% !" : "%");
}

}   // namespace

const char* Verdict_Text(int turn, int status, bool over)
{
    if (turn == 0) return "The game has not begun!";
    const VERDICT_WORDS& words = VERDICTS[status >= 1 && status <= 6 ? status - 1 : 6];
    return over ? words.WON : words.WINNING;
}

std::vector<CAUSE> Losses_By_Cause()
{
    return {{"  Maneuver ", BMANL, RMANL}, {"Artillery", BARTYL, RARTYL}, {"Air Attack", BAIRL, RAIRL},
            {" NBC", BNBCL, RNBCL},        {" ADA", BADAL, RADAL},        {"EPW", BEPW, REPW}};
}

Victory_Status Show_Victory_Status()
{
    Victory_Status s;
    Log_Powers("RRCP3", RRCP3, "RRCP1", RRCP1);
    Log_Powers("BRCP3", BRCP3, "BRCP1", BRCP1);
    s.RED_LOSSES = Losses_Of("Red", Loss_Percent(RED), MRLOSS);
    s.BLUE_LOSSES = Losses_Of("Blue", Loss_Percent(BLUE), MBLOSS);
    s.BLUE_POINTS = Cat("Blue Victory Points: ", To_Text(BLUEVP));
    s.RED_POINTS = Cat("Red Victory Points: ", To_Text(REDVP));
    s.VERDICT = Verdict_Text(GTURN, VSTATUS, GameOver == -1);
    s.BLUE_POWER = BRCP3;
    s.RED_POWER = RRCP3;
    s.SCALE = RRCP1 > BRCP1 ? RRCP1 : BRCP1;
    s.CAUSES = Losses_By_Cause();
    for (int turn = 1; turn <= GTURN && turn <= MAX_AAR; ++turn)
        s.CHART.push_back({turn, AAR[turn].BRCP, AAR[turn].RRCP, AAR[turn].TTIME.Str()});
    return s;
}

}   // namespace sm
