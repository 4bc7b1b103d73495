#pragma once
// The event editor (frmAction): placing, editing and deleting scripted events. Each choice is stored at once;
// closing tells the other seats. Only the game editor and the host of a network game may change events, and nobody
// in a running turn.

#include <string>
#include <string_view>

namespace sm {

inline constexpr const char* MEDIA_WARNING =
    "WARNING!: All special effect files must be copied to the \"Events\" folder";
/// MapMode while the next click places an event.
inline constexpr int MODE_PLACE_EVENT = 200;

bool May_Edit_Events();

/// "Create": the next click on the map places an event.
void Begin_Event();
/// The click. The row whose dialog opens; 0 when all 20 are taken: no dialog opens.
int Place_Event(int x, int y);
/// A click on an event's icon: true when its dialog opens; in play the event is opened.
bool imgEvent_Click(int row);

/// The lists of the dialog, by position (events/event_kinds.h). A position outside its list changes nothing.
void Choose_Event_Kind(int row, int position);   ///< 0 "None"
void Choose_Event_Trigger(int row, int position);
void Choose_Movement_Effect(int row, int position);
void Choose_Attrition(int row, int position);
void Choose_Effect(int row, int position);
void Choose_Media_Kind(int row, int position);
/// Asks for the file of the chosen kind and keeps its name without the folder. Nothing when cancelled.
void Choose_Media_File(int row);
void Set_Event_Message(int row, std::string_view text);

/// The dialog closes. A row left at "None" is free again.
void Close_Event(int row);
/// "Delete", after a question. False when it was answered no.
bool Delete_Event(int row);

/// An event as message 90 carries it.
struct EVENT_ORDER {
    int ROW = 0, X = 0, Y = 0, TYPE = 0, PROBE = 0;
    std::string MESSAGE;
    int ROLE = 0;
    std::string FILE;
    int TOT = 0, TRIGGER = 0, ACTIVE = 0, EFFECT = 0, DURATION = 0, OBSTACLE = 0;
};
/// Fills the row as every other seat does; labels, icon and side follow from kind and trigger.
void Apply_Event(const EVENT_ORDER& order);
/// Frees the row (message 91).
void Remove_Event(int row);

}   // namespace sm
