// Splits a line into words without regard to what the parsers make of it.
#include "insight/line_words.h"

#include "base/scan.h"

namespace tvx {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsLetter(char c) {
  return Capital(c) >= 'A' && Capital(c) <= 'Z';
}

// The place after the number that starts at a place, or that place if none does: a sign or none,
// and digits with a point or none.
size_t NumberEnd(std::string_view text, size_t start) {
  size_t at = start;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  bool hasDigit = false, hasPoint = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      hasDigit = true;
    } else if (text[at] == '.' && !hasPoint) {
      hasPoint = true;
    } else {
      break;
    }
  }
  return hasDigit ? at : start;
}

}  // namespace

bool LineWord::IsName() const {
  return letter == 0 && IsLetter(text.front());
}

bool LineWord::IsNumber() const {
  return letter == 0 && !IsLetter(text.front());
}

double LineWord::Value() const {
  return TextToDouble(letter != 0 ? text.substr(1) : text);
}

void LineWords::Read(std::string_view text, bool hasMacros) {
  text_ = text;
  words_.clear();
  parenthesis_ = macro_ = std::string_view::npos;
  for (size_t at = 0; at < text.size();) {
    if (text[at] == '(') {
      if (parenthesis_ == std::string_view::npos) parenthesis_ = at;
      const size_t end = text.find(')', at);
      if (end == std::string_view::npos) return;
      at = end + 1;
    } else if (IsLetter(text[at]) || IsDigit(text[at])) {
      at = ReadWord(at);
    } else {
      if (hasMacros && text[at] == '#' && macro_ == std::string_view::npos) macro_ = at;
      ++at;
    }
  }
}

size_t LineWords::ReadWord(size_t start) {
  size_t end = start;
  while (end < text_.size() && IsLetter(text_[end])) ++end;
  const size_t numberEnd = NumberEnd(text_, end);
  if (end == start) {
    words_.push_back({text_.substr(start, numberEnd - start), start, 0});
    return numberEnd;
  }
  const bool hasNumber = numberEnd > end;
  const size_t nameEnd = hasNumber ? end - 1 : end;
  if (nameEnd > start) words_.push_back({text_.substr(start, nameEnd - start), start, 0});
  if (!hasNumber) return end;
  words_.push_back({text_.substr(nameEnd, numberEnd - nameEnd), nameEnd, Capital(text_[nameEnd])});
  return numberEnd;
}

std::optional<size_t> LineWords::Find(std::string_view name, size_t from) const {
  for (size_t i = from; i < words_.size(); ++i) {
    if (words_[i].text == name && words_[i].letter == 0) return i;
  }
  return std::nullopt;
}

const LineWord* LineWords::Letter(char letter) const {
  for (const LineWord& word : words_) {
    if (word.letter == letter) return &word;
  }
  return nullptr;
}

const LineWord* LineWords::Letter(char letter, double number) const {
  for (const LineWord& word : words_) {
    if (word.Is(letter, number)) return &word;
  }
  return nullptr;
}

}  // namespace tvx
