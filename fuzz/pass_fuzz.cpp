// Fuzzes load, feed pass and cut time with arbitrary parameters. The first bytes of the input
// select the parameters from short lists of valid and absurd values (a condition file can contain
// any of them). The rest is a program in the word-address format.

#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>

#include "feed/feed_pass.h"
#include "fuzz_world.h"
#include "model/loader.h"
#include "stats/cut_time.h"
#include "stats/file_information.h"

namespace {

using namespace tvx;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLengths[] = {5, 0, 0.001F, 1e9F, -1, kInfinity, NAN};
constexpr float kAngles[] = {10, 0, 89.5F, 200, -1, NAN};
constexpr float kShares[] = {0.1F, 0, 1, 0.7F, 5, -2, kInfinity, NAN};
constexpr int32_t kFeeds[] = {1000, 0, 1, 100000, -5, INT32_MAX, INT32_MIN};
constexpr int32_t kSteps[] = {10, 1, 0, -3, 5000, INT32_MIN};

// Turns the bytes of the input into choices, one by one; zeros after the last byte.
class Choices {
 public:
  explicit Choices(std::string_view* bytes) : bytes_(bytes) {}

  // A digit selects the entry with this index, so that seeds can be written by hand.
  template <typename List>
  auto From(const List& list) {
    return list[static_cast<size_t>(Next()) % std::size(list)];
  }
  int32_t Flag() { return Next() % 2; }

 private:
  int Next() {
    if (bytes_->empty()) return 0;
    const unsigned char byte = static_cast<unsigned char>(bytes_->front());
    bytes_->remove_prefix(1);
    return byte >= '0' ? byte - '0' : byte;
  }

  std::string_view* bytes_;
};

JobRecord TakeJob(std::string_view* bytes) {
  Choices choices(bytes);
  JobRecord job;
  job.AfaEnabled = 1;
  job.SafetyDistance = choices.From(kLengths);
  job.ToolDiameter = choices.From(kLengths);
  job.CornerMinAngle = choices.From(kAngles);
  job.SlopeMinAngle = choices.From(kAngles);
  job.CornerMaxRatio = choices.From(kShares);
  job.SlopeMaxRatio = choices.From(kShares);
  job.CorWeight0 = choices.From(kShares);
  job.CorWeight30 = choices.From(kShares);
  job.CorWeight60 = choices.From(kShares);
  job.SideWeight30 = choices.From(kShares);
  job.ZupZdown = choices.From(kShares);
  job.MaxFeed = choices.From(kFeeds);
  job.PlungeFeed = choices.From(kFeeds);
  job.RapidFeed = choices.From(kFeeds);
  job.FeedChgAng = choices.From(kSteps);
  job.ConCorChk = choices.Flag();
  job.UpDownChk = choices.Flag();
  job.XyChgReduceCheck = choices.Flag();
  return job;
}

void CheckAdjusted(const NcProgram& program, const JobRecord& job) {
  Require(program.FeedBase == job.MaxFeed);
  for (uint32_t i = 0; i < program.store.blockCount; ++i) {
    const MotionBlock& block = *program.store.Peek(i);
    if (!IsArcType(block.type)) continue;
    Require(block.headPercent == 0 && block.headFeed == 0);
    Require(block.tailPercent == 0 && block.tailFeed == 0);
    Require(block.feed == block.feedProgrammed);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view text = AsText(data, size);
  JobRecord job = TakeJob(&text);
  FuzzFiles files(text);
  ParserStates states;
  NcProgram program;
  FeedPassMemory memory;
  if (!LoadNcFile("c:\\fuzz.nc", &program, &states, &job, &files).ok()) return 0;
  // Twice: the second run starts with the zones of the first.
  for (int run = 0; run < 2; ++run) {
    FeedPass(&program, job, nullptr, &memory);
    CheckAdjusted(program, job);
    CutTimeEntry entry;
    ComputeCutTime(&program.store, job, &entry);
    Require(!FileInformationLines(entry, Language::kKorean).empty());
  }
  return 0;
}
