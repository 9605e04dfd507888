// Comma-separated values by RFC 4180, for spreadsheet programs and scripts.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tvx {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // byte order mark

// A text as a cell. One that begins like a formula ("=", "+", "-", "@", tab or CR) gets an
// apostrophe in front. It is quoted where a comma, a quote or a line end is in it. Bytes that are
// no text and control characters other than tab, CR and LF become U+FFFD.
std::string CsvText(std::string_view utf8);

// A number as a cell, in its shortest form with a decimal point; empty if it is not finite.
std::string CsvNumber(float value);
std::string CsvNumber(double value);

// Cells as a row, ended by CR LF.
std::string CsvRow(std::span<const std::string> cells);

}  // namespace tvx
