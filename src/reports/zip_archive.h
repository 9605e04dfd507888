// ZIP archives in memory. The only part of TVX that uses libzip.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace tvx {

struct ZipMember {
  std::string name;  // with "/" between folders
  std::string_view bytes;
  bool isCompressed = true;  // PNG pictures are compressed already
};

// Packs the members in their order, without times of day. Fails with kWriteFailed and a reason of
// the system.
Result<std::string> PackZip(const std::vector<ZipMember>& members);

}  // namespace tvx
