#include "support/staff_problem.h"

#include "combat/ground_combat.h"
#include "combat/retreat.h"
#include "core/unit_reset.h"
#include "support/board.h"
#include "support/fields.h"
#include "support/log_lines.h"
#include "support/scratch.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>

namespace sm::test {

namespace {

struct WORD {
    std::string_view TEXT, MEANS;
};
// clang-format off
constexpr WORD WORDS[] = {
    {"tanks", "TYPE 5, MOBILITY 2"}, {"mechanised infantry", "TYPE 20, MOBILITY 2"},
    {"infantry", "TYPE 19, MOBILITY 0"}, {"cavalry", "TYPE 6, MOBILITY 2"}, {"scouts", "TYPE 24, MOBILITY 1"},
    {"engineers", "TYPE 14, MOBILITY 2"}, {"guns", "TYPE 8, MOBILITY 2"}, {"air defence", "TYPE 1, MOBILITY 2"},
    {"headquarters", "TYPE 18, MOBILITY 1"}, {"depot", "TYPE 13, MOBILITY 1"},
    {"psyops", "TYPE 23, MOBILITY 1"}, {"attack helicopters", "TYPE 11, MOBILITY 3"},
    {"convoy", "TYPE 13, SIZE 100, MOBILITY 1, TACOPN 4"}, {"squad", "SIZE 0"}, {"company", "SIZE 2"},
    {"battalion", "SIZE 3"}, {"brigade", "SIZE 4"}, {"attacks", "TACOPN 0"}, {"defends", "TACOPN 1"},
    {"breaches", "TACOPN 2"}, {"screens", "TACOPN 3"}, {"withdraws", "TACOPN 4"}, {"dug in", "TACOPN 11"},
    {"marches", "MOVESTATUS 2"}, {"flies", "MOVESTATUS 9"}, {"holds fire", "ROE 1"},
    {"ineffective", "STATUS 1, STRENGTH 30"}, {"out of supply", "LOGSTATN 0"},
};
// clang-format on

const FIELD* Unit_Field(std::string_view key)
{
    for (const FIELD& field : Fields<UNIT_RECORD>())
        if (key == field.KEY) return &field;
    return nullptr;
}

class Player {
public:
    std::vector<std::string> Play(std::string text)
    {
        while (!text.empty()) {
            std::string line = Split_Token(text, '\n');
            ++line_;
            line =
                std::string(Trim_Right(line.substr(0, line.find('#') == line.npos ? line.size() : Comment(line))));
            if (Trim(line).empty()) continue;
            if (line[0] != ' ')
                Open(line);
            else
                Read(std::string(Trim(line)));
        }
        return failures_;
    }

private:
    /// A "#" of the ground is a town: only one behind a blank, and not in a row of the ground, begins a comment.
    std::size_t Comment(const std::string& line) const
    {
        if (section_ == "ground" && line[0] == ' ') return line.size();
        const std::size_t at = line.find(" #");
        return line[0] == '#' ? 0 : at == line.npos ? line.size() : at;
    }

    void Open(const std::string& line)
    {
        if (section_ == "ground" && board_ == nullptr) Lay_Ground();
        if (section_ == "forces") Deploy();
        std::string rest = line;
        section_ = Split_Token(rest, ' ');
        if (section_ == "dice")
            RSEED = first_roll_ = Number(rest);
        else if (section_ != "ground" && section_ != "forces" && section_ != "orders" && section_ != "outcome")
            Fail(Cat("no section \"", section_, "\""));
    }

    void Read(const std::string& line)
    {
        if (section_ == "ground" && line.starts_with("under "))
            under_[line.at(6)] = line.at(8);
        else if (section_ == "ground")
            rows_.push_back(line);
        else if (section_ == "forces")
            Form(line);
        else if (section_ == "orders")
            Order(line);
        else if (section_ == "outcome")
            Judge(line);
    }

    void Lay_Ground()
    {
        const int columns = static_cast<int>(rows_.front().size());
        board_ = std::make_unique<Board>(columns, static_cast<int>(rows_.size()));
        log_ = std::make_unique<Log_Lines>();   // a fresh board ends all listening
        static constexpr std::string_view GROUND = ".123456=~#^S";
        static constexpr int VALUES[] = {0, 1, 2, 3, 4, 5, 6, 7, 5, 4, 0, 10};
        for (int row = 1; row <= static_cast<int>(rows_.size()); ++row) {
            for (int column = 1; column <= columns; ++column) {
                char c = rows_[row - 1].at(column - 1);
                if (c >= 'A' && c <= 'Z' && c != 'S') {
                    place_[c] = {board_->Centre(column), board_->Centre(row)};
                    c = under_.count(c) ? under_[c] : '.';
                }
                const std::size_t kind = GROUND.find(c);
                HEXMAP_RECORD& cell = HEXMAP[Hex_Of(column, row)];
                cell.TVALUE = kind == GROUND.npos ? 0 : VALUES[kind];
                cell.THIGH = c == '^' ? 1 : 0;
            }
        }
    }

    /// A  Blue "1-68 Armor"  tanks, RCP 10
    void Form(const std::string& line)
    {
        std::string rest = line;
        const std::string letter = Split_Token(rest, ' ');
        rest = std::string(Trim(rest));
        const std::string side = Split_Token(rest, '"');
        const std::string name = Split_Token(rest, '"');
        const Point at = place_.count(letter[0]) ? place_[letter[0]] : Point{5, 5};
        const int u = board_->Place(Trim(side) == "Blue" ? BLUE : RED, at.X, at.Y);
        unit_[letter] = u;
        UNIT[u].NAME = name;
        while (!rest.empty()) Set(u, std::string(Trim(Split_Token(rest, ','))));
    }

    void Set(int u, std::string word)
    {
        for (const WORD& known : WORDS)
            if (word == known.TEXT) return Give(UNIT[u], known.MEANS);
        std::string key = Split_Token(word, ' ');
        if (unit_.count(std::string(Trim(word))))
            Store(u, key, static_cast<float>(unit_[std::string(Trim(word))]));
        else if (const auto value = Parse_Float(Trim(word)))
            Store(u, key, *value);
        else
            Fail(Cat("what is \"", key, " ", word, "\"?"));
    }

    void Store(int u, std::string_view key, float value)
    {
        if (Unit_Field(key) == nullptr) return Fail(Cat("no field ", key));
        Give(UNIT[u], Cat(key, " ", To_Text(value)));
        if (key == "RCP") UNIT[u].RCP2 = UNIT[u].RCP3 = value;
    }

    void Deploy()
    {
        for (const auto& [letter, u] : unit_) {
            Place_Unit(u, UNIT[u].X, UNIT[u].Y);
            Set_Footprint(u);
            if (UNIT[u].TACOPN == 3) Set_Screen(u);
        }
    }

    void Order(const std::string& line)
    {
        std::string rest = line;
        const std::string verb = Split_Token(rest, ' ');
        if (verb == "combat")
            Ground_Combat_Phase();
        else if (verb == "reset")
            Reset_Units();
        else if (verb == "look")
            Engage_Unit(Force(rest), 1);
        else if (verb == "retreat")
            Retreat_Unit(Force(rest));
        else if (verb == "surrender")
            Surrender_Unit(Force(rest));
        else
            Fail(Cat("no order \"", line, "\""));
    }

    void Judge(const std::string& line)
    {
        const std::size_t quote = line.find('"');
        if (quote != line.npos) {
            Judge_Text(line.substr(0, line.find(' ')), line.substr(quote + 1, line.rfind('"') - quote - 1));
            return;
        }
        std::string rest = line;
        const std::string subject = Split_Token(rest, ' ');
        rest = std::string(Trim(rest));
        if (subject == "rolls")
            Compare("rolls", static_cast<float>(RSEED - first_roll_), rest);
        else if (rest == "gone")
            Compare(line, static_cast<float>(UNIT[Force(subject)].STATUS), "0");
        else if (const std::size_t dot = subject.find('.'); dot == subject.npos)
            Fail(Cat("what is \"", line, "\"?"));
        else if (const FIELD* field = Unit_Field(subject.substr(dot + 1)); field == nullptr)
            Fail(Cat("no field ", subject));
        else
            Compare(subject, static_cast<float>(Field_Number(&UNIT[Force(subject.substr(0, dot))], *field)), rest);
    }

    void Judge_Text(const std::string& kind, const std::string& text)
    {
        const std::vector<std::string> told = Messages();
        if (kind == "told") {
            const auto at = std::find(told.begin() + told_, told.end(), text);
            if (at == told.end())
                Fail(Cat("not told: \"", text, "\""));
            else
                told_ = at - told.begin() + 1;
        } else if (kind == "untold") {
            if (std::find(told.begin(), told.end(), text) != told.end()) Fail(Cat("told: \"", text, "\""));
        } else if (kind == "status" || kind == "log") {
            const bool there = kind == "log" ? log_->Count(text) > 0 : board_->SCREEN.Heard("status", text);
            if (!there) Fail(Cat("no ", kind, " line \"", text, "\""));
        } else {
            Fail(Cat("what is \"", kind, "\"?"));
        }
    }

    void Compare(const std::string& what, float value, const std::string& expected)
    {
        const auto wanted = Parse_Float(expected);
        if (!wanted)
            Fail(Cat("no number: ", expected));
        else if (std::fabs(value - *wanted) > 0.00005f * std::max(1.0f, std::fabs(*wanted)))
            Fail(Cat(what, " is ", To_Text(value), ", expected ", expected));
    }

    int Force(const std::string& letter)
    {
        const auto found = unit_.find(std::string(Trim(letter)));
        if (found == unit_.end()) throw std::runtime_error(Cat("line ", To_Text(line_), ": no force ", letter));
        return found->second;
    }
    static int Number(const std::string& text) { return Round_Even(Parse_Float(Trim(text)).value_or(0)); }
    void Fail(const std::string& text) { failures_.push_back(Cat("line ", To_Text(line_), ": ", text)); }

    int line_ = 0, first_roll_ = 0;
    std::ptrdiff_t told_ = 0;
    std::string section_;
    std::vector<std::string> rows_, failures_;
    std::map<char, Point> place_;
    std::map<char, char> under_;
    std::map<std::string, int> unit_;
    std::unique_ptr<Board> board_;
    std::unique_ptr<Log_Lines> log_;
};

}   // namespace

std::vector<std::string> Play_Staff_Problem(const std::filesystem::path& file)
{
    try {
        return Player().Play(File_Content(file));
    } catch (const std::exception& failure) {
        return {failure.what()};
    }
}

}   // namespace sm::test
