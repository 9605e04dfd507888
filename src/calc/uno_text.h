// Converts texts and paths to and from the strings of the component interfaces.
#pragma once

#include <filesystem>
#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace tvx {

rtl::OUString FromUtf8(std::string_view text);
std::string ToUtf8(const rtl::OUString& text);

// The "file:" URL of an absolute path of this machine.
std::string FileUrl(const std::filesystem::path& path);

}  // namespace tvx
