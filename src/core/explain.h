#pragma once
#include <string>
#include <string_view>

namespace sm {

/// The unit whose fights are being explained, 0 none. The same tables and code that decide print each shot with its
/// base, every factor by name and the running product, each test with its roll and modifiers, each loss.
extern int ExplainUnit;

/// Whether a line about `unit` (or about two units) is wanted. Cheap: test it before building a text.
inline bool Explaining(int unit, int other = 0)
{
    return ExplainUnit != 0 && (ExplainUnit == unit || ExplainUnit == other);
}
void Explain_Line(std::string_view text);
/// "  terrain of the target x 0.75 = 1.35"
void Explain_Factor(std::string_view name, float factor, float product);
/// "  suppression + 5 = 57"
void Explain_Modifier(std::string_view name, int added, int sum);
/// Where the lines go; the command line prints them. nullptr drops them.
void Explain_To(void (*sink)(std::string_view line));

}   // namespace sm
