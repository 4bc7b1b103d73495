#pragma once

namespace sm {

/// Scripted events at a place for a (Blue) unit: they slow or stop it, and those that have not happened yet do so.
/// What they cost is collected in TURNLOSS. They hold up who has just made a step; for a unit that looks around
/// before its first step of a turn, `held_up` is false: with no points to start with it would never get past.
void Event_Check(int unit, int x, int y, bool held_up = true);

/// Shows an event's message and its sound, picture or video; nothing before it has happened, but for Red. A file
/// that is not there stays away without a word.
void Open_Event(int row);

/// Whether this seat sees the event's icon: all do once it has happened, Red always. The icon's corner lies this
/// many pixels up and left of the place.
inline constexpr int EVENT_ICON_OFFSET = 16;
bool Event_Shown(int row);

/// Every event's icon anew.
void Refresh_Events();

}   // namespace sm
