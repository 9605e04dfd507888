// Results, messages and progress of a command.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

// Writes a result to standard output.
void Print(std::string_view text);

// A text of a program for one line of a terminal: control characters but tabs as "?".
std::string Printable(std::string text);

// Writes a line to standard error, after the name of the tool; control characters as "?".
void PrintRemark(std::string text);

// From now on standard error gets errors only. Commands leave out what else they would say.
void BeQuiet();
bool IsQuiet();

// Ends the output of a command. Throws Failure if a part of it could not be written (a full disk).
void FinishOutput();

// Shows on standard error what long work is doing, on one line that gives way to the next and to
// the results; nothing unless standard error is a terminal. An empty text takes the line away.
void ShowProgress(const std::string& text);

}  // namespace tvx
