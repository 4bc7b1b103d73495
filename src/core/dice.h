#pragma once

namespace sm {

/// Rules that roll, by DiceSite.
enum Dice_Site {
    SITE_MORALE = 1,
    SITE_SUPPRESSION = 2,
    SITE_PSYOPS = 3,
    SITE_AH_TARGET = 4,
    SITE_AH_LINKED = 5,
    SITE_AH_LAUNCH = 6,
    SITE_BREACH_ALONE = 7,
    SITE_BREACH_WITH_HELP = 8,
    SITE_MISSILE_DEFENCE = 9,
    SITE_AIR_LOSS = 10,
    SITE_FIRES_ORDER = 11,
    SITE_SMALL_ARMS_SEES = 13,
    SITE_ADA_STRIKE = 14,
    SITE_ADA_INTERCEPTORS = 15,
    SITE_ADA_FLYER = 16,
    SITE_AIR_BRIDGE = 17,
    SITE_AIR_MINES = 18,
    SITE_SCREEN_SMALL_TARGET = 19,
    SITE_SMALL_UNIT = 20,
    SITE_DEMOLITION = 21,
    SITE_COUNTERFIRE = 22,
    SITE_ELINT = 24,
    SITE_NAI_ON_TARGET = 25,
    SITE_NAI_ON_OBJECTIVE = 26,
    SITE_UAV_OBJECTIVE = 27,
    SITE_UAV_ENEMY_HQ = 28,
    SITE_UAV_OWN_HQ = 29,
    SITE_AIR_ASSAULT = 30,
    SITE_AIR_STRIKE_PLAN = 31,
    SITE_INTERCEPT = 32,
    SITE_INTERCEPT_UAV = 33,
    SITE_PILOTS_FIND = 34,
    SITE_NAI_WATCHERS = 35,
};

/// Next of the 100 fixed values 1..100: raises RSEED (above 100 it is 1 again) and writes the site's number to DiceSite.
/// One roll a statement: the order of rolls is part of the rules.
int Roll_Dice(int site);

/// The fixed values by position 1..100, for tests and the odds.
int Dice_Value(int position);

}   // namespace sm
