#include "core/game_state.h"
#include "persist/fault_list.h"
#include "persist/field_check.h"
#include "persist/keyed_text.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"
#include "terrain/grid.h"
#include "terrain/map.h"

#include <algorithm>
#include <filesystem>

namespace sm {

namespace {

constexpr std::size_t MOST_CHECKED_BYTES = std::size_t{64} << 20;
constexpr int MOST_FAULTS = 1000;

/// What a value of the grid may be beside the base values: an obstacle or a fortification on one of them.
bool Is_Overlay(int value) { return (value >= 11 && value <= 18) || (value >= 21 && value <= 31); }

int Low_First_16(std::string_view bytes, std::size_t at)
{
    const int bits = static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
    return bits < 32768 ? bits : bits - 65536;
}

const FIELD* Weapon_Field(std::string_view key)
{
    for (const FIELD& field : Fields<WPN_RECORD>())
        if (Same_Ignoring_Case(key, field.KEY)) return &field;
    return nullptr;
}

/// The rows of a weapons file, one line after the other.
struct Weapons_Check {
    Fault_List& FAULTS;
    std::span<const FIELD> FIELDS = Fields<WPN_RECORD>();
    WPN_RECORD ROW{};
    int ROWS = 0, ROW_LINE = 0;
    std::vector<int> LINES = std::vector<int>(FIELDS.size());

    void End_Row()
    {
        if (ROWS == 0) return;
        std::string missing;
        for (std::size_t f = 0; f < FIELDS.size(); ++f)
            if (LINES[f] == 0) missing += Cat(missing.empty() ? "" : ", ", FIELDS[f].KEY);
        if (!missing.empty()) FAULTS.Fault(ROW_LINE, Cat(Row_Name(), " has no ", missing));
    }
    std::string Row_Name() const { return Cat("WPN[", To_Text(ROWS), "]"); }

    void Line(int number, std::string_view line)
    {
        const KEYED_LINE parts = Take_Apart(line);
        const FIELD* field = Weapon_Field(parts.KEY);
        if (field == nullptr) {
            if (!parts.KEY.empty()) FAULTS.Remark(number, Unknown_Key(parts.KEY));
            return;
        }
        const std::size_t f = static_cast<std::size_t>(field - FIELDS.data());
        if (f == 0) {
            End_Row();
            ROW = WPN_RECORD{};
            std::fill(LINES.begin(), LINES.end(), 0);
            ROW_LINE = number;
            if (++ROWS == MAX_WPN + 1) FAULTS.Fault(number, Cat("more than ", To_Text(MAX_WPN), " rows"));
            if (parts.VALUE.empty()) FAULTS.Fault(number, Cat(Row_Name(), " has no name"));
        } else if (ROWS == 0) {
            FAULTS.Fault(number, Cat(field->KEY, " stands before the first row"));
            return;
        } else if (LINES[f] != 0) {
            FAULTS.Fault(number,
                         Cat(Row_Name(), ".", field->KEY, " stands twice, in line ", To_Text(LINES[f]), " first"));
        }
        LINES[f] = number;
        Check_Value(FAULTS, number, Cat(Row_Name(), ".", field->KEY), &ROW, *field, parts.VALUE);
    }
};

}   // namespace

void Fault_List::Add(int line, bool fault, std::string text)
{
    if (static_cast<int>(found_.size()) < MOST_FAULTS) {
        found_.push_back({line, fault, std::move(text)});
        return;
    }
    ++dropped_;
    dropped_fault_ = dropped_fault_ || fault;
}

std::vector<File_Fault> Fault_List::In_Order()
{
    std::stable_sort(found_.begin(), found_.end(),
                     [](const File_Fault& a, const File_Fault& b) { return a.LINE < b.LINE; });
    const int last = found_.empty() ? 0 : found_.back().LINE;
    if (dropped_ > 0) found_.push_back({last, dropped_fault_, Cat("and ", To_Text(dropped_), " more")});
    return std::move(found_);
}

void Check_Weapons(std::string_view text, Fault_List& faults)
{
    Weapons_Check check{.FAULTS = faults};
    std::string copy;
    text = With_Line_Ends(text, copy);
    int number = 0;
    while (!text.empty()) check.Line(++number, Next_Line(text));
    check.End_Row();
    if (check.ROWS == 0) faults.Fault(number, "no row of unit types in the file");
}

void Check_Terrain(std::string_view content, Fault_List& faults)
{
    const std::size_t cells = content.size() / TERRAIN_RECORD_BYTES;
    if (cells == 0) faults.Fault(0, "no cell in the file");
    if (content.size() % TERRAIN_RECORD_BYTES != 0)
        faults.Fault(static_cast<int>(cells) + 1,
                     Cat("the last record has ", To_Text(static_cast<int>(content.size() % TERRAIN_RECORD_BYTES)),
                         " bytes of ", To_Text(TERRAIN_RECORD_BYTES)));
    if (cells > MAX_HEX) faults.Fault(MAX_HEX + 1, Cat("more than ", To_Text(MAX_HEX), " cells"));
    for (std::size_t k = 0; k < std::min<std::size_t>(cells, MAX_HEX); ++k) {
        const std::string_view record = content.substr(k * TERRAIN_RECORD_BYTES, TERRAIN_RECORD_BYTES);
        const int number = static_cast<int>(k) + 1;
        const int value = Low_First_16(record, 0);
        const std::string cell = Cat("record ", To_Text(number), ": TVALUE ", To_Text(value));
        if (Is_Overlay(value))
            faults.Remark(number, Cat(cell, " is an obstacle or a fortification, no ground"));
        else if (Terrain_Name(value) == nullptr)
            faults.Fault(number, Cat(cell, " is no terrain value"));
        const std::string_view name = record.substr(2, 15);
        if (std::any_of(name.begin(), name.end(), [](char c) { return c >= 0 && c < ' '; }))
            faults.Fault(number, Cat("record ", To_Text(number), ": TNAME is no text"));
    }
}

std::vector<File_Fault> Check_File(const std::string& path)
{
    const std::filesystem::path place = File_Place(path);
    const std::string kind = Upper(place.extension().string());
    const FILE_READ file = Read_File_Whole(place, MOST_CHECKED_BYTES);
    Fault_List faults;
    if (!file.ERROR.empty())
        faults.Fault(0, file.ERROR);
    else if (kind == ".TER")
        Check_Terrain(file.CONTENT, faults);
    else if (kind == ".WEF")
        Check_Weapons(file.CONTENT, faults);
    else if (kind == ".SCE" || kind == ".BTL" || kind == ".PBM")
        Check_Game(file.CONTENT, kind == ".SCE", faults);
    else
        faults.Fault(0, "not the name of a game (.sce, .btl, .pbm), terrain (.ter) or weapons (.wef) file");
    return faults.In_Order();
}

}   // namespace sm
