#include "core/explain.h"

#include "core/numbers.h"
#include "core/text.h"

namespace sm {

int ExplainUnit = 0;

namespace {

void (*SINK)(std::string_view) = nullptr;

}   // namespace

void Explain_Line(std::string_view text)
{
    if (SINK != nullptr) SINK(text);
}

void Explain_Factor(std::string_view name, float factor, float product)
{
    Explain_Line(Cat("  ", name, " x ", To_Text(factor), " = ", To_Text(product)));
}

void Explain_Modifier(std::string_view name, int added, int sum)
{
    Explain_Line(Cat("  ", name, added < 0 ? " - " : " + ", To_Text(added < 0 ? -added : added), " = ", To_Text(sum)));
}

void Explain_To(void (*sink)(std::string_view line)) { SINK = sink; }

}   // namespace sm
