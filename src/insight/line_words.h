// The words of a program line, as people and machines read them. What the program itself makes of a
// line is the parsers' business.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tvx {

struct LineWord {
  std::string_view text;  // in the line: "X10.", "CYCL", "12"
  size_t start = 0;       // of the text in the line
  // The capital of a letter that is directly followed by its number; 0 for letters alone and for a
  // number alone.
  char letter = 0;

  size_t End() const { return start + text.size(); }
  bool IsName() const;
  bool IsNumber() const;
  // The number after the letter, or the number alone.
  double Value() const;
  bool Is(char wanted, double number) const { return letter == wanted && Value() == number; }
};

// The words of one line outside its comments: from "(" to the next ")" or the end of the line.
// Letters in front of a letter with a number are a word of their own, so "CRX1" is "CR" and "X1".
class LineWords {
 public:
  // The text has to outlive the words. `hasMacros`: "#" is looked for.
  void Read(std::string_view text, bool hasMacros);

  const std::vector<LineWord>& All() const { return words_; }
  std::string_view Text() const { return text_; }
  // Places of the first "(", and of the first "#" outside comments; npos for none.
  size_t Parenthesis() const { return parenthesis_; }
  size_t Macro() const { return macro_; }

  // The index of the first such name from a word on.
  std::optional<size_t> Find(std::string_view name, size_t from = 0) const;
  bool Has(std::string_view name) const { return Find(name).has_value(); }
  // The first word of a letter with a number; null if there is none.
  const LineWord* Letter(char letter) const;
  const LineWord* Letter(char letter, double number) const;

 private:
  size_t ReadWord(size_t start);

  std::string_view text_;
  std::vector<LineWord> words_;
  size_t parenthesis_ = std::string_view::npos;
  size_t macro_ = std::string_view::npos;
};

}  // namespace tvx
