// Random programs that reach the rare cases of the feed adjustment. All draws are statements or
// elements of braces, so that their order is defined.
#include "support/random_program.h"

#include <cmath>

namespace tvx {

namespace {

struct Writer {
  void Add(uint32_t type) {
    const int32_t feed = r.Whole(1, 3000);
    blocks.push_back(
        {.x = at.x, .y = at.y, .z = at.z, .feedProgrammed = feed, .feed = feed, .type = type});
  }
  void AddCut() { Add(r.Chance(10) ? BlockCutStart : BlockCut); }
  struct Way {
    double x, y, z;
  };
  // Three decimals, as in a file.
  void Step(const Way& way) {
    const auto moved = [](double from, double by) {
      return static_cast<float>(std::round((from + by) * 1000.0) / 1000.0);
    };
    at = {moved(at.x, way.x), moved(at.y, way.y), moved(at.z, way.z)};
  }

  // Straight on, in circles, softly or sharply turning; level, climbing or repeating one point.
  void Path() {
    const double spacing = r.OneOf({0.0, 0.004, 0.03, 0.3, 1.0, 3.0, 12.0, 30.0});
    const double turn = r.OneOf({0.0, 0.1, 3.0}), bend = r.OneOf({0.0, 0.07, 0.9});
    const double climb = r.OneOf({0.0, 0.0, 0.0003, 0.2, 1.5});
    double heading = r.Real(0, 6.28);
    for (int i = r.Whole(1, r.Chance(20) ? 250 : 12); i > 0; --i) {
      heading += bend + r.Real(-turn, turn);
      const double slope = r.Real(-climb, climb), level = spacing * std::cos(slope);
      Step({level * std::cos(heading), level * std::sin(heading), spacing * std::sin(slope)});
      if (spacing == 0) at.x += r.OneOf({0.0F, 0.0F, 0.00001F});  // too short to have a length
      AddCut();
    }
  }

  // Whole steps along the axes: distances that equal the look distance, right angles, plunges.
  void Lattice() {
    const int step = r.Whole(1, 6);
    for (int i = r.Whole(1, 20); i > 0; --i) {
      const double way = r.OneOf({step, -step});
      Step(r.OneOf<Way>({{way, 0, 0}, {0, way, 0}, {0, 0, way}, {way, 0, way}}));
      if (r.Chance(3)) at.x += r.OneOf({0.00002F, 0.001F});  // hardly out of the vertical
      AddCut();
    }
  }

  void Rapids() {
    for (int i = r.Whole(1, 3); i > 0; --i) {
      if (r.Chance(80)) Step({r.Real(-9, 9), r.Real(-9, 9), r.OneOf({0.0, -4.0, 7.5})});
      Add(i % 2 == 0 ? BlockRapid : BlockRapidStart);
    }
  }

  void Arcs() {
    for (int i = r.Whole(1, 4); i > 0; --i) {
      const double radius = r.OneOf({0.2, 1.5, 4.0, 5.5, 6.0, 8.0, 9.9, 25.0});
      Step({r.Real(-radius, radius), r.Real(-radius, radius), r.OneOf({0.0, 0.0, 0.7})});
      Add(r.Chance(50) ? BlockArcCcw : BlockArcCw);
      Add(BlockArcCentre);
      const double angle = r.Real(0, 6.28);
      blocks.back().x = static_cast<float>(radius * std::cos(angle));
      blocks.back().y = static_cast<float>(radius * std::sin(angle));
      if (odd && r.Chance(3)) blocks.back().x = 40000.0F;
    }
  }

  // The position of such a block has no meaning.
  void NoMoves() {
    for (int i = r.Whole(1, r.Chance(10) ? 250 : 5); i > 0; --i) {
      Add(BlockNone);
      blocks.back().x += r.OneOf({0.0F, 3.0F, 1e9F});
    }
  }

  // Returns to an earlier point exactly.
  void Back() {
    const MotionBlock& block = blocks[static_cast<size_t>(r.Whole(1, 1 << 20)) % blocks.size()];
    if (!IsMoveType(block.type) || !(std::abs(block.x) + std::abs(block.z) < 1e4F)) return;
    at = EndPoint(block);
    AddCut();
  }

  // Bad records, huge coordinates and values that are no coordinates, for a move or two.
  void Odd() {
    const Vec3 back = at;
    at.*r.OneOf({&Vec3::x, &Vec3::y, &Vec3::z}) =
        r.OneOf({32700.5F, -40000.0F, 54321.5F, -1e6F, 3e38F, -3e38F, HUGE_VALF, NAN});
    for (int i = r.Whole(1, 2); i > 0; --i) AddCut();
    at = back;
    if (r.Chance(50)) AddCut();
  }

  void Zones() {
    for (MotionBlock& b : blocks) {
      for (int16_t* const field : {&b.headPercent, &b.tailPercent, &b.headFeed, &b.tailFeed}) {
        if (r.Chance(20)) *field = static_cast<int16_t>(r.OneOf({5, 30, 60, 90, 400, 1200}));
      }
    }
  }

  Random& r;
  bool odd;
  std::vector<MotionBlock> blocks = {};
  Vec3 at = {};
};

}  // namespace

std::vector<MotionBlock> RandomProgram(Random* random, size_t moves, bool odd) {
  Writer writer{*random, odd};
  do {
    using Run = void (Writer::*)();
    const Run run =
        random->OneOf<Run>({&Writer::Path, &Writer::Path, &Writer::Path, &Writer::Lattice,
                            &Writer::Lattice, &Writer::Rapids, &Writer::Rapids, &Writer::Arcs,
                            &Writer::NoMoves, &Writer::Back, &Writer::Odd});
    const bool needsBlocks = run == &Writer::Back, isOdd = run == &Writer::Odd;
    if ((!needsBlocks || !writer.blocks.empty()) && (!isOdd || odd)) (writer.*run)();
  } while (writer.blocks.size() < moves);
  if (random->Chance(20)) writer.Zones();
  return writer.blocks;
}

MasterGrid RandomModel(const std::vector<MotionBlock>& blocks, Random* random) {
  const size_t centre = blocks.size() / static_cast<size_t>(random->Whole(2, 9));
  const int columns = random->Whole(5, 45), rows = random->Whole(5, 45);
  MasterGrid grid = EmptyGrid(columns, rows, random->OneOf({1.0F, 0.7F}));
  grid.OriginX = blocks[centre].x - static_cast<float>(random->Whole(0, 30));
  grid.OriginY = blocks[centre].y - static_cast<float>(random->Whole(0, 30));
  const int share = random->OneOf({1, 5, 50});
  for (int32_t i = 0; i < grid.CellCount; ++i) {
    const float z = blocks[centre].z + static_cast<float>(random->Whole(-4, 7));
    const int angle = random->Chance(share) ? random->Whole(0, 90) : 0;
    SetCell(&grid, i % columns, i / columns, z, angle);
  }
  IndexCells(&grid);
  return grid;
}

}  // namespace tvx
