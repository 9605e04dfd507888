// CP949 conversion by tables that iconv fills once.
#include "base/text.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace tvx {

namespace {

constexpr char32_t kForeignByteBase = 0x10FF00;
constexpr char32_t kMalformed = 0xFFFFFFFF;
constexpr uint8_t kFirstLead = 0x81;
constexpr uint8_t kLastLead = 0xFE;

// Both directions of CP949's two-byte characters, all of which lie in the basic plane; 0 stands for
// none. Filled once from iconv, so that a text meets no converter with a state of its own: what a
// converter does at a broken or cut-off character differs from one to the next.
struct Cp949Table {
  std::array<std::array<char16_t, 256>, 256> characters{};  // by lead and trail byte
  std::array<uint16_t, 0x10000> codes{};                    // by character

  bool isFilled = false;

  Cp949Table() {
    const iconv_t converter = iconv_open("UTF-16LE", "CP949");
    if (reinterpret_cast<std::intptr_t>(converter) == -1) return;
    for (unsigned lead = kFirstLead; lead <= kLastLead; ++lead) {
      for (unsigned trail = 0x40; trail <= 0xFF; ++trail) Add(converter, lead, trail);
    }
    iconv_close(converter);
    constexpr size_t kLead = 0xB0, kTrail = 0xA1;  // the first syllable of the code
    isFilled = characters[kLead][kTrail] == u'\uAC00';
  }

 private:
  void Add(iconv_t converter, unsigned lead, unsigned trail) {
    char pair[2] = {static_cast<char>(lead), static_cast<char>(trail)};
    uint8_t unit[2] = {};
    char* in = pair;
    char* out = reinterpret_cast<char*>(unit);
    size_t inLeft = sizeof pair;
    size_t outLeft = sizeof unit;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &in, &inLeft, &out, &outLeft) != 0 || inLeft != 0 || outLeft != 0) return;
    const auto character = static_cast<char16_t>(unit[0] | unit[1] << 8);
    characters[lead][trail] = character;
    codes[character] = static_cast<uint16_t>(lead << 8 | trail);
  }
};

const Cp949Table& Table() {
  static const Cp949Table kTable;
  return kTable;
}

uint8_t ByteAt(std::string_view text, size_t position) {
  return static_cast<uint8_t>(text[position]);
}

bool IsAscii(char c) {
  return static_cast<uint8_t>(c) < 0x80;
}

// Moves the ASCII characters from *position on, which are the same in both encodings.
void PassAscii(std::string_view text, size_t* position, std::string* result) {
  const auto start = text.begin() + static_cast<std::ptrdiff_t>(*position);
  const auto end = std::find_if_not(start, text.end(), IsAscii);
  result->append(start, end);
  *position = static_cast<size_t>(end - text.begin());
}

void AppendUtf8(char32_t character, std::string* result) {
  const auto unit = [result](char32_t bits) { result->push_back(static_cast<char>(bits)); };
  if (character < 0x80) {
    unit(character);
  } else if (character < 0x800) {
    unit(0xC0 | character >> 6);
    unit(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    unit(0xE0 | character >> 12);
    unit(0x80 | (character >> 6 & 0x3F));
    unit(0x80 | (character & 0x3F));
  } else {
    unit(0xF0 | character >> 18);
    unit(0x80 | (character >> 12 & 0x3F));
    unit(0x80 | (character >> 6 & 0x3F));
    unit(0x80 | (character & 0x3F));
  }
}

// Takes the UTF-8 character at *position, or kMalformed and the bytes that could still have begun
// one, at least the first.
char32_t TakeUtf8(std::string_view text, size_t* position) {
  const uint8_t first = ByteAt(text, (*position)++);
  if (first < 0x80) return first;
  if (first < 0xC2 || first > 0xF4) return kMalformed;
  const int following = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  // The second byte's range leaves out overlong forms, surrogates and what lies beyond U+10FFFF.
  uint8_t lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  uint8_t highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  char32_t character = first & (0x3F >> following);
  for (int i = 0; i < following; ++i) {
    if (*position == text.size()) return kMalformed;
    const uint8_t next = ByteAt(text, *position);
    if (next < lowest || next > highest) return kMalformed;
    character = character << 6 | (next & 0x3F);
    ++*position;
    lowest = 0x80;
    highest = 0xBF;
  }
  return character;
}

}  // namespace

bool HasCp949() {
  return Table().isFilled;
}

std::string DecodeCp949(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 2);
  for (size_t position = 0; position < bytes.size();) {
    PassAscii(bytes, &position, &result);
    if (position == bytes.size()) break;
    const uint8_t lead = ByteAt(bytes, position++);
    const uint8_t trail = position < bytes.size() ? ByteAt(bytes, position) : 0;
    if (const char16_t character = Table().characters[lead][trail]; character != 0) {
      AppendUtf8(character, &result);
      ++position;
      continue;
    }
    AppendUtf8(kForeignByteBase + lead, &result);
    // The second byte of an unknown pair must not be taken for the first of the next one.
    if (lead >= kFirstLead && lead <= kLastLead && trail >= 0x80) {
      AppendUtf8(kForeignByteBase + trail, &result);
      ++position;
    }
  }
  return result;
}

std::string EncodeCp949(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  for (size_t position = 0; position < utf8.size();) {
    PassAscii(utf8, &position, &result);
    if (position == utf8.size()) break;
    const char32_t character = TakeUtf8(utf8, &position);
    const uint16_t code = character < 0x10000 ? Table().codes[character] : 0;
    if (code != 0) {
      result.push_back(static_cast<char>(code >> 8));
      result.push_back(static_cast<char>(code & 0xFF));
    } else if (character >= kForeignByteBase + 0x80 && character <= kForeignByteBase + 0xFF) {
      result.push_back(static_cast<char>(character - kForeignByteBase));
    } else {
      result.push_back('?');
    }
  }
  return result;
}

std::string MarkupText(std::string_view text) {
  std::string markup = DocumentText(text);
  constexpr const char* kEscapes[][2] = {
      {"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}, {"'", "&#39;"}};
  for (const auto& [character, escape] : kEscapes) ReplaceAll(character, escape, &markup);
  return markup;
}

bool IsUtf8(std::string_view bytes) {
  for (size_t position = 0; position < bytes.size();) {
    if (TakeUtf8(bytes, &position) == kMalformed) return false;
  }
  return true;
}

std::string ShownText(std::string_view utf8) {
  // The first bytes of the private characters, U+10FF80 to U+10FFFF.
  constexpr std::string_view kForeign[] = {"\xF4\x8F\xBE", "\xF4\x8F\xBF"};
  std::string shown(utf8);
  for (const std::string_view foreign : kForeign) {
    for (size_t at = shown.find(foreign); at != shown.npos; at = shown.find(foreign, at)) {
      shown.replace(at, CharacterEnd(shown, at) - at, "\uFFFD");
    }
  }
  return shown;
}

std::string DocumentText(std::string_view text) {
  constexpr auto isControl = [](char32_t c) {
    return (c < ' ' && c != '\t' && c != '\r' && c != '\n') || (c >= 0x7F && c < 0xA0);
  };
  std::string result;
  for (size_t position = 0; position < text.size();) {
    const char32_t c = TakeUtf8(text, &position);
    // kMalformed is above the private characters, which begin with kForeignByteBase.
    const bool isCharacter = c < kForeignByteBase && c != 0xFFFE && c != 0xFFFF && !isControl(c);
    AppendUtf8(isCharacter ? c : U'\uFFFD', &result);
  }
  return result;
}

void ReplaceAll(std::string_view from, std::string_view to, std::string* text) {
  if (from.empty()) return;
  for (size_t at = text->find(from); at != std::string::npos; at = text->find(from, at)) {
    text->replace(at, from.size(), to);
    at += to.size();
  }
}

}  // namespace tvx
