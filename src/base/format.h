// Numbers and words as text.
#pragma once

#include <cstdint>
#include <string>

namespace tvx {

// printf into a string, checked by the compiler, of any length. Numbers have a decimal point
// whatever the locale of the process.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);

// The shortest plain text (no exponent) that reads back to the same 32-bit value: "0.1", "-12",
// "1250.5". Infinite values give "inf" and "-inf", a NaN "nan".
std::string ShortestFloat(float value);

// The same for 64 bits.
std::string ShortestDouble(double value);

// "ON" for 1, else "OFF": a switch in option lines, lists and reports.
inline const char* OnOff(int32_t check) {
  return check == 1 ? "ON" : "OFF";
}

// "1:05:09", hours, minutes and seconds; with a sign if negative. "-" for what is no time.
std::string ClockText(double minutes);

}  // namespace tvx
