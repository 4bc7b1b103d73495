#pragma once
// Columns of the plain-text reports.

#include <string>

namespace sm {

inline std::string Right(std::string text, std::size_t width)
{
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}
inline std::string Left(std::string text, std::size_t width)
{
    return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
}

}   // namespace sm
