// Cuts CP949 text at a limit without splitting a character.

#include "settings/short_text.h"

#include "base/text.h"

namespace tvx {

namespace {

// Bytes of the first character of a CP949 text that is not empty. A byte that cannot follow a
// leading byte, such as a line end, is a character by itself.
size_t CharacterBytes(std::string_view bytes) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
  return byte(0) > 0x80 && bytes.size() > 1 && byte(1) >= 'A' ? 2 : 1;
}

std::string_view WholeCharacters(std::string_view bytes, size_t limit) {
  size_t end = 0;
  while (end < bytes.size()) {
    const size_t next = end + CharacterBytes(bytes.substr(end));
    if (next > limit) break;
    end = next;
  }
  return bytes.substr(0, end);
}

}  // namespace

std::string DecodeShortText(std::string_view bytes, size_t limit) {
  return DecodeCp949(WholeCharacters(bytes, limit));
}

// White space is never part of a CP949 character, so the words are found before decoding.
bool ReadShortWord(WordScanner* bytes, std::string* word) {
  std::string wordBytes;
  if (!bytes->ReadWord(&wordBytes)) return false;
  *word = DecodeShortText(wordBytes, kWordBytes);
  return true;
}

}  // namespace tvx
