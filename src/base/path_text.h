// The parts of a path as text: the directory, the name and its ending.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

// The characters that end a directory. Records and files hold drive paths, which use "\" alone; a
// path that a user types or chooses may use "/" as well.
inline constexpr std::string_view kBackslash = "\\";
inline constexpr std::string_view kAnySlash = "\\/";

// The part after the last separator; the whole path if it has none.
inline std::string NameOfPath(std::string_view path, std::string_view separators) {
  return std::string(path.substr(path.find_last_of(separators) + 1));
}

// The part of the name after its last dot, "nc" of "c:\\a\\b.nc"; empty if it has none.
inline std::string EndingOfPath(std::string_view path, std::string_view separators) {
  const std::string name = NameOfPath(path, separators);
  const size_t dot = name.rfind('.');
  return dot == std::string::npos ? "" : name.substr(dot + 1);
}

// The part before the last separator, "c:\a" of "c:\a\b.nc"; empty if the path has none.
inline std::string DirectoryOfPath(std::string_view path, std::string_view separators) {
  const size_t separator = path.find_last_of(separators);
  return std::string(separator == std::string_view::npos ? "" : path.substr(0, separator));
}

// The part before the name, with its separator: "c:\a\" of "c:\a\b.nc".
inline std::string PathBeforeName(std::string_view path, std::string_view separators) {
  return std::string(path.substr(0, path.find_last_of(separators) + 1));
}

}  // namespace tvx
