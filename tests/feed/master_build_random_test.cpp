// The build of a master model against a plain one, on random surfaces.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <vector>

#include "feed/master_build.h"
#include "model/path.h"
#include "platform/numbers.h"
#include "random_program.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

// Every stage by its rule and nothing else: no sample is left out, and the finished grid is copied
// together in place, cell by cell.
class PlainBuild {
 public:
  PlainBuild(BlockStore* store, float tolerance) : store_(store), tolerance_(tolerance) {}

  void Run() {
    Vec3 low, high;
    PathExtents(store_, &low, &high);
    const auto originX = static_cast<float>(double{low.x} - tolerance_);
    const auto originY = static_cast<float>(double{low.y} - tolerance_);
    const double n = std::trunc((double{high.x} - originX) / tolerance_) *
                     std::trunc((double{high.y} - originY) / tolerance_);
    const int k = 350 * n <= 60e6 ? 5 : TruncateToInt(std::sqrt(60e6 / (14 * n)));
    c_ = tolerance_ / static_cast<float>(k);
    for (uint32_t i = 0; i < store_->blockCount; ++i) {
      if (IsMoveBlock(store_, i) == 0) continue;
      store_->CurrentBlock.x -= originX;
      store_->CurrentBlock.y -= originY;
      store_->WriteBlock(i);
    }
    CleanPlunges(store_);
    PathExtents(store_, &low, &high);
    NX = TruncateToInt(double{high.x} / c_ + 1);
    NY = TruncateToInt(double{high.y} / c_ + 1);
    cells.assign(static_cast<size_t>(NX) * static_cast<size_t>(NY), {});
    for (uint32_t i = 0; i < store_->blockCount; ++i) Sample(i);
    const int reach = TruncateToInt(4.0 / c_);
    for (int iy = 1; iy < NY; ++iy) {
      for (int ix = 1; ix < NX; ++ix) {
        if (At(ix, iy).z == -9999) continue;
        Fill(ix, iy, 1, 0, reach, &MasterCell::x);
        Fill(ix, iy, 0, 1, reach, &MasterCell::y);
      }
    }
    for (int iy = 0; iy < NY; iy += k) {
      for (int ix = 0; ix < NX; ix += k) {
        const int kept = (NX / k) * iy / k + ix / k;
        cells[static_cast<size_t>(kept)] = At(ix, iy);
      }
    }
    NX /= k;
    NY /= k;
    c_ = tolerance_;
    for (int iy = 1; iy < NY; ++iy) {
      for (int ix = 1; ix < NX; ++ix) {
        const float steepest =
            std::max(SlopeOnAxis(ix, iy, 1, 0, ix, NX), SlopeOnAxis(ix, iy, 0, 1, iy, NY));
        At(ix, iy).angle = static_cast<int16_t>(steepest);
      }
    }
  }

  int NX = 0, NY = 0;
  std::vector<MasterCell> cells;

 private:
  MasterCell& At(int ix, int iy) {
    const int index = iy * NX + ix;
    return cells[static_cast<size_t>(index)];
  }
  bool Inside(int ix, int iy) const { return ix >= 0 && ix < NX && iy >= 0 && iy < NY; }

  Vec3 Point(uint32_t i) {
    store_->ReadBlock(i);
    return {store_->CurrentBlock.x, store_->CurrentBlock.y, store_->CurrentBlock.z};
  }

  static float Distance(const Vec3& a, const Vec3& b) {
    Difference d;
    Vec3 u;
    DiffVectors(a, b, &d, &u);
    return d.length;
  }

  void Deposit(const Vec3& s) {
    const int ix = TruncateToInt(double{s.x} / c_);
    const int iy = TruncateToInt(double{s.y} / c_);
    if (!Inside(ix, iy)) return;
    const Vec3 node = {static_cast<float>(ix * double{c_}), static_cast<float>(iy * double{c_}),
                       s.z};
    MasterCell& cell = At(ix, iy);
    if (Distance(node, s) < Distance(node, {cell.x, cell.y, s.z})) {
      cell.x = s.x, cell.y = s.y, cell.z = s.z;
    }
  }

  void Sample(uint32_t i) {
    if (IsCutBlock(store_, i) == 0) return;
    const uint32_t p = PrevMove(store_, i);
    Difference d;
    Vec3 u;
    BlockVector(store_, i, p, &d, &u);
    const Vec3 s = Point(p);
    if (u.z == -1) return Deposit(Point(i));
    if (u.z == 1) return Deposit(s);
    const float m = std::max(std::abs(d.dx), std::abs(d.dy));
    const int n = 2 * TruncateToInt(double{m} / c_) + 1;
    for (int j = 0; j < n; ++j) {
      const auto at = [&](float from, float way) {
        if (std::abs(way) <= 0.001) return from;
        return static_cast<float>(from + j * double{way} / n);
      };
      Deposit({at(s.x, d.dx), at(s.y, d.dy), at(s.z, d.dz)});
    }
  }

  void Fill(int ix, int iy, int alongX, int alongY, int reach, float MasterCell::*place) {
    const int index = alongX * ix + alongY * iy;
    for (int g = 1; g < reach; ++g) {
      if (index - g < 1) return;
      MasterCell& a = At(ix, iy);
      MasterCell& b = At(ix - alongX * g, iy - alongY * g);
      if (b.z == -9999) continue;
      const double p0 = a.*place, z0 = a.z, p1 = b.*place, z1 = b.z;
      a.*place = static_cast<float>(index * double{c_});
      a.z = static_cast<float>((a.*place - p0) * (z1 - z0) / (p1 - p0) + z0);
      b.*place = static_cast<float>((index - g) * double{c_});
      b.z = static_cast<float>((b.*place - p0) * (z1 - z0) / (p1 - p0) + z0);
      for (int m = 1; m < g; ++m) {
        At(ix - alongX * m, iy - alongY * m).z =
            static_cast<float>((double{b.z} - a.z) * m / g + a.z);
      }
      return;
    }
  }

  bool HasSlope(int ax, int ay, int bx, int by) {
    return Inside(bx, by) && At(ax, ay).z != -9999 && At(bx, by).z != -9999;
  }
  float Slope(int ax, int ay, int bx, int by) {
    if (!HasSlope(ax, ay, bx, by)) return 0;
    Difference d;
    Vec3 u;
    DiffVectors({0, 0, At(ax, ay).z}, {c_, 0, At(bx, by).z}, &d, &u);
    float h = Angle(u.z, u.x);
    if (h > 180) h -= 180;
    if (h > 90) h = 180 - h;
    return h;
  }
  float SlopeOnAxis(int ix, int iy, int dx, int dy, int index, int count) {
    const bool ahead = index == 1 || (!HasSlope(ix, iy, ix - dx, iy - dy) && index < count - 1);
    return ahead ? Slope(ix, iy, ix + dx, iy + dy) : Slope(ix, iy, ix - dx, iy - dy);
  }

  BlockStore* store_;
  float tolerance_;
  float c_ = 0;
};

// Passes over an uneven surface with gaps, jumps, plunges and arcs.
class Surface {
 public:
  explicit Surface(unsigned seed) : random_(seed) {}

  std::vector<MotionBlock> Write() {
    // Now and then so long and narrow that the budget allows no full refinement.
    const bool isLong = Chance(0.1);
    const double length = isLong ? Uniform(300, 7'000) : Uniform(3, 60);
    const double width = isLong ? 0.3 : Uniform(0.5, 40);
    tolerance = static_cast<float>(isLong ? 0.05 : Uniform(0.3, 4));
    const double step = isLong ? 60 : Uniform(0.05, 5);
    const double left = Uniform(-50, 50);
    const double front = Uniform(-50, 50);
    Add(BlockRapidStart, left, front, 50);
    double y = -0.1;
    while ((y += isLong ? 0.1 : Uniform(0.1, 6)) <= width) {
      if (Chance(0.7)) {
        Add(BlockRapidStart, left, front + y, 50);
        if (Chance(0.5)) Add(BlockRapid, left, front + y, 10);
        Add(BlockCutStart, left, front + y, 0);
      }
      double x = 0;
      while ((x += Uniform(0.2, 1.8) * step) <= length) {
        if (Chance(0.03)) x += 4 * step;
        const double side = !isLong && Chance(0.3) ? Uniform(-0.5, 0.5) : 0;
        Add(Chance(0.05) ? BlockCutStart : BlockCut, left + x, front + y + side,
            5 * std::sin(x / 7) + Uniform(0, 0.5));
        if (Chance(0.05)) blocks_.back().z += 8;
        if (Chance(0.05)) Again(BlockCut, Uniform(-3, 3));
        if (Chance(0.02)) Again(BlockRapid, 40);
        if (Chance(0.02)) Add(BlockArcCw, left + x, front + y + 1, 1), Add(BlockArcCentre, 1, 1, 1);
        if (Chance(0.02)) Add(BlockNone, 0, 0, 0);
      }
    }
    return blocks_;
  }

  float tolerance = 1;

 private:
  double Uniform(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }
  bool Chance(double share) { return Uniform(0, 1) < share; }

  void Add(BlockType type, double x, double y, double z) {
    MotionBlock block;
    block.x = static_cast<float>(std::round(x * 1000) / 1000);
    block.y = static_cast<float>(std::round(y * 1000) / 1000);
    block.z = static_cast<float>(std::round(z * 1000) / 1000);
    block.type = type;
    blocks_.push_back(block);
  }
  // Straight up or down from the last place.
  void Again(BlockType type, double rise) {
    blocks_.push_back(blocks_.back());
    blocks_.back().z += static_cast<float>(rise);
    blocks_.back().type = type;
  }

  Random random_;
  std::vector<MotionBlock> blocks_;
};

TEST(BuildMaster, GivesTheCellsOfThePlainBuildOnRandomSurfaces) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    Surface surface(seed);
    const std::vector<MotionBlock> blocks = surface.Write();
    NcProgram program;
    BlockStore store;
    Fill(&program.store, blocks);
    Fill(&store, blocks);
    CMasterDlg input;
    input.MasterTolerance = surface.tolerance;
    MasterGrid grid;
    int32_t RapidVisible = 1;
    ScriptedUi ui;
    if (blocks.size() < 5) continue;
    ASSERT_EQ(BuildMaster(input, &program, &grid, &RapidVisible, &ui), 1) << "seed " << seed;

    PlainBuild plain(&store, surface.tolerance);
    plain.Run();
    ASSERT_EQ(grid.NX, plain.NX) << "seed " << seed;
    ASSERT_EQ(grid.NY, plain.NY) << "seed " << seed;
    for (size_t i = 0; i < static_cast<size_t>(grid.CellCount); ++i) {
      ASSERT_EQ(std::bit_cast<uint32_t>(grid.Cells[i].z), std::bit_cast<uint32_t>(plain.cells[i].z))
          << "seed " << seed << " cell " << i;
      ASSERT_EQ(grid.Cells[i].angle, plain.cells[i].angle) << "seed " << seed << " cell " << i;
    }
  }
}

}  // namespace
}  // namespace tvx
