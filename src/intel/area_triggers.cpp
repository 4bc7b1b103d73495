#include "intel/area_triggers.h"

#include "combat/air.h"
#include "combat/artillery.h"
#include "core/seat.h"
#include "core/shared.h"

namespace sm {

namespace {

/// The shared loop numbers are lent to a triggered mission and come back as they were.
struct Lent_Numbers {
    Lent_Numbers() : target(CurTarget), graphic(CurGraphic), unit2(CurUnit2) {}
    ~Lent_Numbers()
    {
        CurTarget = target;
        CurGraphic = graphic;
        CurUnit2 = unit2;
    }
    Lent_Numbers(const Lent_Numbers&) = delete;
    Lent_Numbers& operator=(const Lent_Numbers&) = delete;
    Int16 target, graphic, unit2;
};

enum class Triggered { NOTHING, GUNS, AIRCRAFT };

Triggered Run_By(int target_type)
{
    struct ROW {
        int TYPE;
        Triggered BY;
    };
    static constexpr ROW ROWS[] = {
        {1, Triggered::GUNS},  {5, Triggered::GUNS},     {11, Triggered::GUNS},
        {21, Triggered::GUNS}, {3, Triggered::AIRCRAFT}, {4, Triggered::AIRCRAFT},
    };
    for (const ROW& row : ROWS)
        if (row.TYPE == target_type) return row.BY;
    return Triggered::NOTHING;
}

}   // namespace

int Area_Reach(int unit) { return UNIT[unit].OBSCURED == 1 ? 1 : 40; }

bool Meets_Area(int unit, int graphic, int x, int y)
{
    const P_RECORD& p = P[graphic];
    if (p.PTYPE != 12 && p.PTYPE != 13) return false;
    if (UNIT[unit].TYPE == 50 || p.PSIDE == UNIT[unit].SIDE || !Graphic_Active(graphic)) return false;
    return Distance_Between(x, y, p.PX1, p.PY1) <= Area_Reach(unit);
}

void Spot_In_Area(int unit)
{
    if (PlanSide != 3 || ViewMode != 0) Show_Picture(unit);
    UNIT[unit].SPOTTED = Saturate_16(UNIT[unit].SPOTTED + 1);
    Show_By_View(unit);
}

void Launch_Waiting_Helicopters(int unit, int graphic)
{
    const int target_class = Target_Class(UNIT[unit].TYPE);
    const int side = 3 - UNIT[unit].SIDE;
    for (int h = 1; h <= MAX_UNIT; ++h) {
        UNIT_RECORD& r = UNIT[h];
        if (r.STATUS < 1 || r.SIDE != side || r.NAI != graphic || r.MOVESTATUS != 7) continue;
        if (r.HPTL1 != target_class && r.HPTL2 != target_class) continue;
        if (r.NUMBER_OF_NODES > 0) {
            r.MOVESTATUS = 9;
            continue;
        }
        r.MOVESTATUS = 0;
        r.NAI = 0;
        const std::string text =
            Cat("Failed AH mission; ", std::string_view(r.NAME), " did not have a flight route!");
        Log(text);
        Post_Own(h, text, 0);
    }
}

void Fire_Linked_Targets(int unit, int graphic)
{
    const Lent_Numbers lent;
    for (int t = 1; t <= MAX_TG; ++t) {
        const UNIT_RECORD& u = UNIT[unit];
        if (u.STATUS < 1) return;
        const Triggered by = Run_By(TG[t].TGTYPE);
        if (by == Triggered::NOTHING || TG[t].TGRAPHIC != graphic || u.SPOTTED < 1) continue;
        if (TG[t].TGHPT != Target_Class(u.TYPE)) continue;
        TG[t].TGX = u.X;
        TG[t].TGY = u.Y;
        TG[t].TGHEX = u.HEXNUM;
        CurGraphic = graphic;
        CurTarget = t;
        if (by == Triggered::GUNS)
            Fire_Arty(t);
        else
            Air_Mission(t);
        Delete_Target(t);   // otherwise it would fire at every step of every unit
    }
}

}   // namespace sm
