#include "combat/air.h"

#include "combat/air_attack.h"
#include "combat/air_defence.h"
#include "combat/fires.h"
#include "core/dice.h"
#include "core/explain.h"
#include "core/sound_cues.h"
#include "terrain/grid.h"

namespace sm {

namespace {

/// What a mission flies at: a unit, or 0 for a bridge or a minefield.
struct Found {
    bool GO = false;
    bool ALTERNATE = false;
    int UNIT = 0;
};

std::string Sorties_Of(int slot)
{
    return Cat(To_Text(TG[slot].TGNSORTIES),
               TG[slot].TGTYPE == BOMBERS ? " X Bomber Sorties " : " X Air Strike Sorties ");
}

/// The pilots may find what the staff has not.
void Look_From_The_Air(int unit, int slot)
{
    const int roll = Roll_Dice(SITE_PILOTS_FIND);
    if (Explaining(unit))
        Explain_Line(Cat("mission ", To_Text(slot), " looks for ", UNIT[unit].NAME, ": roll ", To_Text(roll),
                         ", above 80", roll > 80 ? ": found" : ": not found"));
    if (roll <= 80) return;
    UNIT[unit].SPOTTED = 1;
    Show_Picture(unit);
}

/// Kilometres from the aim point, rounded twice: to a pixel, then to a kilometre.
int Kilometres_From_Aim_Point(int slot, int unit)
{
    const float pixels = static_cast<float>(Distance_To(unit, TG[slot].TGX, TG[slot].TGY));
    return Round_Even(pixels / MAPSCALE);
}

/// The nearest known enemy of the planned class within 10 km (of equals the later one), else any known one that
/// was within reach when it was looked at.
Found Hunt(int slot)
{
    Found found;
    int best = 10, alternate = 0;
    const int wanted = TG[slot].TGHPT;
    for (int u = 1; u <= MAX_UNIT; ++u) {
        if (UNIT[u].STATUS < 1 || UNIT[u].SIDE != Other_Side(TG[slot].TGSIDE) || UNIT[u].TYPE == 50) continue;
        if (UNIT[u].SPOTTED == 0) Look_From_The_Air(u, slot);
        if (UNIT[u].SPOTTED <= 0) continue;
        const int km = Kilometres_From_Aim_Point(slot, u);
        if (km > best) continue;
        alternate = u;
        if (wanted != 0 && Target_Class(UNIT[u].TYPE) != wanted) continue;
        found.GO = true;
        found.UNIT = u;
        best = km;
    }
    if (!found.GO && alternate > 0) found = {true, true, alternate};
    return found;
}

Found Find_Target(int slot)
{
    const int wanted = TG[slot].TGHPT;
    if (wanted == BRIDGE_TARGET || wanted == MINES_TARGET) return {true, false, 0};
    return wanted >= 0 && wanted <= 10 ? Hunt(slot) : Found{};
}

std::string Announcement(int slot, const Found& found)
{
    const std::string sorties = To_Text(TG[slot].TGNSORTIES);
    if (TG[slot].TGHPT == BRIDGE_TARGET)
        return Cat("SITREP: ", sorties, " X Air Strike Sorties attack the Bridge!");
    if (TG[slot].TGHPT == MINES_TARGET)
        return Cat("SITREP: ", sorties, " X Air Strike Sorties are dropping mines!");
    return Cat(found.ALTERNATE ? "SITREP: Found an alternate target! " : "SITREP: ", Sorties_Of(slot), "attack ",
               UNIT[found.UNIT].NAME);
}

bool Unseen_By(int side, int owner, int visible) { return owner >= 1 && owner != side && visible == 0; }

/// Enemy works and smoke within 10 km of the aim point become known.
void Air_Recon(int slot)
{
    const int side = TG[slot].TGSIDE, x = TG[slot].TGX, y = TG[slot].TGY;
    const float reach = MAPSCALE * 10;
    const auto seen = [&](int cx, int cy) { return Distance_Between(cx, cy, x, y) <= reach; };
    for (int row = 1; row <= MAX_BG; ++row) {
        if (!Used(BG[row]) || !Unseen_By(side, BG[row].BGSIDE, BG[row].BGVISIBLE)) continue;
        const Point centre = Work_Centre(row);
        if (seen(centre.X, centre.Y)) BG[row].BGVISIBLE = 1;
    }
    for (int row = 1; row <= MAX_NBC; ++row) {
        if (NBC[row].NBCTYPE != 20 || !Unseen_By(side, NBC[row].NBCSIDE, NBC[row].NBCVISIBLE)) continue;
        const Point origin = Hex_Origin(NBC[row].NBCHEX);
        const float half = static_cast<float>(HEXWIDTH) / 2;
        const int cx = Round_Even(static_cast<float>(origin.X) + half),
                  cy = Round_Even(static_cast<float>(origin.Y) + half);
        if (seen(cx, cy)) NBC[row].NBCVISIBLE = 1;
    }
    Screen().Changed(Redraw::GRAPHICS);
}

void Return_To_Base(int slot)
{
    Post_At_Point(Cat("SITREP: ", Sorties_Of(slot), "Found No Targets and Returned to Base! "), TG[slot].TGX,
                  TG[slot].TGY, 0, TG[slot].TGSIDE);
    Air_Recon(slot);
}

void Fly_At_Target(int slot, const Found& found)
{
    TG_RECORD& mission = TG[slot];
    if (found.UNIT > 0) {
        mission.TGX = UNIT[found.UNIT].X;
        mission.TGY = UNIT[found.UNIT].Y;
        mission.TGHEX = UNIT[found.UNIT].HEXNUM;
    }
    const int x = mission.TGX, y = mission.TGY, side = mission.TGSIDE, kind = mission.TGTYPE;
    Draw_Fire(Draw::STRIKE, x, y, x, y, found.UNIT, SOUND_AIR_STRIKE);
    Post_At_Point(Announcement(slot, found), x, y, 0, BOTH);
    Air_Recon(slot);
    if (Intercept_Check(0, side, x, y, kind, slot) == 1) {
        Post_At_Point("SITREP: Air strike aborts due to interception!", x, y, 0, BOTH);
        return;
    }
    ADA_Engage(1, 0, side, x, y, kind, slot);
    Post_At_Point("SITREP: Air strike attacks target!", x, y, 0, BOTH);
    Draw_Fire(Draw::STRIKE, x - 65, y - 65, x, y, found.UNIT, SOUND_AIR_STRIKE);
    Air_Attack(found.UNIT, kind, slot);
}

}   // namespace

void Air_Mission(int slot)
{
    StrikeDisrupted = 0;
    Screen().Drawn(Drawing{Draw::CENTRE, TG[slot].TGX, TG[slot].TGY, TG[slot].TGX, TG[slot].TGY, 0, 0});
    const Found found = Find_Target(slot);
    if (found.GO)
        Fly_At_Target(slot, found);
    else
        Return_To_Base(slot);
    StrikeDisrupted = 0;
}

}   // namespace sm
