// Keeps the start of each load until the check reads the program from there.
#include "shell/view_check.h"

#include <algorithm>

namespace tvx {

namespace {

// Of each id, for a list that people look through. 300 programs with a remark of three ids on every
// line take some 50 MB.
constexpr size_t kStoredPerId = 1000;

}  // namespace

void ViewCheck::Restart(const ProgramSource& source, const LoadStart& start, const JobRecord& job) {
  checker_.reset();
  std::erase_if(entries_, [](const Entry& entry) { return !entry.isKept; });
  isLoaded_ = !source.path.empty();
  if (!isLoaded_) return;
  auto check = std::make_shared<FileCheck>();
  check->path = source.path;
  check->stamp = source.stamp;
  auto from = std::make_unique<Start>(Start{start, job});
  from->job.FileNames.clear();  // 300 programs would each keep the list of all
  from->job.OptionLines.clear();
  entries_.push_back({++loads_, false, std::move(check), std::move(from)});
}

uint32_t ViewCheck::Keep() {
  if (!isLoaded_) return 0;
  entries_.back().isKept = true;
  if (entries_.size() > kResultEntries) entries_.erase(entries_.begin());
  return entries_.back().number;
}

bool ViewCheck::CheckMore(uint64_t lines, Files* files) {
  Entry* const entry = Next();
  if (entry == nullptr) return false;
  if (checker_ == nullptr || entry->number != underCheck_) {
    underCheck_ = entry->number;
    checker_ =
        std::make_unique<ProgramChecker>(entry->check->path, entry->start->load, entry->start->job,
                                         files, CheckOptions{.storedPerId = kStoredPerId});
  }
  if (!checker_->IsOpen()) {
    End(entry, CheckState::kCannotRead);
  } else if (checker_->Result().stamp != entry->check->stamp) {
    End(entry, CheckState::kChanged);
  } else if (!checker_->CheckMore(lines)) {
    entry->check->result = std::make_shared<const ProgramCheck>(checker_->Result());
    End(entry, CheckState::kDone);
  }
  return IsUnderWay();
}

void ViewCheck::End(Entry* entry, CheckState state) {
  entry->check->state = state;
  entry->start.reset();
  checker_.reset();  // closes the file
}

ViewCheck::Entry* ViewCheck::Next() {
  if (State() == CheckState::kUnderWay) return &entries_.back();
  const auto entry =
      std::ranges::find_if(entries_, [](const Entry& e) { return e.start != nullptr; });
  return entry == entries_.end() ? nullptr : &*entry;
}

size_t ViewCheck::Pending() const {
  const auto isPending = [](const Entry& entry) { return entry.start != nullptr; };
  return static_cast<size_t>(std::ranges::count_if(entries_, isPending));
}

std::shared_ptr<const FileCheck> ViewCheck::Loaded() const {
  return isLoaded_ ? entries_.back().check : nullptr;
}

CheckState ViewCheck::State() const {
  return isLoaded_ ? Loaded()->state : CheckState::kNoProgram;
}

std::shared_ptr<const ProgramCheck> ViewCheck::Result() const {
  return isLoaded_ ? Loaded()->result : nullptr;
}

std::shared_ptr<const FileCheck> ViewCheck::Of(const CutTimeEntry& result) const {
  const auto entry = std::ranges::find(entries_, result.check, &Entry::number);
  return entry == entries_.end() ? nullptr : entry->check;
}

std::vector<std::shared_ptr<const FileCheck>> ViewCheck::ChecksOf(
    const ResultTable& results) const {
  std::vector<std::shared_ptr<const FileCheck>> checks;
  const auto add = [&checks](const std::shared_ptr<const FileCheck>& check) {
    if (check != nullptr && std::ranges::find(checks, check) == checks.end()) {
      checks.push_back(check);
    }
  };
  for (const CutTimeEntry& result : results.Recorded()) add(Of(result));
  add(Loaded());
  return checks;
}

}  // namespace tvx
