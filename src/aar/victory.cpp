#include "aar/victory.h"

#include "core/platform.h"
#include "core/shared.h"

namespace sm {

namespace {

struct SIDE_SUMS {
    float BLUE_SUM = 0, RED_SUM = 0;
    void Add(int side, float value)
    {
        if (side == BLUE) BLUE_SUM = BLUE_SUM + value;
        if (side == RED) RED_SUM = RED_SUM + value;
    }
};

/// An objective changes hands only to a side that stands alone on it.
void Take_Possession(OBJ_RECORD& objective)
{
    SIDE_SUMS sums;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (Stands_On(u, objective)) sums.Add(UNIT[u].SIDE, UNIT[u].RCP2);
    if (sums.BLUE_SUM > 0 && sums.RED_SUM == 0) objective.OID = BLUE;
    if (sums.RED_SUM > 0 && sums.BLUE_SUM == 0) objective.OID = RED;
}

bool SATURATION_LOGGED = false;

/// Points that would leave 16 bits stay at the end of the range; the log says so once.
int Points(long long value)
{
    const int kept = Saturate_16(value);
    if (kept != value && !SATURATION_LOGGED) {
        Log("Victory points have reached the end of their range and stay there");
        SATURATION_LOGGED = true;
    }
    return kept;
}

int Rounded_Points(float value)
{
    if (value > 32767.0f || value < -32768.0f) return Points(value > 0 ? 32768 : -32769);
    return Round_Even(value);
}

int Scaled(int points, float factor) { return Rounded_Points(static_cast<float>(points) * factor); }

/// Points for what the enemy has lost: prisoners count double, aircraft triple.
int Loss_Points(float artillery, float manoeuvre, float nbc, float prisoners, float air, float aircraft)
{
    return Rounded_Points(artillery + manoeuvre + nbc + 2 * prisoners + air + 3 * aircraft);
}

void Score_Losses()
{
    int rp = Loss_Points(RARTYL, RMANL, RNBCL, REPW, RAIRL, RADAL);
    int bp = Loss_Points(BARTYL, BMANL, BNBCL, BEPW, BAIRL, BADAL);
    if (BRCP1 > 0) rp = Scaled(rp, RRCP1 / BRCP1);
    if (RRCP1 > 0) bp = Scaled(bp, BRCP1 / RRCP1);
    if (RFOBJ == 0) bp = Scaled(bp, 1.5f);
    if (BFOBJ == 0) rp = Scaled(rp, 1.5f);
    if (Loss_Percent(RED) > MRLOSS) rp = Scaled(rp, 1.2f);
    if (Loss_Percent(BLUE) > MBLOSS) bp = Scaled(bp, 1.2f);
    BLUEVP = Points(static_cast<long long>(BLUEVP) + rp);
    REDVP = Points(static_cast<long long>(REDVP) + bp);
}

struct VERDICT_BOUND {
    float UP_TO;
    int STATUS;
};
// clang-format off
constexpr VERDICT_BOUND VERDICTS[] = {
    {0.33f, 1}, {0.66f, 2}, {0.9f, 3}, {1.1f, 7}, {2.0f, 4}, {3.0f, 5},
};
// clang-format on

int Verdict(int blue, int red)
{
    const float ratio = static_cast<float>(blue < 1 ? 1 : blue) / static_cast<float>(red < 1 ? 1 : red);
    for (const VERDICT_BOUND& bound : VERDICTS)
        if (ratio <= bound.UP_TO) return bound.STATUS;
    return 6;
}

}   // namespace

bool Stands_On(int unit, const OBJ_RECORD& objective)
{
    if (UNIT[unit].STATUS != 2) return false;
    const float reach = UNIT[unit].FOOTPRINT / 2 + 16;
    return static_cast<float>(Distance_To(unit, objective.OX, objective.OY)) <= reach;
}

void Power_Count(bool row)
{
    SIDE_SUMS now, ineffective;
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS > 0 && UNIT[u].PARENT_UNIT == 0) now.Add(UNIT[u].SIDE, UNIT[u].RCP2);
    for (int u = 1; u <= MAX_UNIT; ++u)
        if (UNIT[u].STATUS == 1) ineffective.Add(UNIT[u].SIDE, UNIT[u].RCP2);
    BRCP3 = now.BLUE_SUM;
    RRCP3 = now.RED_SUM;
    BRCP2 = ineffective.BLUE_SUM;
    RRCP2 = ineffective.RED_SUM;
    if (row && GTURN >= 1 && GTURN <= MAX_AAR) {
        AAR[GTURN].BRCP = BRCP3;
        AAR[GTURN].RRCP = RRCP3;
        AAR[GTURN].TTIME = std::string_view(GDAY);
    }
    if (GTURN == 0) {
        BRCP1 = BRCP3;
        RRCP1 = RRCP3;
    }
    if (!row || GTURN == 0) SATURATION_LOGGED = false;   // another game is opened
}

void AAR_Chart() { Screen().Changed(Redraw::HEADER); }

int Loss_Percent(int side)
{
    const float start = side == BLUE ? BRCP1 : RRCP1, now = side == BLUE ? BRCP3 : RRCP3;
    if (!(start > 0) || start == now) return 0;
    const float share = now / start;
    return 100 - Truncate(share * 100.0f);
}

void Victory_Points()
{
    for (int o = 1; o <= MAX_OBJ; ++o)
        if (OBJ[o].OTYPE == 1) Take_Possession(OBJ[o]);
    for (int o = 1; o <= MAX_OBJ; ++o) {
        if (OBJ[o].OTYPE != 1) continue;
        if (OBJ[o].OID == BLUE) BLUEVP = Points(static_cast<long long>(BLUEVP) + OBJ[o].OVALUE);
        if (OBJ[o].OID == RED) REDVP = Points(static_cast<long long>(REDVP) + OBJ[o].OVALUE);
    }
    Score_Losses();
    VSTATUS = Verdict(BLUEVP, REDVP);
}

}   // namespace sm
