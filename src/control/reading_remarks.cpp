#include "control/reading_remarks.h"

#include <algorithm>
#include <tuple>

namespace tvx {

static_assert(kReadingRemarkIds <= 16, "a line has 16 bits for its remarks");

std::string_view ReadingRemarkName(ReadingRemarkId id) {
  constexpr std::string_view kNames[kReadingRemarkIds] = {"not-read",
                                                          "machine-position",
                                                          "work-offset",
                                                          "subprogram",
                                                          "macro",
                                                          "cycle",
                                                          "shift",
                                                          "rotary",
                                                          "compensation",
                                                          "arc-ends-elsewhere",
                                                          "arc-radius-short",
                                                          "endless"};
  return kNames[static_cast<size_t>(id)];
}

bool ReadingRemarks::IsNew(uint64_t line, ReadingRemarkId id) {
  const size_t at = static_cast<size_t>(line / kPageLines);
  if (at >= pages_.size()) pages_.resize(at + 1);
  if (pages_[at] == nullptr) pages_[at] = std::make_unique<Page>();
  uint16_t& bits = (*pages_[at])[line % kPageLines];
  const auto bit = static_cast<uint16_t>(1U << static_cast<unsigned>(id));
  if ((bits & bit) != 0) return false;
  bits = static_cast<uint16_t>(bits | bit);
  return true;
}

const std::vector<ReadingRemark>& ReadingRemarks::Sorted() {
  std::sort(stored_.begin(), stored_.end(), [](const ReadingRemark& a, const ReadingRemark& b) {
    return std::tie(a.line, a.id) < std::tie(b.line, b.id);
  });
  return stored_;
}

}  // namespace tvx
