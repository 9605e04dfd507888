#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "feed/angle_feed.h"
#include "feed_fixture.h"
#include "model/walks.h"

namespace tvx {

namespace {

class Reference {
 public:
  Reference(BlockStore* store, const JobRecord& job, const MasterGrid& master,
            FeedPassMemory* memory)
      : store_(store), job_(job), master_(master), memory_(memory), block_(store->CurrentBlock) {}

  void Run() {
    uint32_t begin = 0;
    uint32_t end = std::min(200U, store_->blockCount);
    while (true) {
      for (uint32_t i = begin; i < end; ++i) Reset(i);
      for (uint32_t i = begin; i < end; ++i) {
        if (IsCutBlock(store_, i) == 1 && !Slope(i)) break;
      }
      if (job_.AfaByMaster == 1) {
        for (uint32_t i = begin; i < end; ++i) {
          if (IsCutBlock(store_, i) == 1) Master(i);
        }
      }
      for (uint32_t i = begin; i < end; ++i) {
        if (IsMoveBlock(store_, i) == 0) continue;
        const bool isCut = block_.type == 3 || block_.type == 4;
        if (isCut || IsArc(i)) Xy(i);
        if (isCut) Z(i);
      }
      for (uint32_t i = begin; i < end; ++i) Arc(i);
      if (end == store_->blockCount) return;
      begin = end;
      end = std::min(end + 200, store_->blockCount);
    }
  }

 private:
  struct Walk {
    uint32_t end = 0;
    Difference d;
    Vec3 u;
  };

  void Reset(uint32_t i) {
    if (IsMoveBlock(store_, i) == 0) return;
    block_.feedProgrammed = job_.MaxFeed;
    block_.feed = job_.MaxFeed;
    store_->WriteBlock(i);
  }

  static int32_t AtLeast(double lowest, int32_t f) {
    return f < lowest ? TruncateToInt(lowest) : f;
  }

  int32_t Stepped(int32_t feed) const {
    const int32_t step = job_.FeedChgAng < 1 ? 1 : job_.FeedChgAng;
    const int32_t stepped = feed / step * step;
    return stepped == 0 ? feed : stepped;
  }

  bool Slope(uint32_t i) {
    Difference d;
    Vec3 u;
    if (BlockVector(store_, i, PrevMove(store_, i), &d, &u) == 0) return false;
    if (d.length <= 0.0001 || std::abs(u.z) <= 0.0001) return true;
    float a = Angle(u.z, static_cast<float>(SafeSqrt(Square(u.x) + Square(u.y))));
    if (a > 180) a = 360 - a;
    if (a > 90) a = 90;
    if (!(a > job_.SlopeMinAngle)) return true;
    store_->ReadBlock(i);
    const double ratio = job_.SlopeMaxRatio;
    int32_t f = job_.PlungeFeed;
    if (block_.type != 3 || !(a > 89)) {
      f = AtLeast(block_.feedProgrammed * ratio,
                  AngleFeed(job_.SideWeight0, job_.SideWeight30, job_.SideWeight60,
                            job_.SlopeMaxRatio, job_.MaxFeed, a, BandEdges::kStrict));
    }
    if (job_.UpDownChk == 1) {
      if (u.z < 0) f = TruncateToInt(f * static_cast<double>(job_.ZupZdown));
      f = f > job_.MaxFeed ? job_.MaxFeed : AtLeast(job_.MaxFeed * ratio, f);
    }
    block_.feed = Stepped(f);
    store_->WriteBlock(i);
    return true;
  }

  int32_t Steepest(const Vec3& point) const {
    if (master_.Cells.Empty()) return 0;
    return PlainLookup(master_, point, job_.SafetyDistance >= 1 ? job_.SafetyDistance : 1.0F);
  }

  int32_t SteepestAlong(const Vec3& end, const Difference& d) const {
    const double radius = job_.SafetyDistance >= 1 ? job_.SafetyDistance : 1.0F;
    const auto before = [&](int k, int n) {
      return Vec3{static_cast<float>(end.x - k * double{d.dx} / n),
                  static_cast<float>(end.y - k * double{d.dy} / n),
                  static_cast<float>(end.z - k * double{d.dz} / n)};
    };
    if (master_.Cells.Empty() || !(d.length > 1.2 * radius)) return 0;
    if (!(d.length > 6 * radius)) return Steepest(before(1, 2));
    const int n = TruncateToInt(d.length / radius);
    int32_t steepest = 0;
    for (int k = 3; k < n - 2; ++k) steepest = std::max(steepest, Steepest(before(k, n)));
    return steepest;
  }

  int32_t MasterFeed(int32_t angle) const {
    return AngleFeed(job_.SideWeight0, job_.SideWeight30, job_.SideWeight60, job_.SlopeMaxRatio,
                     job_.MaxFeed, static_cast<float>(angle), BandEdges::kInclusive);
  }
  // With the block in the register.
  int32_t MasterZoneFeed(int32_t angle) const {
    return AtLeast(block_.feedProgrammed * double{job_.SlopeMaxRatio}, MasterFeed(angle)) / 10 * 10;
  }

  int16_t MasterPercent(float length) const {
    const double reach = job_.SafetyDistance;
    return length > 1.2 * reach ? TruncateTo<int16_t>(reach * 100 / length) : int16_t{0};
  }

  void Master(uint32_t i) {
    Difference d, ahead;
    Vec3 unused;
    BlockVector(store_, i, PrevMove(store_, i), &d, &unused);
    const Vec3 point = Point(i);
    uint32_t n = NextMove(store_, i);
    const bool moves = !NoMove(n) && BlockVector(store_, i, n, &ahead, &unused) == 1;
    const int16_t pct1 = MasterPercent(d.length);
    const int16_t pct2 = MasterPercent(moves ? ahead.length : 0);
    const int32_t aEnd = Steepest(point);
    int32_t aMove = SteepestAlong(point, d);
    const int32_t aMax = std::max(aEnd, aMove);
    if (!(static_cast<float>(aMax) > job_.SlopeMinAngle)) return;
    if (pct1 == 0) aMove = aMax;
    store_->ReadBlock(i);
    if (static_cast<float>(aMove) > job_.SlopeMinAngle && block_.feed > MasterFeed(aMove)) {
      block_.feed = MasterFeed(aMove);
      store_->WriteBlock(i);
    }
    if (pct1 == 0 || pct1 >= 100) return;

    const int32_t f = MasterZoneFeed(aEnd);
    Widen(&block_.tailPercent, &block_.tailFeed, pct1, f);
    store_->WriteBlock(i);
    if (Covered()) {
      block_.feed = Collapse(i, f) / 10 * 10;
      store_->WriteBlock(i);
    }

    n = NextMove(store_, i);
    if (0 < pct2 && pct2 < 100) {
      memory_->LastNextBlock = n;
      store_->ReadBlock(n);
      if (block_.feed > f) Widen(&block_.headPercent, &block_.headFeed, pct2, f);
      store_->WriteBlock(n);
      if (Covered()) Collapse(n, f);
      return;
    }
    if (NoMove(n) || n == memory_->LastNextBlock) return;
    store_->ReadBlock(n);
    memory_->LastNextBlock = n;
    if (block_.feed > MasterZoneFeed(aEnd)) {
      block_.feed = MasterZoneFeed(aEnd);
      store_->WriteBlock(n);
    }
  }

  bool IsArc(uint32_t i) {
    return store_->ReadBlock(i) == 1 && (block_.type == 6 || block_.type == 8);
  }

  void Arc(uint32_t i) {
    if (!IsArc(i)) return;
    int32_t f = block_.feed;
    if (0 < block_.headFeed && block_.headFeed < f) f = block_.headFeed;
    if (0 < block_.tailFeed && block_.tailFeed < f) f = block_.tailFeed;
    block_.headPercent = block_.headFeed = block_.tailPercent = block_.tailFeed = 0;
    block_.feedProgrammed = block_.feed = f;
    store_->WriteBlock(i);
  }

  bool NoMove(uint32_t next) const { return next == 0 || next >= store_->blockCount; }

  Vec3 Point(uint32_t i) {
    store_->ReadBlock(i);
    return {block_.x, block_.y, block_.z};
  }

  bool ForwardWalk(uint32_t i, uint32_t n, float reach, Walk* walk) {
    walk->end = n;
    BlockVector(store_, walk->end, i, &walk->d, &walk->u);
    while (walk->d.length < reach) {
      walk->end = NextMove(store_, walk->end);
      if (NoMove(walk->end)) return false;
      if (IsRapidBlock(store_, walk->end) == 1) {
        walk->end = PrevMove(store_, walk->end);
        return true;
      }
      BlockVector(store_, walk->end, i, &walk->d, &walk->u);
    }
    return true;
  }

  bool BackwardWalk(uint32_t i, uint32_t p, float reach, Walk* walk) {
    walk->end = p;
    BlockVector(store_, i, walk->end, &walk->d, &walk->u);
    while (walk->d.length < reach) {
      walk->end = PrevMove(store_, walk->end);
      if (IsRapidBlock(store_, walk->end) == 1) {
        walk->end = NextMove(store_, walk->end);
        break;
      }
      BlockVector(store_, i, walk->end, &walk->d, &walk->u);
      if (walk->end == 0) return false;
    }
    BlockVector(store_, i, walk->end, &walk->d, &walk->u);
    return true;
  }

  // start + way * (numerator) / length, axis by axis
  static Vec3 Along(const Vec3& start, const Difference& way, double travel) {
    return {static_cast<float>(start.x + way.dx * travel / way.length),
            static_cast<float>(start.y + way.dy * travel / way.length),
            static_cast<float>(start.z + way.dz * travel / way.length)};
  }

  // The point at about the look distance on the segment that a walk ended with. Its end near the
  // corner is g.
  bool ForwardPoint(uint32_t i, uint32_t n, const Walk& walk, float reach, Vec3* point) {
    const uint32_t g = walk.end == n ? i : PrevMove(store_, walk.end);
    return FarPoint(i, g, g, walk.end, 1, reach, point);
  }
  bool BackwardPoint(uint32_t i, uint32_t p, const Walk& walk, float reach, Vec3* point) {
    const uint32_t g = walk.end == p ? i : NextMove(store_, walk.end);
    return FarPoint(i, g, walk.end, g, -1, reach, point);
  }
  bool FarPoint(uint32_t i, uint32_t g, uint32_t from, uint32_t to, double way, float reach,
                Vec3* point) {
    Difference a, v;
    Vec3 unused;
    BlockVector(store_, i, g, &a, &unused);
    BlockVector(store_, to, from, &v, &unused);
    if (v.length == 0) return false;
    *point = Along(Point(g), v, way * (double{reach} - a.length));
    return true;
  }

  float XyAngle(const Vec3& w) const {
    float c = memory_->headings.forward - memory_->headings.backward;
    if (w.z != 0 && !((Square(w.x) + Square(w.y)) / Square(w.z) > 0.1)) c = 0;
    if (c < 0) c = c + 360;
    if (c > 180) c = 360 - c;
    if (c > 90) c = 90;
    return c;
  }

  int32_t CornerFeed(float c) const {
    if (c > 90) c = 90;
    const int32_t v = AngleFeed(job_.CorWeight0, job_.CorWeight30, job_.CorWeight60,
                                job_.CornerMaxRatio, job_.MaxFeed, c, BandEdges::kInclusive);
    return Stepped(AtLeast(job_.MaxFeed * double{job_.CornerMaxRatio}, v));
  }

  static int16_t Percent(float reach, float length) {
    const auto percent = TruncateTo<int16_t>(reach * 100.0 / length);
    return percent == 0 ? int16_t{1} : percent;
  }

  static int16_t Held(int32_t feed) {
    return static_cast<int16_t>(std::clamp(feed, -32768, 32767));
  }

  static void Widen(int16_t* percent, int16_t* feed, int16_t newPercent, int32_t newFeed) {
    *percent = std::max(*percent, newPercent);
    if (*feed > newFeed || *feed == 0) *feed = Held(newFeed);
  }

  bool Covered() const { return block_.tailPercent + block_.headPercent > 80; }

  int32_t Collapse(uint32_t index, int32_t f) {
    if (block_.headFeed == 0) block_.headFeed = block_.tailFeed;
    if (block_.tailFeed == 0) block_.tailFeed = block_.headFeed;
    if (block_.headFeed > block_.tailFeed) block_.headFeed = block_.tailFeed;
    if (0 < block_.headFeed && block_.headFeed < f) f = block_.headFeed;
    block_.headPercent = block_.headFeed = block_.tailPercent = block_.tailFeed = 0;
    block_.feed = f;
    store_->WriteBlock(index);
    return f;
  }

  // Slows the tail of block i, and the head of block n. The Xy search collapses zones also where it
  // lowered nothing.
  void SlowMoves(uint32_t i, uint32_t n, int16_t tailPercent, int16_t headPercent, float c,
                 bool isXy) {
    int32_t v = CornerFeed(c);
    store_->ReadBlock(i);
    if (tailPercent != 0) {
      const bool lower = block_.feed > v;
      if (lower) Widen(&block_.tailPercent, &block_.tailFeed, tailPercent, v);
      store_->WriteBlock(i);
      if ((lower || isXy) && Covered()) v = Collapse(i, v);
    } else {
      LowerWhole(i, v);
    }
    store_->ReadBlock(n);
    if (headPercent != 0) {
      const bool lower = block_.feed > v;
      if (lower) Widen(&block_.headPercent, &block_.headFeed, headPercent, v);
      store_->WriteBlock(n);
      if ((lower || isXy) && Covered()) Collapse(n, v);
    } else if (block_.type == 4) {
      LowerWhole(n, v);
    }
  }

  void LowerWhole(uint32_t index, int32_t v) {
    if (block_.feed <= v) return;
    block_.feed = v;
    if (block_.tailFeed > v) block_.tailFeed = block_.tailPercent = 0;
    if (block_.headFeed > v) block_.headFeed = block_.headPercent = 0;
    store_->WriteBlock(index);
  }

  void Xy(uint32_t i) {
    CornerHeadings* h = &memory_->headings;
    float reach = job_.SafetyDistance;
    if (job_.XyChgReduceCheck != 0) reach = static_cast<float>(reach * double{0.3F});
    const uint32_t n = NextMove(store_, i);
    if (NoMove(n)) return;
    const uint32_t p = PrevMove(store_, i);

    Difference d;
    Vec3 u, w;
    BlockVector(store_, n, i, &d, &u);
    if (d.length >= 0.01) h->forward = Angle(u.y, u.x);
    BlockVector(store_, i, p, &d, &w);
    if (d.length >= 0.01) h->backward = Angle(w.y, w.x);
    const float c0 = XyAngle(w);

    Walk fw;
    if (!ForwardWalk(i, n, reach, &fw)) return;
    if (fw.u.x == 0 && fw.u.y == 0) return;
    const bool nextZone = fw.end == n && fw.d.length > reach;
    Vec3 t;
    if (!ForwardPoint(i, n, fw, reach, &t)) return;
    Vec3 v1;
    DiffVectors(t, Point(i), &d, &v1);
    if (d.length >= 0.01) h->forward = Angle(v1.y, v1.x);

    Walk bw;
    if (!BackwardWalk(i, p, reach, &bw)) return;
    if (bw.u.x == 0 && bw.u.y == 0) return;
    const bool prevZone = bw.end == p && bw.d.length > reach;
    Vec3 q;
    if (!BackwardPoint(i, p, bw, reach, &q)) return;
    Vec3 v2;
    DiffVectors(Point(i), q, &d, &v2);
    if (d.length >= 0.01) h->backward = Angle(v2.y, v2.x);
    const float c1 = XyAngle(v2);
    float c = c0 < c1 ? c1 : c0;

    if (IsArc(fw.end) || IsArc(i)) {
      store_->ReadBlock((IsArc(fw.end) ? fw.end : i) + 1);
      const auto r = static_cast<float>(std::sqrt(Square(block_.x) + Square(block_.y)));
      const auto limit = static_cast<float>(0.5 * job_.ToolDiameter + job_.SafetyDistance);
      if (r < 0.6 * job_.ToolDiameter) {
        c = 90;
      } else if (r < limit && 90 - (double{r} / limit) * 90 > c) {
        c = static_cast<float>(90 - (double{r} / limit) * 90);
      }
    }
    if (c <= job_.CornerMinAngle) return;
    SlowMoves(i, n, prevZone ? Percent(reach, bw.d.length) : int16_t{0},
              nextZone ? Percent(reach, fw.d.length) : int16_t{0}, c, true);
  }

  static float Rise(const Vec3& unit) {
    if (std::abs(unit.z) < 0.0001) return 0;
    return Angle(unit.z, static_cast<float>(SafeSqrt(Square(unit.x) + Square(unit.y))));
  }

  void Z(uint32_t i) {
    const float reach = job_.SafetyDistance;
    const uint32_t n = NextMove(store_, i);
    if (NoMove(n)) return;
    const uint32_t p = PrevMove(store_, i);
    if (IsRapidBlock(store_, n) == 1) return;

    Difference d;
    Walk fw;
    if (!ForwardWalk(i, n, reach, &fw)) return;
    Vec3 t;
    if (!ForwardPoint(i, n, fw, reach, &t)) return;
    Vec3 v1;
    DiffVectors(t, Point(i), &d, &v1);

    Walk bw;
    if (!BackwardWalk(i, p, reach, &bw)) return;
    Vec3 q;
    if (!BackwardPoint(i, p, bw, reach, &q)) return;
    Vec3 v2;
    DiffVectors(Point(i), q, &d, &v2);

    float c = Rise(v1) - Rise(v2);
    if (c < 0) c = c + 360;
    if (c > 180) c = 360 - c;
    if (job_.ConCorChk != 1 && v1.z - v2.z <= 0) return;
    if (c <= job_.CornerMinAngle) return;
    SlowMoves(i, n, bw.end == p ? Percent(reach, bw.d.length) : int16_t{0},
              fw.end == n ? Percent(reach, fw.d.length) : int16_t{0}, c, false);
  }

  BlockStore* store_;
  const JobRecord& job_;
  const MasterGrid& master_;
  FeedPassMemory* memory_;
  MotionBlock& block_;
};

}  // namespace

void ReferencePass(BlockStore* store, const JobRecord& job, const MasterGrid& master,
                   FeedPassMemory* memory) {
  Reference(store, job, master, memory).Run();
}

}  // namespace tvx
