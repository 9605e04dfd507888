// Keeps the start of each load until the check reads the program from there.
#include "evaluate/program_checks.h"

#include <algorithm>

namespace tvx {

namespace {

// Of each id, for a list that people look through. 300 programs with a remark of three ids on every
// line take some 50 MB.
constexpr size_t kStoredPerId = 1000;

}  // namespace

ProgramPauses PausesOf(const FileCheck* check) {
  if (check == nullptr || check->result == nullptr) return {};
  return {.dwellSeconds = check->result->dwellSeconds, .toolChanges = check->result->toolChanges};
}

void ProgramChecks::Restart(const ProgramSource& source, const LoadStart& start,
                            const JobRecord& job) {
  checker_.reset();
  std::erase_if(entries_, [](const Entry& entry) {
    const bool hasEnded = entry.start == nullptr;
    const bool isOfResult = entry.isKept && entry.check.use_count() > 1;
    return hasEnded || !isOfResult;
  });
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

std::shared_ptr<const FileCheck> ProgramChecks::Keep() {
  if (!isLoaded_) return nullptr;
  entries_.back().isKept = true;
  return entries_.back().check;
}

bool ProgramChecks::CheckMore(uint64_t lines, Files* files) {
  Entry* const entry = Next();
  if (entry == nullptr) return false;
  if (checker_ == nullptr || entry->number != underCheck_) {
    underCheck_ = entry->number;
    checker_ =
        std::make_unique<ProgramChecker>(entry->check->path, entry->start->load, entry->start->job,
                                         files, CheckOptions{.storedPerId = kStoredPerId});
  }
  if (!checker_->status().ok()) {
    End(entry, CheckState::kCannotRead);
  } else if (checker_->Result().stamp != entry->check->stamp) {
    End(entry, CheckState::kChanged);
  } else if (!checker_->CheckMore(lines)) {
    entry->check->result = std::make_shared<const ProgramCheck>(checker_->Result());
    End(entry, CheckState::kDone);
  }
  return IsUnderWay();
}

void ProgramChecks::Finish(Files* files, Progress* progress) {
  constexpr uint64_t kLinesOfAStep = 100'000;
  const WorkScope work(progress, Work::kCheck, "");
  const size_t all = Pending();
  while (CheckMore(kLinesOfAStep, files)) progress->Step(all - Pending(), all);
}

void ProgramChecks::End(Entry* entry, CheckState state) {
  entry->check->state = state;
  entry->start.reset();
  checker_.reset();  // closes the file
}

ProgramChecks::Entry* ProgramChecks::Next() {
  if (State() == CheckState::kUnderWay) return &entries_.back();
  const auto entry =
      std::ranges::find_if(entries_, [](const Entry& e) { return e.start != nullptr; });
  return entry == entries_.end() ? nullptr : &*entry;
}

size_t ProgramChecks::Pending() const {
  const auto isPending = [](const Entry& entry) { return entry.start != nullptr; };
  return static_cast<size_t>(std::ranges::count_if(entries_, isPending));
}

std::shared_ptr<const FileCheck> ProgramChecks::Loaded() const {
  return isLoaded_ ? entries_.back().check : nullptr;
}

CheckState ProgramChecks::State() const {
  return isLoaded_ ? Loaded()->state : CheckState::kNoProgram;
}

std::shared_ptr<const ProgramCheck> ProgramChecks::Result() const {
  return isLoaded_ ? Loaded()->result : nullptr;
}

}  // namespace tvx
