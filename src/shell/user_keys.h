#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/user_interface.h"

namespace tvx {

// Pieces of key-code text that a shop uses again and again, with a number each. They last until the
// end of the program unless the user saves them to UserKey.txt in the environment directory
// (docs/formats/user_keys.md).

// Elements of the program-wide array. Only 1 to kLastUserKey are used; an empty one is not set.
inline constexpr size_t kUserKeyElements = 100;
inline constexpr size_t kLastUserKey = 12;
// Most bytes of a key, as the file spells it; a longer line is cut there.
inline constexpr size_t kUserKeyBytes = 50;

// Gives *keys kUserKeyElements elements, empty but for those that the file holds. White space at
// the end of a key is dropped. No message if the file cannot be opened.
void ReadUserKeys(const std::string& environmentDir, std::vector<std::string>* keys, Files* files);

// Creates or replaces the file with keys 1 to 12 of kUserKeyElements. Nothing is shown if that
// fails, and an older file stays as it was.
void WriteUserKeys(const std::string& environmentDir, const std::vector<std::string>& keys,
                   Files* files);

// The menu entry of user key n, 1 to kLastUserKey: edits the key on the pad. The file is not
// touched.
void EditUserKey(size_t n, std::vector<std::string>* keys, UserInterface* ui);

}  // namespace tvx
