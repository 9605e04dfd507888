// The pass runs all rules over a batch of blocks before it starts the next batch; several threads
// work on different parts of the program at the same time.
#include "feed/feed_pass.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

#include "feed/batch_rules.h"
#include "feed/feed_part.h"
#include "feed/path_index.h"
#include "platform/workers.h"

namespace tvx {

namespace {

// A thread has at least this number of parts to do, so that the last ones end at about the same
// time; a part costs one batch more than its own.
constexpr uint32_t kPartsPerThread = 8;
constexpr uint32_t kLeastPartBatches = 25;
constexpr uint32_t kMostPartBatches = 250;
// Threads are started for this number of blocks each. A smaller program is done by one.
constexpr uint32_t kBlocksPerThread = 10'000;
constexpr uint32_t kLeastBlocks = 20'000;
// How often a thread that waits reports to the progress.
constexpr std::chrono::milliseconds kReportInterval{5};

unsigned ThreadsFor(uint32_t blocks, const FeedPassDivision& division) {
  if (division.partBatches > 0) return std::max(division.threads, 1U);
  if (blocks < kLeastBlocks) return 1;
  return std::clamp(division.threads, 1U, blocks / kBlocksPerThread);
}

uint32_t PartBatches(uint32_t blocks, unsigned threads, const FeedPassDivision& division) {
  if (division.partBatches > 0) return division.partBatches;
  if (threads == 1) return std::max(blocks / kBatchBlocks + 1, 1U);
  return std::clamp(blocks / kBatchBlocks / (threads * kPartsPerThread), kLeastPartBatches,
                    kMostPartBatches);
}

// The parts of one pass. Every thread takes the next part that nobody has taken, and joins the
// parts that can be joined if no other thread does.
class SharedPass {
 public:
  SharedPass(const PathIndex& path, const JobRecord& job, const MasterGrid& master,
             const FeedPassMemory& memory, const FeedTrace& trace, Progress* progress)
      : path_(path),
        job_(job),
        master_(master),
        trace_(trace ? &trace : nullptr),
        lastNextBlock_(memory.LastNextBlock),
        handover_{{memory.headings, {memory.LastNextBlock}}},
        progress_(progress) {}

  // Returns false if the pass was stopped.
  bool Run(unsigned threads, uint32_t partBatches) {
    const uint32_t blocks = partBatches * kBatchBlocks;
    for (uint32_t first = 0; first < path_.BlockCount(); first += blocks) {
      parts_.emplace_back(path_, first, std::min(first + blocks, path_.BlockCount()));
    }
    if (!parts_.empty()) handover_.zones = parts_.front().work.FirstZones();
    // Parts that wait to be joined keep what they need to be done again.
    mostAhead_ = threads + 1;
    WorkTogether(threads, [this](unsigned thread) {
      try {
        Work(thread);
      } catch (...) {
        Stop();
        throw;
      }
    });
    return !isStopped_;
  }

  const PassState& State() const { return handover_.state; }

  FeedPassDivision::Seams Seams() const {
    FeedPassDivision::Seams seams{static_cast<uint32_t>(parts_.size()), 0};
    for (const Taken& part : parts_) seams.redone += part.work.WasRedone() ? 1 : 0;
    return seams;
  }

 private:
  struct Taken {
    Taken(const PathIndex& path, uint32_t first, uint32_t end) : work(path, first, end) {}
    FeedPart work;
    bool isDone = false;  // or left to be joined
  };

  void Stop() {
    const std::lock_guard lock(mutex_);
    isStopped_ = true;
    changed_.notify_all();
  }

  // The calling thread, number 0, reports for all.
  bool Report(unsigned thread) {
    return thread != 0 || progress_->Step(doneBlocks_, path_.BlockCount());
  }

  void Work(unsigned thread) {
    BatchRules rules(path_, job_, master_);
    const FeedPart::Step step = [&](const Batch& batch) {
      if (isStopped_) return false;
      if (!Report(thread)) {
        Stop();
        return false;
      }
      doneBlocks_ += batch.end - batch.first;
      return true;
    };
    // Also where the other threads leave nothing to do.
    if (!Report(thread)) Stop();
    std::unique_lock lock(mutex_);
    while (!isStopped_ && joined_ < parts_.size()) {
      if (!isJoining_ && joined_ < taken_ && parts_[joined_].isDone) {
        JoinDone(&lock, &rules, step);
      } else if (taken_ < parts_.size() && taken_ < joined_ + mostAhead_) {
        Taken& part = parts_[taken_];
        // Nothing comes before the first part: it is done when it is joined.
        if (taken_++ > 0) {
          lock.unlock();
          part.work.RunAhead(lastNextBlock_, &rules, trace_ != nullptr, step);
          lock.lock();
        }
        part.isDone = true;
        changed_.notify_all();
      } else if (thread != 0) {
        changed_.wait(lock);
      } else {
        changed_.wait_for(lock, kReportInterval);
        lock.unlock();
        if (!Report(thread)) Stop();
        lock.lock();
      }
    }
  }

  void JoinDone(std::unique_lock<std::mutex>* lock, BatchRules* rules, const FeedPart::Step& step) {
    FeedPart& part = parts_[joined_].work;
    isJoining_ = true;
    lock->unlock();
    part.Join(&handover_, rules, trace_, step);
    part.Release();
    lock->lock();
    isJoining_ = false;
    ++joined_;
    changed_.notify_all();
  }

  const PathIndex& path_;
  const JobRecord& job_;
  const MasterGrid& master_;
  const FeedTrace* const trace_;
  const uint32_t lastNextBlock_;
  FeedPart::Handover handover_;  // of the parts that are joined; only the thread that joins has it
  Progress* const progress_;

  std::deque<Taken> parts_;
  uint32_t mostAhead_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  uint32_t taken_ = 0;   // parts that a thread has begun
  uint32_t joined_ = 0;  // parts that are joined
  bool isJoining_ = false;
  std::atomic<bool> isStopped_{false};
  std::atomic<uint64_t> doneBlocks_{0};
};

}  // namespace

bool FeedPass(NcProgram* program, const JobRecord& job, const MasterGrid* master,
              FeedPassMemory* memory, const FeedTrace& trace, Progress* progress,
              const FeedPassDivision& division) {
  static const MasterGrid kNoMaster;
  BlockStore* store = &program->store;
  program->FeedBase = job.MaxFeed;

  const unsigned threads = ThreadsFor(store->blockCount, division);
  const PathIndex path(store, job.SafetyDistance, threads);
  SharedPass pass(path, job, master != nullptr ? *master : kNoMaster, *memory, trace, progress);
  if (!pass.Run(threads, PartBatches(path.BlockCount(), threads, division))) return false;
  *memory = {pass.State().lastNext.block, pass.State().headings};
  if (division.seams != nullptr) *division.seams = pass.Seams();
  // The register must not depend on the blocks that the rules read last.
  store->ReadBlock(store->blockCount - 1);
  return true;
}

}  // namespace tvx
