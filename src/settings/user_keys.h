// User keys: numbered pieces of key-code text that a shop uses again and again. They last until the
// end of the program unless the user saves them to UserKey.txt in the environment directory
// (docs/formats/user_keys.md).
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/files/files.h"
#include "platform/user_interface.h"

namespace tvx {

// Elements of the program-wide array. Only 1 to kLastUserKey are used; an empty one is not set.
inline constexpr size_t kUserKeyElements = 100;
inline constexpr size_t kLastUserKey = 12;
// Longest key, in bytes of the file; a longer line is cut there.
inline constexpr size_t kUserKeyBytes = 50;

std::string UserKeyPath(const std::string& environmentDir);

// Sets *keys to kUserKeyElements elements, all empty except those in the file. White space at the
// end of a key is dropped. All are empty if the file cannot be read.
Status ReadUserKeys(const std::string& environmentDir, std::vector<std::string>* keys,
                    Files* files);

// Creates or replaces the file with keys 1 to 12 of kUserKeyElements. An older file stays as it was
// if that fails.
Status WriteUserKeys(const std::string& environmentDir, const std::vector<std::string>& keys,
                     Files* files);

// The command "UK Save": writes the file and shows in the status line whether that worked.
void SaveUserKeys(const std::string& environmentDir, const std::vector<std::string>& keys,
                  Files* files, UserInterface* ui);

// The menu entry of user key n, 1 to kLastUserKey: edits the key on the pad. The file does not
// change.
void EditUserKey(size_t n, std::vector<std::string>* keys, UserInterface* ui);

}  // namespace tvx
