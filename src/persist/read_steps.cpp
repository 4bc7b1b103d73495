#include "persist/read_steps.h"

#include "core/game_state.h"
#include "persist/keyed_text.h"

#include <array>
#include <bit>

namespace sm {

namespace {

// ------------------------------------------------------------------------------------------------ side effects

void Look_For_Named(ICON_SEARCH& icons, std::string_view name)
{
    if (!name.empty()) Look_For_Icon(icons, name);
}

template <class Record>
const Record& As(const char* record)
{
    return *reinterpret_cast<const Record*>(record);
}

void Unit_Picture(const char* r, ICON_SEARCH& icons)
{
    if (Used(As<UNIT_RECORD>(r))) Look_For_Icon(icons, As<UNIT_RECORD>(r).IMAGE);
}
void Graphic_Picture(const char* r, ICON_SEARCH& icons)
{
    if (Used(As<P_RECORD>(r))) Look_For_Named(icons, As<P_RECORD>(r).PIMAGE);
}
void Contamination_Picture(const char* r, ICON_SEARCH& icons)
{
    Look_For_Named(icons, NBC_Icon(As<NBC_RECORD>(r).NBCTYPE));
}
void Objective_Picture(const char* r, ICON_SEARCH& icons)
{
    Look_For_Named(icons, Objective_Icon(As<OBJ_RECORD>(r).OTYPE));
}

/// What a key does beside storing its value: the record's picture goes onto the map. At most one for each table.
struct SIDE_EFFECT {
    const char* KEY;
    void (*RUN)(const char* record, ICON_SEARCH& icons);
};
constexpr SIDE_EFFECT SIDE_EFFECTS[] = {
    {"STATUS", Unit_Picture},
    {"PIMAGE", Graphic_Picture},
    {"NBCTYPE", Contamination_Picture},
    {"OVALUE", Objective_Picture},   // the last key: an objective shows as its record ends
};

std::vector<STEP> Make_Steps()
{
    std::vector<STEP> steps;
    for (const READ_KEY& key : Read_Keys()) {
        STEP step{key.START, key.TO->KIND, key.TO->OFFSET, key.PART,     key.EXPECTED,
                  key.FIRST, key.TO,       key.TO->LOW,    key.TO->HIGH, nullptr};
        for (const SIDE_EFFECT& effect : SIDE_EFFECTS)
            if (key.Key() == effect.KEY) step.SIDE_EFFECT = effect.RUN;
        steps.push_back(step);
    }
    return steps;
}

std::array<std::vector<RECORD_LINE>, FILE_PARTS> Make_Record_Lines()
{
    std::array<std::vector<RECORD_LINE>, FILE_PARTS> lines;
    for (int p = 0; p < FILE_PARTS; ++p)
        for (const WRITTEN_LINE& written : Written_Lines(p)) {
            const std::string_view start = std::string_view(written.START).substr(0, written.START.size() - 1);
            const int known = Find_Read_Key(start.substr(0, start.size() - 1));
            lines[p].push_back({start, known < 0 ? nullptr : &Steps()[known]});
        }
    return lines;
}

// ------------------------------------------------------------------------------------------------ plain numbers

bool At_Line_End(const char* at, const char* end) { return end - at >= 2 && at[0] == '\r' && at[1] == '\n'; }

/// A whole number as the writer makes it, at most 7 digits with CR LF behind them. False, with nothing changed,
/// for every other form.
bool Take_Plain_Whole(const char*& at, const char* end, int& value)
{
    const char* p = at;
    while (p < end && *p == ' ') ++p;
    const bool minus = p < end && *p == '-';
    if (minus) ++p;
    const char* const digits = p;
    int n = 0;
    for (; p < end && p - digits < 7 && *p >= '0' && *p <= '9'; ++p) n = n * 10 + (*p - '0');
    if (p == digits || !At_Line_End(p, end)) return false;
    value = minus ? -n : n;
    at = p + 2;
    return true;
}

constexpr double POWER_OF_10[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The same for a real of at most 15 digits. Digits and power of ten are exact in double, so the quotient is the
/// nearest double; where that lies so close to the middle between two reals of 32 bits that rounding it again
/// might go the wrong way, the form counts as not plain.
bool Take_Plain_Real(const char*& at, const char* end, float& value)
{
    const char* p = at;
    while (p < end && *p == ' ') ++p;
    const bool minus = p < end && *p == '-';
    if (minus) ++p;
    std::int64_t digits = 0;
    int count = 0, decimals = 0;
    for (; p < end && count < 15 && *p >= '0' && *p <= '9'; ++p, ++count) digits = digits * 10 + (*p - '0');
    if (p < end && *p == '.')
        for (++p; p < end && count < 15 && *p >= '0' && *p <= '9'; ++p, ++count, ++decimals)
            digits = digits * 10 + (*p - '0');
    if (count == 0 || !At_Line_End(p, end)) return false;

    const double exact = static_cast<double>(digits) / POWER_OF_10[decimals];
    constexpr std::uint64_t LOST_BITS = (std::uint64_t{1} << 29) - 1, MIDDLE = std::uint64_t{1} << 28;
    const std::uint64_t lost = std::bit_cast<std::uint64_t>(exact) & LOST_BITS;
    if (lost + 1 >= MIDDLE && lost <= MIDDLE + 1) return false;
    const float real = static_cast<float>(exact);   // 1e-15 at least: never near the end of the range
    value = minus ? -real : real;
    at = p + 2;
    return true;
}

}   // namespace

const std::vector<STEP>& Steps()
{
    static const std::vector<STEP> STEPS = Make_Steps();
    return STEPS;
}

const std::vector<RECORD_LINE>& Record_Lines(int part)
{
    static const auto LINES = Make_Record_Lines();
    return LINES[part];
}

int Side_Effect_Line(int part)
{
    const std::vector<RECORD_LINE>& lines = Record_Lines(part);
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].TAKE != nullptr && lines[i].TAKE->SIDE_EFFECT != nullptr) return static_cast<int>(i);
    return -1;
}

int Take_Value(const STEP& step, char* record, const char*& at, const char* end, const STEP*& outside)
{
    const char* const value_start = at;
    const auto note = [&](double number) {
        if ((number < step.LOW || number > step.HIGH) && outside == nullptr) outside = &step;
    };
    if (step.KIND == Kind::I16) {
        int whole = 0;
        if (Take_Plain_Whole(at, end, whole) && whole >= -32768 && whole <= 32767) {
            *reinterpret_cast<Int16*>(record + step.OFFSET) = whole;
            note(whole);
            return 0;
        }
    } else if (step.KIND == Kind::F32) {
        float real = 0;
        if (Take_Plain_Real(at, end, real)) {
            *reinterpret_cast<float*>(record + step.OFFSET) = real;
            note(static_cast<double>(real));
            return 0;
        }
    }
    std::string_view rest(value_start, static_cast<std::size_t>(end - value_start));
    const std::string_view value = Trim(Next_Line(rest));
    at = end - rest.size();
    const int failure = Store_Value(record, *step.TO, value);
    if (failure == 0 && step.KIND != Kind::TEXT && step.KIND != Kind::FREE) note(Field_Number(record, *step.TO));
    return failure;
}

}   // namespace sm
