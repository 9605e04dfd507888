// One pass over the characters of a line, without memory of its own: all lines of all programs come
// through here.
#include "control/word_scanner.h"

#include <bit>
#include <cstddef>

#include "control/nc_text.h"

namespace tvx {
namespace {

constexpr std::string_view kKeywords[] = {"IF", "THEN", "GOTO", "WHILE", "DO", "END"};

struct OKeywordName {
  std::string_view name;
  OKeyword::Kind kind;
};
constexpr OKeywordName kOKeywords[] = {
    {"SUB", OKeyword::Kind::kSub},        {"ENDSUB", OKeyword::Kind::kEndSub},
    {"IF", OKeyword::Kind::kOther},       {"ELSE", OKeyword::Kind::kOther},
    {"ENDIF", OKeyword::Kind::kOther},    {"WHILE", OKeyword::Kind::kOther},
    {"ENDWHILE", OKeyword::Kind::kOther}, {"DO", OKeyword::Kind::kOther},
    {"REPEAT", OKeyword::Kind::kOther},   {"ENDREPEAT", OKeyword::Kind::kOther},
    {"CALL", OKeyword::Kind::kOther},     {"RETURN", OKeyword::Kind::kOther},
    {"BREAK", OKeyword::Kind::kOther},    {"CONTINUE", OKeyword::Kind::kOther},
};

bool IsLetter(char c) {
  return GlyphOf(c) == Glyph::kLetter;
}

// Takes "<name>" and returns a value that is the same for the same name.
bool TakeOName(const char** text, uint64_t* name) {
  const char* next = SkipBlanks(*text);
  if (*next != '<') return false;
  *name = 0xCBF29CE484222325;  // FNV-1a
  for (next = SkipBlanks(next + 1); *next != '>'; next = SkipBlanks(next + 1)) {
    if (*next == '\n') return false;
    *name = (*name ^ static_cast<unsigned char>(UpperLetter(*next))) * 0x100000001B3;
  }
  *text = next + 1;
  return true;
}

bool TakeOKeyword(const char* text, OKeyword* keyword) {
  for (const OKeywordName& row : kOKeywords) {
    const char* next = text;
    if (!TakeName(&next, row.name)) continue;
    keyword->kind = row.kind;
    return true;
  }
  return false;
}

class Scan {
 public:
  Scan(const char* text, WordLine* words, OKeyword* keyword)
      : next_(text), words_(*words), keyword_(*keyword) {}

  LineForm Line() {
    next_ = SkipBlanks(next_);
    if (*next_ == '%') return LineForm::kIgnored;
    if (*next_ == '/') SkipBlockDelete();
    for (;;) {
      const char c = *next_;
      const Glyph glyph = GlyphOf(c);
      if (glyph == Glyph::kLetter) [[likely]] {
        const char letter = static_cast<char>(c & 0xDF);
        if (!ShortWord(letter) && !Word(letter)) [[unlikely]]
          return form_;
      } else if (glyph == Glyph::kLineFeed) {
        return LineForm::kWords;
      } else if (glyph == Glyph::kBlank || glyph == Glyph::kComment) {
        next_ = SkipBlanks(next_);
      } else if (!Other(c)) {
        return form_;
      }
    }
  }

 private:
  // A word as nearly all are written: a letter and a number of few digits, followed by the next
  // word, a blank or the end of the line. False, and nothing changed, for any other.
  bool ShortWord(char letter) {
    constexpr ptrdiff_t kMostWhole = 9;  // digits, below the largest value
    constexpr ptrdiff_t kMost = 15;      // exact in a double
    const char* next = next_ + 1;
    const bool isNegative = *next == '-';
    if (isNegative) ++next;
    uint64_t digits = 0;
    const auto takeDigits = [&] {
      const char* const begin = next;
      for (unsigned digit; (digit = static_cast<unsigned char>(*next) - unsigned{'0'}) <= 9; ++next)
        digits = digits * 10 + digit;
      return next - begin;
    };
    const ptrdiff_t whole = takeDigits();
    const bool hasPoint = *next == '.';
    if (hasPoint) ++next;
    const ptrdiff_t places = hasPoint ? takeDigits() : 0;
    if (whole > kMostWhole || whole + places > kMost || whole + places == 0) return false;
    if (GlyphOf(*next) == Glyph::kBlank) next = SkipBlanks(next);
    if (GlyphOf(*next) > Glyph::kLineFeed || letter == 'O') return false;
    const double value = static_cast<double>(static_cast<int64_t>(digits)) / kPowersOfTen[places];
    words_.Add(letter, isNegative ? -value : value, hasPoint);
    next_ = next;
    return true;
  }

  // A letter with what follows it. False if that makes the line another one than a line of words.
  bool Word(char letter) {
    const char* const begin = next_++;
    const bool isNegative = Signs();
    const NcNumber number = TakeNumber(&next_);
    if (number.isEmpty) [[unlikely]]
      return WithoutNumber(begin, letter);
    Add(begin, letter, isNegative ? -number.value : number.value, number.hasPoint);
    if (letter == 'O') [[unlikely]]
      return !HasOKeyword(std::bit_cast<uint64_t>(number.value));
    if (letter == 'N' && *next_ == '/') SkipBlockDelete();
    return true;
  }

  void Add(const char* begin, char letter, double value, bool hasPoint) {
    if (value > WordLine::kLargest || value < -WordLine::kLargest) [[unlikely]] {
      words_.NoteFault(begin, next_);
    } else {
      words_.Add(letter, value, hasPoint);
    }
  }

  // Takes signs and blanks. True for an odd number of minus signs.
  bool Signs() {
    bool isNegative = false;
    while (!IsLetter(*next_) && GlyphOf(*next_) != Glyph::kDigit) {
      if (*next_ == '-') {
        isNegative = !isNegative;
      } else if (*next_ != '+') {
        if (GlyphOf(*next_) != Glyph::kBlank && GlyphOf(*next_) != Glyph::kComment) break;
        next_ = SkipBlanks(next_);
        continue;
      }
      ++next_;
    }
    return isNegative;
  }

  bool WithoutNumber(const char* begin, char letter) {
    if (*next_ == '#' || *next_ == '[') return Ends(LineForm::kMacro);
    const char* keyword = begin;
    if (TakeKeyword(&keyword)) return Ends(LineForm::kMacro);
    uint64_t name = 0;
    if (letter == 'O' && TakeOName(&next_, &name) && HasOKeyword(name)) return false;
    words_.NoteFault(begin, next_);
    return true;
  }

  bool HasOKeyword(uint64_t name) {
    next_ = SkipBlanks(next_);
    if (!IsLetter(*next_) || !TakeOKeyword(next_, &keyword_)) return false;
    keyword_.name = name;
    return !Ends(LineForm::kOKeyword);
  }

  // A character that begins no word. False as for Word.
  bool Other(char c) {
    const char* const begin = next_++;
    if (c == '#' || c == '[') return Ends(LineForm::kMacro);
    if (c == ':') {
      const NcNumber number = TakeNumber(&next_);
      if (!number.isEmpty) {
        Add(begin, 'O', number.value, number.hasPoint);
        return true;
      }
    } else if (c == ',') {
      next_ = SkipBlanks(next_);
      if (IsLetter(*next_)) {
        ++next_;
        Signs();
        const NcNumber number = TakeNumber(&next_);
        if (number.isEmpty && (*next_ == '#' || *next_ == '[')) return Ends(LineForm::kMacro);
      }
    }
    words_.NoteFault(begin, next_);
    return true;
  }

  // "/" and one digit after it.
  void SkipBlockDelete() {
    next_ = SkipBlanks(next_ + 1);
    if (*next_ >= '1' && *next_ <= '9') next_ = SkipBlanks(next_ + 1);
  }

  bool Ends(LineForm form) {
    form_ = form;
    return false;
  }

  const char* next_;
  WordLine& words_;
  OKeyword& keyword_;
  LineForm form_ = LineForm::kWords;
};

}  // namespace

bool TakeKeyword(const char** text) {
  for (const std::string_view keyword : kKeywords) {
    if (TakeName(text, keyword)) return true;
  }
  return false;
}

[[gnu::flatten]] LineForm ScanWords(const char* text, WordLine* words, OKeyword* keyword) {
  return Scan(text, words, keyword).Line();
}

}  // namespace tvx
