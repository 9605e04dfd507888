// Fuzzes the readers of the two lists and of the user keys. The input is the content of each file.

#include <string>
#include <vector>

#include "base/text.h"
#include "fuzz_world.h"
#include "settings/lists.h"
#include "settings/short_text.h"
#include "settings/user_keys.h"

namespace {

using namespace tvx;

void CheckList(const std::vector<std::string>& list, size_t elements) {
  Require(list.size() == elements);
  size_t filled = 0;
  for (const std::string& element : list) {
    Require(EncodeCp949(element).size() <= kWordBytes);
    filled += element.empty() ? 0 : 1;
  }
  Require(ListEntries(list).size() == filled);  // no gaps
}

void CheckUserKeys(Files* files, std::string* written) {
  std::vector<std::string> keys;
  Require(ReadUserKeys("c:", &keys, files).ok());
  for (const std::string& key : keys) Require(EncodeCp949(key).size() <= kUserKeyBytes);
  Require(WriteUserKeys("c:", keys, files).ok());

  FuzzFiles savedFiles(*written);
  std::vector<std::string> again;
  Require(ReadUserKeys("c:", &again, &savedFiles).ok());
  Require(again == keys);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzFiles files(AsText(data, size));
  std::vector<std::string> extensions;
  Require(ReadExtensionList("c:", &extensions, &files).ok());
  CheckList(extensions, kExtensions);
  std::vector<std::string> directories;
  Require(ReadDirectoryList("c:", &directories, &files).ok());
  CheckList(directories, kDirectories);
  CheckUserKeys(&files, &files.written);
  return 0;
}
