#pragma once
#include <string>
#include <string_view>

namespace sm {

/// Pieces of the self-contained pages that reports are written as (UTF-8).
std::string Html_Head(std::string_view title);   ///< up to the opened body, with the common style
std::string Html_End();
std::string Html_Text(std::string_view utf8);   ///< with &, <, > and quotes escaped
/// A number with at most one decimal.
std::string Html_Number(double value);
/// A map picture as a data address: a bitmap of 24 bits is reduced by a whole factor until it is small enough to
/// travel in a page, a JPEG goes as it is. Empty when there is none or it cannot be read.
std::string Html_Picture(const std::string& path);

}   // namespace sm
