// Text conversions for the component interfaces.
#include "calc/uno_text.h"

#include "base/format.h"

namespace tvx {

rtl::OUString FromUtf8(std::string_view text) {
  return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string ToUtf8(const rtl::OUString& text) {
  const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<size_t>(bytes.getLength())};
}

std::string FileUrl(const std::filesystem::path& path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string url = "file://";
  for (const char byte : path.string()) {
    if (kPlain.find(byte) != std::string_view::npos) {
      url += byte;
    } else {
      url += Format("%%%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    }
  }
  return url;
}

}  // namespace tvx
