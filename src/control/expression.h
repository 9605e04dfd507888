// Expressions of word-address programs.
#pragma once

#include "control/variables.h"

namespace tvx {

// Reads and evaluates expressions. Without variables it only checks their form.
class Expressions {
 public:
  // Deeper brackets are not read.
  static constexpr int kDeepestNesting = 50;

  explicit Expressions(const Variables* variables) : variables_(variables) {}

  // Each takes what its name says from *text on, and the blanks after it. False if the text has
  // another form; *text is then anywhere within it.
  bool TakeExpression(const char** text, double* value);       // up to what belongs to none
  bool TakeBracketed(const char** text, double* value);        // "[", an expression, "]"
  bool TakeVariableNumber(const char** text, double* number);  // "#" and what names the variable

  // A number, a variable or an expression in brackets, with signs before it.
  bool TakeValue(const char** text, double* value, bool* hasPoint);

  // True if an operation had no value, or a variable of the control was read.
  bool HasFault() const { return hasFault_; }

 private:
  bool Binary(const char** text, size_t level, double* value);
  bool Factor(const char** text, double* value);
  bool Unsigned(const char** text, double* value, bool* hasPoint);
  bool Function(const char** text, double* value);
  double Read(double number);
  double Finite(double value);

  const Variables* variables_;
  int depth_ = 0;
  bool hasFault_ = false;
};

}  // namespace tvx
