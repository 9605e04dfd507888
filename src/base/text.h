// CP949 text of files, and UTF-8 text inside the program.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

// False if the system has no converter for CP949. Text can then be neither read nor written: the
// two functions below keep nothing but ASCII.
bool HasCp949();

// CP949 text of a file as UTF-8. A byte that does not decode becomes one private character
// (U+10FF00 + byte) that EncodeCp949 turns back into the same byte, so foreign bytes survive when a
// text is only passed on. Never fails.
std::string DecodeCp949(std::string_view bytes);

// UTF-8 as CP949 (all of modern Hangul). A character that CP949 does not have, or a malformed UTF-8
// sequence, becomes one "?". Never fails.
std::string EncodeCp949(std::string_view utf8);

// The text for output that is not read back: U+FFFD for each byte that did not decode.
std::string ShownText(std::string_view utf8);

// The text for a file of another program, such as a page or a table: U+FFFD for each byte that did
// not decode, each malformed sequence, each control character other than tab, CR and LF, and U+FFFE
// and U+FFFF, which are no characters. The result is well-formed UTF-8.
std::string DocumentText(std::string_view text);

// The text between tags of XML or HTML, or in an attribute: as DocumentText, with "&", "<", ">" and
// both quotes escaped.
std::string MarkupText(std::string_view text);

// True for well-formed UTF-8, plain ASCII included.
bool IsUtf8(std::string_view bytes);

// The position after the UTF-8 character at a position inside the text.
inline size_t CharacterEnd(std::string_view utf8, size_t at) {
  constexpr auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  do ++at;
  while (at < utf8.size() && continues(utf8[at]));
  return at;
}

// Replaces every occurrence of a text, from the front, and goes on after what it put in. Nothing
// happens for an empty `from`.
void ReplaceAll(std::string_view from, std::string_view to, std::string* text);

}  // namespace tvx
