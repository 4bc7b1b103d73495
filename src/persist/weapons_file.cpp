#include "persist/weapons_file.h"

#include "core/game_state.h"
#include "core/log.h"
#include "core/platform.h"
#include "persist/failure.h"
#include "persist/keyed_text.h"
#include "persist/program_folder.h"
#include "persist/safe_file.h"

#include <filesystem>

namespace sm {

namespace {

constexpr std::size_t MOST_WEAPONS_BYTES = std::size_t{64} << 20;

const FIELD* Weapon_Field(std::string_view key)
{
    for (const FIELD& field : Fields<WPN_RECORD>())
        if ((field.CARRIERS & READ) != 0 && Same_Ignoring_Case(key, field.KEY)) return &field;
    return nullptr;
}

/// One line into the table. 0, or the number of the failure.
int Read_Weapons_Line(std::string_view line, std::string& fault)
{
    const KEYED_LINE parts = Take_Apart(line);
    const FIELD* field = Weapon_Field(parts.KEY);
    if (field == nullptr) return 0;
    if (field == &Fields<WPN_RECORD>().front()) {
        if (WPN.Count() >= MAX_WPN) {
            fault = Cat("more than ", To_Text(MAX_WPN), " rows");
            return ERROR_RANGE;
        }
        WPN.ROW.emplace_back();
    }
    if (WPN.Count() == 0) {
        fault = Cat(field->KEY, " stands before the first row");
        return ERROR_RANGE;
    }
    const int failure = Store_Value(&WPN.ROW.back(), *field, parts.VALUE);
    if (failure != 0)
        fault = Cat("\"", parts.VALUE.substr(0, 40), "\" is no number that ", field->KEY, " can hold");
    return failure;
}

bool Read_Weapons(const std::filesystem::path& path, bool stock)
{
    const FILE_READ file = Read_File_Whole(path, MOST_WEAPONS_BYTES);
    int failure = 0;
    if (file.ERROR.empty()) {
        failure = Read_Weapons_Text(file.CONTENT);
    } else {
        WPN.ROW.clear();
        failure = file.MISSING ? ERROR_NO_FILE : ERROR_DISK;
        Log(Cat(Failure_Text(failure), ", ", file.ERROR));
    }
    if (failure != 0 && !(stock && file.MISSING)) Screen().Box(FAILURE_TITLE, Failure_Text(failure));
    Log("End of file process");
    return failure == 0;
}

}   // namespace

int Read_Weapons_Text(std::string_view text)
{
    WPN.ROW.clear();
    Log("Loading weapons file...");
    int line = 0, failure = 0;
    std::string fault, copy;
    text = With_Line_Ends(text, copy);
    while (failure == 0 && !text.empty()) {
        ++line;
        failure = Read_Weapons_Line(Next_Line(text), fault);
    }
    if (failure == 0 && WPN.Count() == 0) {
        failure = ERROR_END_OF_FILE;
        fault = "no row in the file";
    }
    Log(failure == 0 ? "Weapons file is loaded"
                     : Cat(Failure_Text(failure), ", line ", To_Text(line), ": ", fault));
    return failure;
}

bool Read_Weapons_File(const std::string& path) { return Read_Weapons(File_Place(path), false); }

bool Read_Stock_Weapons() { return Read_Weapons(Home_Path("SMW.wef"), true); }

}   // namespace sm
