// Random programs and parameter sets that reach the odd corners of the feed adjustment.
#include <algorithm>
#include <cmath>
#include <limits>

#include "feed_fixture.h"
#include "model/vectors.h"

namespace tvx {

namespace {

class Writer {
 public:
  Writer(Random* random, size_t moves) : random_(random), moves_(moves) {}

  std::vector<MotionBlock> Write() {
    if (Chance(0.3)) NoMoves();
    if (Chance(0.7)) Rapids();
    while (blocks_.size() < moves_) Run();
    if (Chance(0.3)) NoMoves();
    if (Chance(0.2)) Zones();
    return blocks_;
  }

 private:
  double Uniform(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(*random_);
  }
  int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(*random_); }
  bool Chance(double share) { return Uniform(0, 1) < share; }

  void Add(uint32_t type) {
    MotionBlock block;
    block.x = at_.x, block.y = at_.y, block.z = at_.z;
    block.feedProgrammed = block.feed = Whole(1, 3000);
    block.type = type;
    blocks_.push_back(block);
  }
  void AddCut() { Add(Chance(0.1) ? BlockCutStart : BlockCut); }

  void Step(double dx, double dy, double dz) {
    // Three decimals, as in a file.
    const auto rounded = [](double value) {
      return static_cast<float>(std::round(value * 1000.0) / 1000.0);
    };
    at_ = {rounded(at_.x + dx), rounded(at_.y + dy), rounded(at_.z + dz)};
  }

  void Run() {
    using Kind = void (Writer::*)();
    constexpr Kind kKinds[] = {
        &Writer::Turning, &Writer::Turning, &Writer::Lattice, &Writer::Lattice,  &Writer::Circling,
        &Writer::Doubled, &Writer::Rapids,  &Writer::Rapids,  &Writer::Arcs,     &Writer::NoMoves,
        &Writer::Plunge,  &Writer::Back,    &Writer::Odd,     &Writer::Traverses};
    const auto kind = static_cast<size_t>(Whole(0, static_cast<int>(std::size(kKinds)) - 1));
    (this->*kKinds[kind])();
  }

  // A path that turns at random: soft or sharp, level or climbing.
  void Turning() {
    const double spacing = std::pow(10.0, Uniform(-2.5, 1.3));
    const double turn = Chance(0.5) ? 0.1 : 3.0;
    const double climb = Chance(0.4) ? 0 : Chance(0.2) ? 0.0003 : Uniform(0, 1.5);
    double heading = Uniform(0, 6.28);
    for (int i = Whole(1, Chance(0.2) ? 300 : 12); i > 0; --i) {
      heading += Uniform(-turn, turn);
      const double slope = Uniform(-climb, climb);
      Step(spacing * std::cos(heading) * std::cos(slope),
           spacing * std::sin(heading) * std::cos(slope), spacing * std::sin(slope));
      AddCut();
    }
  }

  // Whole steps along the axes: distances that meet the look distance exactly, and right angles.
  void Lattice() {
    const int step = Whole(1, 6);
    for (int i = Whole(1, 20); i > 0; --i) {
      const int way = Chance(0.5) ? step : -step;
      const int axis = Whole(0, 3);
      Step(axis == 0 || axis == 3 ? way : 0, axis == 1 ? way : 0, axis >= 2 ? way : 0);
      AddCut();
    }
  }

  // Moves much longer than the distances that the rules look at.
  void Traverses() {
    for (int i = Whole(1, 10); i > 0; --i) {
      Step(Uniform(-30, 30), Uniform(-30, 30), Chance(0.7) ? 0 : Uniform(-9, 9));
      AddCut();
    }
  }

  void Circling() {
    const double radius = Uniform(0.5, 3.0);
    const double rise = Chance(0.5) ? 0 : Uniform(-0.05, 0.05);
    const double turn = Uniform(0.05, 1.0);
    const bool upright = Chance(0.2);
    for (int i = Whole(5, 200); i > 0; --i) {
      const double dx = radius * (std::cos(turn * (i - 1)) - std::cos(turn * i));
      const double dy = radius * (std::sin(turn * (i - 1)) - std::sin(turn * i));
      upright ? Step(dx, rise, dy) : Step(dx, dy, rise);
      AddCut();
    }
  }

  void Doubled() {
    for (int i = Whole(1, 40); i > 0; --i) {
      // Steps of 0.00001 give a length of 0.
      at_.x += Chance(0.1) ? 0.00001F : 0.0F;
      AddCut();
    }
  }

  // Goes back to an earlier point exactly.
  void Back() {
    if (blocks_.empty()) return;
    const auto index = static_cast<size_t>(Whole(0, static_cast<int>(blocks_.size()) - 1));
    const MotionBlock& block = blocks_[index];
    if (!IsMoveType(block.type)) return;
    at_ = {block.x, block.y, block.z};
    AddCut();
  }

  void Plunge() {
    Step(0, 0, Uniform(-12, 12));
    // Hardly out of the vertical.
    if (Chance(0.3)) at_.x += Chance(0.5) ? 0.00002F : 0.001F;
    Add(Chance(0.5) ? BlockCutStart : BlockCut);
  }

  void Rapids() {
    for (int i = Whole(1, 3); i > 0; --i) {
      if (Chance(0.8)) Step(Uniform(-9, 9), Uniform(-9, 9), Chance(0.5) ? 0 : Uniform(-9, 9));
      Add(i % 2 == 0 ? BlockRapid : BlockRapidStart);
    }
  }

  void Arcs() {
    for (int i = Whole(1, 4); i > 0; --i) {
      const double radius = std::pow(10.0, Uniform(-1, 1.5));
      Step(Uniform(-radius, radius), Uniform(-radius, radius), Chance(0.3) ? Uniform(-1, 1) : 0);
      Add(Chance(0.5) ? BlockArcCcw : BlockArcCw);
      Add(BlockArcCentre);
      const double angle = Uniform(0, 6.28);
      blocks_.back().x = static_cast<float>(radius * std::cos(angle));
      blocks_.back().y = static_cast<float>(radius * std::sin(angle));
      if (Chance(0.03)) blocks_.back().x = 40000.0F;
    }
  }

  // The position of such a block carries no meaning.
  void NoMoves() {
    for (int i = Whole(1, Chance(0.1) ? 300 : 5); i > 0; --i) {
      Add(BlockNone);
      if (Chance(0.3)) blocks_.back().x += 3.0F;
      if (Chance(0.1)) blocks_.back().z = 1e9F;
    }
  }

  // Bad records, places far off and values that are no place, for a move or two.
  void Odd() {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
    const Vec3 back = at_;
    const Vec3 odd[] = {
        {32700.5F, back.y, back.z},   {-40000.0F, back.y, back.z}, {back.x, back.y, 1e9F},
        {back.x, back.y, -kInfinity}, {back.x, 54321.5F, back.z},  {back.x, -1e6F, back.z},
        {back.x, 3e38F, back.z},      {back.x, -3e38F, back.z},    {kNone, back.y, back.z},
        {back.x, kNone, back.z},      {back.x, kInfinity, back.z}};
    at_ = odd[Whole(0, static_cast<int>(std::size(odd)) - 1)];
    for (int i = Whole(1, 2); i > 0; --i) AddCut();
    at_ = back;
    if (Chance(0.5)) AddCut();
  }

  // Zones of an earlier run, and such as no run leaves.
  void Zones() {
    for (MotionBlock& block : blocks_) {
      if (!Chance(0.3)) continue;
      const auto value = [&](int most) {
        return static_cast<int16_t>(Chance(0.3) ? 0 : Whole(0, most));
      };
      block.headPercent = value(90), block.headFeed = value(1200);
      block.tailPercent = value(90), block.tailFeed = value(1200);
    }
  }

  Random* random_;
  size_t moves_;
  std::vector<MotionBlock> blocks_;
  Vec3 at_;
};

template <typename T>
T OneOf(Random* random, std::initializer_list<T> values) {
  const auto last = static_cast<int>(values.size()) - 1;
  return values.begin()[std::uniform_int_distribution<int>(0, last)(*random)];
}

}  // namespace

std::vector<MotionBlock> RandomProgram(Random* random, size_t moves) {
  return Writer(random, moves).Write();
}

bool StaysWithin(float reach, const std::vector<MotionBlock>& blocks) {
  return std::all_of(blocks.begin(), blocks.end(), [=](const MotionBlock& block) {
    return std::abs(block.x) < reach && std::abs(block.y) < reach && std::abs(block.z) < reach;
  });
}

JobRecord RandomJob(Random* random) {
  JobRecord job;
  const bool odd = OneOf(random, {0, 0, 0, 1}) == 1;
  job.SafetyDistance = OneOf(random, {5.0F, 5.0F, 4.0F, 1.0F, 0.25F, 20.0F});
  job.ToolDiameter = OneOf(random, {10.0F, 6.0F, 2.5F, 20.0F});
  job.CornerMinAngle = OneOf(random, {10.0F, 0.0F, 30.0F});
  job.CornerMaxRatio = OneOf(random, {0.1F, 0.3F, 0.05F});
  job.SlopeMinAngle = OneOf(random, {10.0F, 0.0F, 45.0F});
  job.SlopeMaxRatio = OneOf(random, {0.1F, 0.5F});
  job.ConCorChk = OneOf(random, {0, 1, 1, 2});
  job.UpDownChk = OneOf(random, {0, 1, 1, 2});
  job.ZupZdown = OneOf(random, {1.0F, 0.5F, 1.5F});
  job.MaxFeed = OneOf(random, {1000, 2345, 100000});
  job.PlungeFeed = OneOf(random, {1000, 150, 5000});
  job.XyChgReduceCheck = OneOf(random, {0, 0, 1, -1});
  job.FeedChgAng = OneOf(random, {10, 1, 50});
  job.CorWeight30 = OneOf(random, {0.7F, 1.0F, 0.2F});
  job.CorWeight60 = OneOf(random, {0.3F, 0.0F, 0.9F});
  if (!odd) return job;

  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  job.SafetyDistance = OneOf(random, {0.0F, -1.0F, 1e-7F, 1e-22F, 1e30F, kInfinity, 500.0F, 5.0F});
  job.ToolDiameter = OneOf(random, {0.0F, -10.0F, 10.0F});
  job.CornerMinAngle = OneOf(random, {-1.0F, 90.0F, 10.0F});
  job.CornerMaxRatio = OneOf(random, {0.0F, 1.0F, 3.0F, -0.5F, 0.1F});
  job.SlopeMaxRatio = OneOf(random, {0.0F, 1.0F, 2.0F, -1.0F, 0.1F});
  job.MaxFeed = OneOf(random, {0, 7, -500, 2000000000, 1000});
  job.FeedChgAng = OneOf(random, {0, -3, 100000, 10});
  job.ZupZdown = OneOf(random, {-1.0F, 1e20F, 1.0F});
  job.CorWeight0 = OneOf(random, {0.0F, 5.0F, 1.0F});
  job.SideWeight0 = OneOf(random, {-2.0F, 1.0F});
  job.SlopeMinAngle = OneOf(random, {-1.0F, 10.0F});
  job.AfaByMaster = OneOf(random, {0, 1});
  return job;
}

}  // namespace tvx
