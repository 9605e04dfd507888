// Measures drawing: the time to the first picture, the fit compared with a bare walk that projects
// every point, a repaint compared with QPainter drawing the same prepared polylines, and the
// picture files.
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "feed/feed_pass.h"
#include "measuring.h"
#include "platform/vector_registers.h"
#include "view/metafile_device.h"
#include "view/mouse_view.h"
#include "view/path_drawing.h"
#include "view/pick.h"
#include "view/picture.h"
#include "view/polyline_device.h"
#include "view/raster_device.h"
#include "view/svg_device.h"
#include "workspace.h"

#if TVX_BENCH_WITH_QT
#include <QImage>
#include <QPainter>
#include <QPolygon>
#endif

namespace tvx::bench {

namespace {

constexpr int32_t kWidth = 1600, kHeight = 1000;

// Discards a file and counts its bytes.
class Sink final : public OutputFile {
 public:
  Status Write(std::string_view part) override {
    bytes += part.size();
    return {};
  }
  Status Patch(uint64_t, std::string_view) override { return {}; }
  Status Commit() override { return {}; }

  uint64_t bytes = 0;
};

struct BenchScene {
  LoadedProgram loaded;
  ViewState view;

  Scene scene() { return {&loaded.program, &loaded.job, &view}; }

  static constexpr ProgramKind kKind = ProgramKind::kRaster;

  static std::string Put(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
    return workspace.Put({.kind = kKind, .lines = lines, .spacing = options.spacing});
  }

  void Load(const std::string& path, const Workspace& workspace) {
    loaded.Load(path, kKind, workspace.HostFiles());
    OnResize(&view.transform, kWidth, kHeight);
    PrepareDevice(&view.transform);
    FitToPath(&view.transform, &loaded.program.store);
  }
  void Load(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
    Load(Put(lines, options, workspace), workspace);
  }

  // Sets feeds of straight cuts that change every `changeEvery` moves; 0 means a single feed.
  void SetFeeds(uint32_t changeEvery) {
    BlockStore& store = loaded.program.store;
    for (uint32_t index = 0; index < store.blockCount; ++index) {
      if (store.ReadBlock(index) == 0) continue;
      if (!IsCutType(store.CurrentBlock.type)) continue;
      const uint32_t band = changeEvery == 0 ? 0 : index / changeEvery % kFeedBands;
      store.CurrentBlock.feed = static_cast<int32_t>(1000 - band * 140);
      store.WriteBlock(index);
    }
    loaded.program.FeedBase = 1000;
  }
};

#if TVX_BENCH_WITH_QT
// Collects the runs of a drawing as polylines for QPainter.
class PolygonCollector final : public PolylineDevice {
 public:
  struct Run {
    Pen pen;
    QPolygon points;
  };
  void FillRectangle(int32_t, int32_t, int32_t, int32_t, Colour) override {}
  void Finish() { EndRun(); }
  std::vector<Run> runs;

 private:
  void UsePen(Pen) override {}
  void PlaceText(Pixel, std::string_view) override {}
  void DrawRun(std::span<const Pixel> points) override {
    QPolygon polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const Pixel p : points) polygon.append({p.x + kWidth / 2, p.y + kHeight / 2});
    runs.push_back({pen(), std::move(polygon)});
  }
};

double PainterSeconds(BenchScene* bench) {
  PolygonCollector collector;
  Paint(bench->scene(), &collector);
  collector.Finish();
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  const double seconds = Seconds([&] {
    image.fill(Qt::black);
    QPainter painter(&image);
    for (const auto& run : collector.runs) {
      const PenStyle& style = StyleOf(run.pen);
      // Drawn solid: dashing the rapids is not part of the comparison.
      painter.setPen(QPen(QColor::fromRgb(style.colour), 1));
      painter.drawPolyline(run.points);
    }
  });
  ReleaseVectorRegisters();  // as the window does
  return seconds;
}
#endif

double RepaintSeconds(BenchScene* bench, std::vector<uint32_t>* pixels) {
  return Seconds([&] {
    RasterDevice device({pixels->data(), kWidth, kHeight, kWidth}, {-kWidth / 2, -kHeight / 2});
    Paint(bench->scene(), &device);
  });
}

// The time from opening a file to its first picture: load, fit and paint, with memory that was
// never used. The file is in the page cache.
void MeasureFirstPicture(const BenchOptions& options, const Workspace& workspace) {
  std::puts("");
  const Table table({"lines", "first picture, ns a line", "ratio", "to"});
  double reference = 0;
  for (const uint64_t lines : options.sizes) {
    const std::string path = BenchScene::Put(lines, options, workspace);
    const auto seconds = MediansOfFreshProcesses(options.repetitions, [&] {
      BenchScene bench;
      std::vector<uint32_t> pixels(size_t{kWidth} * kHeight);
      return std::vector<double>{Seconds([&] { bench.Load(path, workspace); }) +
                                 RepaintSeconds(&bench, &pixels)};
    });
    const double each = seconds[0] / static_cast<double>(lines) * 1e9;
    if (reference == 0) reference = each;
    table.Row({Grouped(lines), Fixed(each, 1), Fixed(each / reference, 2), "the first row"});
  }
}

// Measures the frames of a picture with smooth changes of feed while the middle button turns it,
// and while the wheel zooms in at a pointer beside the middle, then out again.
void MeasureFrames(const BenchOptions& options, const Workspace& workspace) {
  constexpr int kFrames = 31;
  constexpr int kStepsIn = 20;
  std::puts("");
  const Table table({"lines", "turned, ms a frame", "longest", "zoomed, ms a frame", "longest"});
  for (const uint64_t lines : options.sizes) {
    BenchScene bench;
    bench.Load(lines, options, workspace);
    bench.SetFeeds(4);
    bench.loaded.job.AfaEnabled = bench.loaded.job.FeedChgSmoothCheck = 1;
    std::vector<uint32_t> pixels(size_t{kWidth} * kHeight);
    ViewTransform* const view = &bench.view.transform;
    MouseDrag drag;
    drag.BeginTurn({kWidth / 2, kHeight / 2}, {});
    std::vector<double> turned, zoomed;
    for (int x = 1; x <= kFrames; ++x) {
      drag.MoveTo({kWidth / 2 + 3 * x, kHeight / 2 + x}, view);
      turned.push_back(RepaintSeconds(&bench, &pixels) * 1e3);
    }
    FitToPath(view, &bench.loaded.program.store);
    for (int step = 0; step < 2 * kStepsIn; ++step) {
      ZoomAt(view, {kWidth * 5 / 8, kHeight / 2}, step < kStepsIn ? 1 : -1);
      zoomed.push_back(RepaintSeconds(&bench, &pixels) * 1e3);
    }
    table.Row({Grouped(lines), Fixed(Median(turned), 1), Fixed(std::ranges::max(turned), 1),
               Fixed(Median(zoomed), 1), Fixed(std::ranges::max(zoomed), 1)});
  }
}

// Reads and projects every stored move.
double WalkSeconds(BenchScene* bench) {
  BlockStore& store = bench->loaded.program.store;
  return Seconds([&] {
    int64_t sum = 0;
    for (uint32_t index = 0; index < store.blockCount; ++index) {
      if (store.ReadBlock(index) == 0) continue;
      const MotionBlock& block = store.CurrentBlock;
      const Pixel pixel = Project(&bench->view.transform, {block.x, block.y, block.z});
      sum += pixel.x + pixel.y;
    }
    Keep(sum);
  });
}

template <typename Device>
double PictureSeconds(BenchScene* bench, Device* device) {
  return Seconds([&] {
    DrawPicture(bench->scene(), device);
    Require(device->Finish().ok(), "the picture cannot be written");
  });
}

// Growth of the peak memory of this process during `work`, in kilobytes.
long MemoryGrowth(const std::function<void()>& work) {
  const auto largest = [] {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  };
  const long before = largest();
  work();
  return largest() - before;
}

// Measures the memory for each format of picture file, written to a host file.
void MeasureMemory(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
  const Table table({"lines", "picture", "kB beyond the store"});
  const struct {
    PictureFormat format;
    const char* name;
  } formats[] = {{PictureFormat::kMetafile, "picture.emf"},
                 {PictureFormat::kSvg, "picture.svg"},
                 {PictureFormat::kPng, "picture.png"}};
  for (const auto& [format, name] : formats) {
    const auto growth = InFreshProcess([&, format = format, name = name] {
      BenchScene bench;
      bench.Load(lines, options, workspace);
      bench.SetFeeds(4);
      const std::string path = workspace.Put({.lines = 20}) + name;
      const long kilobytes = MemoryGrowth([&] {
        Require(WritePictureFile(format, path, bench.scene(), workspace.HostFiles()).ok(),
                "the picture cannot be written");
      });
      return std::vector<double>{static_cast<double>(kilobytes)};
    });
    table.Row({Grouped(lines), name, Fixed(growth[0], 0)});
  }
}

// A measured operation, and the row that it is compared with.
struct Work {
  const char* name;
  const char* reference;  // "" for none
  std::function<double()> measure;
  std::vector<double> seconds = {};
};

// Measures all operations in turns, so that a temporary slowdown of the machine affects both sides
// of a ratio.
void MeasureInTurn(std::vector<Work>* works, int repetitions) {
  for (int i = 0; i < repetitions; ++i) {
    for (Work& work : *works) work.seconds.push_back(work.measure());
  }
}

void Print(const std::vector<Work>& works, uint64_t lines) {
  const Table table({"work                   ", "ns a block", "ratio", "to"});
  for (const Work& work : works) {
    const double each = Median(work.seconds) / static_cast<double>(lines) * 1e9;
    const auto reference = std::ranges::find(works, std::string_view(work.reference), &Work::name);
    std::vector<double> ratios;
    for (size_t i = 0; reference != works.end() && i < work.seconds.size(); ++i) {
      ratios.push_back(work.seconds[i] / reference->seconds[i]);
    }
    table.Row({work.name, Fixed(each, 1), ratios.empty() ? "" : Fixed(Median(ratios), 2),
               work.reference});
  }
}

void Measure(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
  BenchScene bench;
  bench.Load(lines, options, workspace);
  std::vector<uint32_t> pixels(size_t{kWidth} * kHeight);
  const auto prepare = [&](uint32_t changeEvery, bool smooth) {
    bench.SetFeeds(changeEvery);
    bench.loaded.job.AfaEnabled = smooth ? 1 : 0;
    bench.loaded.job.FeedChgSmoothCheck = smooth ? 1 : 0;
  };
  const auto repaint = [&](uint32_t changeEvery, bool smooth) {
    prepare(changeEvery, smooth);
    return RepaintSeconds(&bench, &pixels);
  };
  const auto picture = [&](auto makeDevice) {
    prepare(4, true);
    Sink sink;
    auto device = makeDevice(&sink);
    return PictureSeconds(&bench, &device);
  };

  // The walk is not measured directly after QPainter, which would leave other data in the CPU
  // caches.
  std::vector<Work> works = {
#if TVX_BENCH_WITH_QT
    {"painter", "",
     [&] {
       prepare(0, false);
       return PainterSeconds(&bench);
     }},
    {"repaint", "painter", [&] { return repaint(0, false); }},
#else
    {"repaint", "walk", [&] { return repaint(0, false); }},
#endif
    {"repaint, a pen each 4", "repaint", [&] { return repaint(4, false); }},
    {"repaint, smooth", "repaint", [&] { return repaint(4, true); }},
    {"metafile, smooth", "walk",
     [&] { return picture([](Sink* sink) { return MetafileDevice(sink); }); }},
    {"SVG, smooth", "walk",
     [&] {
       return picture([](Sink* sink) {
         return SvgDevice(sink, kWidth, kHeight, {-kWidth / 2, -kHeight / 2});
       });
     }},
    {"walk", "", [&] { return WalkSeconds(&bench); }},
    {"fit", "walk",
     [&] {
       return Seconds([&] { FitToPath(&bench.view.transform, &bench.loaded.program.store); });
     }},
  };
  MeasureInTurn(&works, options.repetitions);
  std::printf("\n%s lines on %d x %d pixels\n", Grouped(lines).c_str(), kWidth, kHeight);
  Print(works, lines);
}

// Picks at a grid of pixels in every fixed view, fitted, zoomed and at the largest zoom. The
// program is adjusted, so that moves have portions, and drawn with colour ramps, the slowest
// drawing of a move.
void MeasurePick(ProgramKind kind, const BenchOptions& options, const Workspace& workspace) {
  constexpr float kLargestZoom = 500.0F;  // pixels a mm
  std::printf("\nPicks in %s\n", std::string(KindName(kind)).c_str());
  const Table table({"lines", "index, ns a block", "to a walk", "bytes a block", "median pick, ms",
                     "longest pick, ms"});
  for (const uint64_t lines : options.sizes) {
    BenchScene bench;
    bench.Load(workspace.Put({.kind = kind, .lines = lines, .spacing = options.spacing}),
               workspace);
    FeedPassMemory memory;
    FeedPass(&bench.loaded.program, bench.loaded.job, nullptr, &memory);
    bench.loaded.job.AfaEnabled = bench.loaded.job.FeedChgSmoothCheck = 1;
    BlockStore& store = bench.loaded.program.store;
    const double walk = WalkSeconds(&bench);
    std::optional<PickIndex> index;
    const double making = Seconds([&] { index.emplace(&store); });
    std::vector<double> picks;
    for (int mode = 1; mode <= kViewModes; ++mode) {
      SetViewMode(&bench.view.transform, mode);
      FitToPath(&bench.view.transform, &store);
      const float fitted = bench.view.transform.viewScale;
      for (const float scale : {fitted, fitted * 8, kLargestZoom}) {
        bench.view.transform.viewScale = scale;
        for (int32_t x = -kWidth / 2; x < kWidth / 2; x += 97) {
          for (int32_t y = -kHeight / 2; y < kHeight / 2; y += 61) {
            picks.push_back(Seconds([&] { Keep(index->Pick(bench.scene(), {x, y})); }) * 1e3);
          }
        }
      }
    }
    table.Row({Grouped(lines), Fixed(making / store.blockCount * 1e9, 1), Fixed(making / walk, 2),
               Fixed(static_cast<double>(index->Bytes()) / store.blockCount, 2),
               Fixed(Median(picks), 2), Fixed(*std::ranges::max_element(picks), 1)});
  }
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  const Workspace workspace;
  for (const uint64_t lines : options.sizes) Measure(lines, options, workspace);
  MeasureFirstPicture(options, workspace);
  MeasureFrames(options, workspace);
  std::puts("");
  MeasurePick(ProgramKind::kRaster, options, workspace);
  MeasurePick(ProgramKind::kArcs, options, workspace);
  std::puts("");
  MeasureMemory(options.sizes.back(), options, workspace);
}
