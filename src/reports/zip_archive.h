// ZIP archives in memory. The only part of TVX that uses libzip.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

struct ZipMember {
  std::string name;  // with "/" between folders
  std::string_view bytes;
  bool isCompressed = true;  // PNG pictures are compressed already
};

// Packs the members in their order, without times of day. Returns 0, or an errno value; *archive is
// then unchanged.
int PackZip(const std::vector<ZipMember>& members, std::string* archive);

}  // namespace tvx
