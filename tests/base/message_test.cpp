#include "base/message.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace tvx {
namespace {

TEST(Message, PlacesAreReplacedAfterTheChoiceOfLanguage) {
  constexpr Message kCopied{"{folder}에 {count}개", "{count} files in {folder}, {folder}"};
  const struct {
    Language language;
    std::string_view folder;
    const char* said;
  } cases[] = {
      {Language::kKorean, "z:\\금형", "z:\\금형에 -12개"},
      {Language::kEnglish, "z:\\금형", "-12 files in z:\\금형, z:\\금형"},
      // A value is not searched, even if a later value has its name.
      {Language::kEnglish, "{count}", "-12 files in {count}, {count}"},
      {Language::kEnglish, "", "-12 files in , "},
  };
  for (const auto& [language, folder, said] : cases) {
    EXPECT_EQ(Say(kCopied, language, {{"folder", folder}, {"count", -12}}), said) << folder;
  }
  EXPECT_EQ(Say(kCopied, Language::kEnglish, {{"count", size_t{3}}, {"", "x"}, {"other", "x"}}),
            "3 files in {folder}, {folder}");
}

TEST(Message, OtherBracesAreText) {
  for (const char* const text : {"{", "}", "{}", "{a", "{a b}", "{1}", "x{{a}", "{a}}"}) {
    const std::string_view before = text;
    EXPECT_EQ(HasPlacesOf("", before), before.find("{a}") == before.npos) << text;
  }
  constexpr Message kBraces{"{}{{a}}{", "{}{{a}}{"};
  EXPECT_EQ(Say(kBraces, Language::kEnglish, {{"a", "1"}, {"", "2"}}), "{}{1}{");
}

// The message is made in a constant expression of a template, so that a refusal is no error.
template <auto make>
concept Compiles = requires {
  typename std::integral_constant<bool, (make(), true)>;
};

TEST(Message, LanguagesWithDifferentPlacesDoNotCompile) {
  EXPECT_TRUE((Compiles<[]() consteval { return Message("{b}{a}", "{a} {b} {b}"); }>));
  EXPECT_FALSE((Compiles<[]() consteval { return Message("{a}", "a"); }>));
  EXPECT_FALSE((Compiles<[]() consteval { return Message("a", "{a}"); }>));
  EXPECT_FALSE((Compiles<[]() consteval { return Message("{a}{b}", "{a}{B}"); }>));
}

}  // namespace
}  // namespace tvx
