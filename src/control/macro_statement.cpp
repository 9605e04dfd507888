// A line is gone through up to three times: to see whether its form is right, for its assignments,
// and for its words. So nothing of a line is run that cannot be run whole, and words see what the
// line assigns, in whatever order they stand.
#include "control/macro_statement.h"

#include "control/expression.h"
#include "control/nc_text.h"
#include "control/word_scanner.h"

namespace tvx {
namespace {

class MacroLine {
 public:
  // Without variables nothing is computed, without words none is kept.
  MacroLine(const char* text, Variables* variables, WordLine* words, MacroStatement* statement)
      : next_(text),
        variables_(variables),
        words_(words),
        statement_(*statement),
        expressions_(variables) {}

  // False if the line has none of the forms.
  bool Line() {
    SkipBlockDelete();
    if (Peek() == 'N') {
      ++next_;
      if (!Word('N')) return false;
      SkipBlockDelete();
    }
    const bool isRead = Statement() && Peek() == '\n';
    statement_.hasFault = statement_.hasFault || expressions_.HasFault();
    return isRead;
  }

 private:
  bool Statement() {
    if (TakeName(&next_, "IF")) return Condition() && IfPart();
    if (TakeName(&next_, "WHILE")) {
      statement_.kind = MacroStatement::Kind::kWhile;
      return Condition() && TakeName(&next_, "DO") && LoopNumber();
    }
    if (TakeName(&next_, "END")) {
      statement_.kind = MacroStatement::Kind::kEnd;
      return LoopNumber();
    }
    if (TakeName(&next_, "GOTO")) return Goto();
    while (Peek() != '\n') {
      if (!(Peek() == '#' ? Assignment(true) : LetterWord())) return false;
    }
    return true;
  }

  bool Condition() {
    double value = 0;
    if (!expressions_.TakeBracketed(&next_, &value)) return false;
    statement_.isTrue = !IsVacant(value) && value != 0;
    return true;
  }

  bool IfPart() {
    if (TakeName(&next_, "GOTO")) return Goto();
    return TakeName(&next_, "THEN") && Assignment(statement_.isTrue);
  }

  bool Goto() {
    statement_.kind = MacroStatement::Kind::kGoto;
    bool hasPoint = false;
    return expressions_.TakeValue(&next_, &statement_.number, &hasPoint);
  }

  bool LoopNumber() {
    const NcNumber number = TakeNumber(&next_);
    statement_.number = number.value;
    return !number.isEmpty && !number.hasPoint;
  }

  bool Assignment(bool isRun) {
    Expressions& expressions = words_ == nullptr ? expressions_ : form_;
    double number = 0, value = 0;
    if (!expressions.TakeVariableNumber(&next_, &number) || Peek() != '=') return false;
    ++next_;
    if (!expressions.TakeExpression(&next_, &value)) return false;
    if (isRun && words_ == nullptr && variables_ != nullptr && !variables_->Assign(number, value)) {
      statement_.hasFault = true;
    }
    return true;
  }

  bool LetterWord() {
    const char letter = Peek();
    const char* keyword = next_;
    if (GlyphOf(letter) != Glyph::kLetter || TakeKeyword(&keyword)) return false;
    ++next_;
    return Word(letter);
  }

  // The value of a word, whose letter is taken.
  bool Word(char letter) {
    const char* const begin = next_ - 1;
    double value = 0;
    bool hasPoint = false;
    const bool isComputed = Peek() == '#' || Peek() == '[';
    Expressions& expressions = words_ != nullptr ? expressions_ : form_;
    if (!expressions.TakeValue(&next_, &value, &hasPoint)) return false;
    if (letter == 'O' && isComputed) return false;
    if (words_ == nullptr || IsVacant(value)) return true;
    if (value > WordLine::kLargest || value < -WordLine::kLargest) {
      words_->NoteFault(begin, next_);
    } else {
      words_->Add(letter, value, hasPoint);
    }
    return true;
  }

  void SkipBlockDelete() {
    if (Peek() != '/') return;
    ++next_;
    if (Peek() >= '1' && Peek() <= '9') ++next_;
  }

  char Peek() {
    next_ = SkipBlanks(next_);
    return UpperLetter(*next_);
  }

  const char* next_;
  Variables* variables_;
  WordLine* words_;
  MacroStatement& statement_;
  Expressions expressions_;
  Expressions form_{nullptr};  // for what another pass of the line computes
};

}  // namespace

bool CheckMacro(const char* text, MacroStatement* statement) {
  return MacroLine(text, nullptr, nullptr, statement).Line();
}

void ReadMacroWords(const char* text, WordLine* words) {
  MacroStatement statement;
  MacroLine(text, nullptr, words, &statement).Line();
}

void RunMacro(const char* text, Variables* variables, MacroStatement* statement, WordLine* words) {
  *statement = {};
  MacroLine(text, variables, nullptr, statement).Line();
  if (statement->kind == MacroStatement::Kind::kWords) {
    MacroLine(text, variables, words, statement).Line();
  }
}

}  // namespace tvx
