#include "editors/event_editor.h"

#include "core/platform.h"
#include "core/seat.h"
#include "core/shared.h"
#include "events/event_kinds.h"
#include "events/events.h"
#include "net/protocol.h"

#include <iterator>

namespace sm {

namespace {

constexpr int GAME_EDITOR = 5, HOST = 1;
constexpr std::size_t LONGEST_FILE_FIELD = 50;   // of a message

template <class List>
bool In_List(const List& list, int position)
{
    return position >= 0 && position < static_cast<int>(std::size(list));
}

void Changed() { Screen().Changed(Redraw::GRAPHICS); }

/// Label, icon and side of the row's kind; a row without a kind has none.
void Derive_Kind(PP_RECORD& event)
{
    const EVENT_KIND* kind = Event_Kind(event.PPTYPE);
    event.PPATYPE = kind != nullptr ? kind->LABEL : "";
    event.PPIMAGE = kind != nullptr ? kind->ICON : "";
    event.PPSIDE = kind != nullptr ? Event_Side(*kind) : 0;
}

void Derive_Trigger(PP_RECORD& event)
{
    const int position = event.PPTRIGGER - 1;
    event.PPATRIGGER = In_List(TRIGGER_LABELS, position) ? TRIGGER_LABELS[position] : "";
}

std::string Without_Folder(std::string_view path)
{
    const auto slash = path.find_last_of("\\/");
    return std::string(slash == path.npos ? path : path.substr(slash + 1));
}

void Send_Event(int row)
{
    const PP_RECORD& e = PP[row];
    std::string message;
    const auto number = [&](int field) { message += Cat(To_Text(field), "\xA6"); };
    const auto text = [&](std::string_view field) { message += Cat(field, "\xA6"); };
    number(90);
    for (const int field : {row, static_cast<int>(e.PPX), static_cast<int>(e.PPY), static_cast<int>(e.PPTYPE),
                            static_cast<int>(e.PPPROBE)})
        number(field);
    text(e.PPMSG);
    number(e.PPPROLE);
    text(std::string_view(e.PPPFILE).substr(0, LONGEST_FILE_FIELD));
    for (const int field :
         {static_cast<int>(e.PPTOT), static_cast<int>(e.PPTRIGGER), static_cast<int>(e.PPACTIVE),
          static_cast<int>(e.PPEFFECT), static_cast<int>(e.PPDURATION), static_cast<int>(e.PPOBSTACLE)})
        number(field);
    Send_Net_Message(message);
}

}   // namespace

bool May_Edit_Events() { return !SEAT.TurnRunning && (GameType == GAME_EDITOR || NetRole == HOST); }

void Begin_Event()
{
    if (!May_Edit_Events()) return;
    DrawMode = 0;
    MapMode = MODE_PLACE_EVENT;
}

int Place_Event(int x, int y)
{
    if (!May_Edit_Events()) return 0;
    MapMode = 0;
    const int row = Free_Row(PP, 1, MAX_PP);
    if (row == 0) return 0;
    PP[row] = PP_RECORD{};
    PP[row].PPX = x;
    PP[row].PPY = y;
    return row;
}

bool imgEvent_Click(int row)
{
    if (GameType == GAME_EDITOR) return May_Edit_Events();
    Open_Event(row);
    return false;
}

void Choose_Event_Kind(int row, int position)
{
    if (position < 0 || position > EVENT_KINDS) return;
    PP[row].PPTYPE = position;
    Derive_Kind(PP[row]);
    Changed();
}

void Choose_Event_Trigger(int row, int position)
{
    if (!In_List(TRIGGER_LABELS, position)) return;
    PP[row].PPTRIGGER = position + 1;
    PP[row].PPACTIVE = PP[row].PPTRIGGER == TRIGGER_IMMEDIATE ? 1 : 0;   // an immediate event is born happened
    Derive_Trigger(PP[row]);
    Changed();
}

void Choose_Movement_Effect(int row, int position)
{
    if (In_List(MOVEMENT_LABELS, position)) PP[row].PPOBSTACLE = position;
}

void Choose_Attrition(int row, int position)
{
    if (In_List(ATTRITION, position)) PP[row].PPDURATION = ATTRITION[position];
}

void Choose_Effect(int row, int position)
{
    if (In_List(EFFECT_LABELS, position)) PP[row].PPEFFECT = position;
}

void Choose_Media_Kind(int row, int position)
{
    if (In_List(MEDIA, position)) PP[row].PPPROBE = position;
}

void Choose_Media_File(int row)
{
    const int kind = PP[row].PPPROBE;
    if (kind < 1 || !In_List(MEDIA, kind)) return;
    const std::string path = Screen().Ask_File({"Select Event File", "\\events\\", MEDIA[kind].FILTER, false});
    if (!path.empty()) PP[row].PPPFILE = Clean_Text(Without_Folder(path));
}

void Set_Event_Message(int row, std::string_view text) { PP[row].PPMSG = Clean_Text(text); }

void Close_Event(int row)
{
    if (PP[row].PPTYPE < 1) PP[row] = PP_RECORD{};
    Send_Event(row);
    Changed();
}

bool Delete_Event(int row)
{
    if (!May_Edit_Events() || !Screen().Ask("Stonemarch", "Are you sure that you want to delete this Event?"))
        return false;
    Send_Net_Message(Cat("91\xA6", To_Text(row), "\xA6"));
    Remove_Event(row);
    return true;
}

void Apply_Event(const EVENT_ORDER& order)
{
    if (order.ROW < 1 || order.ROW > MAX_PP) return;
    PP_RECORD& e = PP[order.ROW];
    e = PP_RECORD{};
    e.PPTYPE = order.TYPE;
    if (order.TYPE > 0) {
        e.PPX = order.X;
        e.PPY = order.Y;
        e.PPPROBE = order.PROBE;
        e.PPMSG = order.MESSAGE;
        e.PPPROLE = order.ROLE;
        e.PPPFILE = order.FILE;
        e.PPTOT = order.TOT;
        e.PPTRIGGER = order.TRIGGER;
        e.PPACTIVE = order.ACTIVE;
        e.PPEFFECT = order.EFFECT;
        e.PPDURATION = order.DURATION;
        e.PPOBSTACLE = order.OBSTACLE;
        Derive_Kind(e);
        Derive_Trigger(e);
    }
    Changed();
}

void Remove_Event(int row)
{
    if (row < 1 || row > MAX_PP) return;
    PP[row] = PP_RECORD{};
    Changed();
}

}   // namespace sm
