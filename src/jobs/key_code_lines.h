// The key-code part of an option line: the word "KeyCode" and the blank-separated words after it,
// up to the end of the line. The functions make a new line from a line and leave the rest of it as
// it is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tvx {

inline constexpr char kKeyCodeWord[] = "KeyCode";

// The part from the first "KeyCode" on; empty for a line without one.
std::string_view KeyCodePart(std::string_view line);

// The line with another part in place of its own, or at its end. An empty part removes its own.
std::string WithKeyCodePart(std::string_view line, std::string_view part);

// The line with `text` after its last word. A line without a key-code part gets one first.
std::string WithKeyCode(std::string_view line, std::string_view text);

// The same with `text` in front of the first occurrence of `word`, which may be anywhere in the
// line. Nothing if the line does not hold the word.
std::optional<std::string> WithKeyCodeBefore(std::string_view line, std::string_view word,
                                             std::string_view text);

// True if the first occurrence of `word` in the line is in the key-code part. A word that also
// occurs before that part cannot be reached.
bool HasKeyCode(std::string_view line, std::string_view word);

// The line with `text` in place of a word that HasKeyCode finds. The blanks around it stay.
std::string WithKeyCodeReplaced(std::string_view line, std::string_view word,
                                std::string_view text);

// The part that the bytes of a key-code file hold: the first line of the file, cut after the word
// that reaches its 99th byte.
std::string KeyCodePartOfFile(std::string_view bytes);

}  // namespace tvx
