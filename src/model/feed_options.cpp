// The rule of a master model's path.
#include "model/feed_options.h"

#include "base/text.h"

namespace tvx {

bool NamesMasterFile(std::string_view path) {
  // A path of four bytes is no more than a drive and the start of a name.
  constexpr size_t kTooShort = 4;
  return EncodeCp949(path).size() > kTooShort;
}

}  // namespace tvx
