// Texts of the program in both of its languages.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tvx {

// The values are those of the setting.
enum class Language : int32_t { kKorean = 1, kEnglish = 2 };

// The length of the place "{name}" at the start of a text, 0 if there is none. A name consists of
// ASCII letters.
constexpr size_t PlaceLength(std::string_view text) {
  if (!text.starts_with('{')) return 0;
  size_t end = 1;
  while (end < text.size() &&
         ((text[end] >= 'a' && text[end] <= 'z') || (text[end] >= 'A' && text[end] <= 'Z'))) {
    ++end;
  }
  return end > 1 && end < text.size() && text[end] == '}' ? end + 1 : 0;
}

// True if every place of `text` is in `other`, too.
constexpr bool HasPlacesOf(std::string_view other, std::string_view text) {
  for (size_t at = 0; at < text.size(); ++at) {
    const size_t length = PlaceLength(text.substr(at));
    if (length > 0 && other.find(text.substr(at, length)) == other.npos) return false;
  }
  return true;
}

// One text in Korean and in English. Both may hold places for values, "{file}"; a text without the
// place that the other language has does not compile. The name of the constant is the id:
//
//   constexpr Message kCopied{"{count}개를 복사했습니다.", "{count} files were copied."};
struct Message {
  consteval Message(const char* inKorean, const char* inEnglish)
      : korean(inKorean), english(inEnglish) {
    if (!HasPlacesOf(english, korean) || !HasPlacesOf(korean, english)) {
      throw "the two languages have different places for values";
    }
  }

  constexpr const char* In(Language language) const {
    return language == Language::kEnglish ? english : korean;
  }

  const char* korean;
  const char* english;
};

// The value of a place of a message: a text, or an integer in decimal digits.
struct NamedValue {
  NamedValue(std::string_view place, std::string_view value) : name(place), text(value) {}
  NamedValue(std::string_view place, std::integral auto value)
      : name(place), text(std::to_string(value)) {}

  std::string_view name;
  std::string text;
};

// The text in a language with its places replaced by the values of these names. The values are not
// searched: one that looks like a place stays as it is. A place without a value stays, too.
std::string Say(const Message& message, Language language,
                std::initializer_list<NamedValue> values = {});

}  // namespace tvx
