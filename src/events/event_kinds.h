#pragma once
// The lists of scripted events: kinds, triggers, effects, media. The dialog offers them in this order.

#include <string_view>

namespace sm {

/// A kind of event. Its number (PPTYPE) is its place in the list, from 1; 0 is "None".
struct EVENT_KIND {
    const char* LABEL;
    const char* ICON;   ///< file under "\events\"
};
inline constexpr int EVENT_KINDS = 50;
/// Row of a kind 1..50; nullptr for "None" and any other number.
const EVENT_KIND* Event_Kind(int type);
/// 1 Blue, 2 Red, 3 neutral, as the bracket of the label says.
int Event_Side(const EVENT_KIND& kind);

/// PPTRIGGER; the list's first position is 1.
enum Event_Trigger { TRIGGER_IMMEDIATE = 1, TRIGGER_ANY = 2, TRIGGER_LOGISTICS = 3, TRIGGER_COMBAT = 4 };
inline constexpr const char* TRIGGER_LABELS[] = {"Immediate", "Any Blue Unit", "Blue Logistics Unit",
                                                 "Blue Combat Unit"};

/// PPOBSTACLE
inline constexpr const char* MOVEMENT_LABELS[] = {"No Effect", "Slow", "Stop!"};
enum Movement_Effect { MOVES_ON, SLOWS, STOPS };

/// PPDURATION: percent of the power that the unit has left.
inline constexpr int ATTRITION[] = {0, 1, 5, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100};

/// PPEFFECT
inline constexpr const char* EFFECT_LABELS[] = {"None", "Direct Fire", "Indirect Fire", "Mine/Bomb"};
enum Event_Effect { NO_EFFECT, BY_DIRECT_FIRE, BY_INDIRECT_FIRE, BY_MINE };

/// PPPROBE, with the filter of its file dialog
struct EVENT_MEDIA {
    const char* LABEL;
    const char* FILTER;
};
inline constexpr EVENT_MEDIA MEDIA[] = {
    {"None", ""},
    {"Audio File", "Sound Files (*.wav)|*.wav|"},
    {"Picture File", "Picture Files (*.jpg)|*.jpg|bmp (*.bmp)|*.bmp"},
    {"Video File", "Video Files (*.mpg)|*.mpg|AVI (*.avi)|*.avi"},
};

}   // namespace sm
