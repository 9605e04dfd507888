// Drawing: from the file to the first picture, the fit against a bare walk with the projection, a
// repaint into an image against a general painter that is handed the same runs of points
// ready-made, and the picture files.
#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "measuring.h"
#include "view/metafile_device.h"
#include "view/path_drawing.h"
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

class SilentUi final : public UserInterface {
 public:
  bool ShowMessage(const Message&) override { return true; }
  bool RunModal(Dialog*) override { return false; }
  bool ChooseFile(const FileQuestion&, std::string*) override { return false; }
  void Repaint() override {}
  void ShowStatus(const std::string&) override {}
};

// Swallows a file and counts its bytes.
class Sink final : public OutputFile {
 public:
  bool Write(std::string_view part) override {
    bytes += part.size();
    return true;
  }
  bool Patch(uint64_t, std::string_view) override { return true; }
  bool Commit() override { return true; }

  uint64_t bytes = 0;
};

struct BenchScene {
  LoadedProgram loaded;
  ViewState view;
  SilentUi ui;

  Scene scene() { return {&loaded.program, &loaded.job, &view}; }

  static constexpr ProgramKind kKind = ProgramKind::kRaster;

  static std::string Put(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
    return workspace.Put({.kind = kKind, .lines = lines, .spacing = options.spacing});
  }

  void Load(const std::string& path, const Workspace& workspace) {
    loaded.Load(path, kKind, workspace.HostFiles());
    OnResize(&view.transform, kWidth, kHeight);
    PrepareDevice(&view.transform);
    FitToPath(&view.transform, &loaded.program.store, &ui);
  }
  void Load(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
    Load(Put(lines, options, workspace), workspace);
  }

  // Gives the straight cuts feeds that change every so many moves; 0 for one feed.
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
// The runs of a drawing as a general painter takes them.
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
  return Seconds([&] {
    image.fill(Qt::black);
    QPainter painter(&image);
    for (const auto& run : collector.runs) {
      const PenStyle& style = StyleOf(run.pen);
      // The dashed rapids are left to neither side.
      painter.setPen(QPen(QColor::fromRgb(style.colour), 1));
      painter.drawPolyline(run.points);
    }
  });
}
#endif

double RepaintSeconds(BenchScene* bench, std::vector<uint32_t>* pixels) {
  return Seconds([&] {
    RasterDevice device({pixels->data(), kWidth, kHeight, kWidth}, {-kWidth / 2, -kHeight / 2});
    Paint(bench->scene(), &device);
  });
}

// From the file to the first picture, as a window shows it: load, fit and paint, with memory that
// is touched for the first time. The file is in the system's cache.
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

// Every stored move read and projected, and nothing more.
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
    device->Finish();
  });
}

double MedianOf(int repetitions, const std::function<double()>& seconds) {
  std::vector<double> values(static_cast<size_t>(repetitions));
  std::generate(values.begin(), values.end(), seconds);
  return Median(std::move(values));
}

// Growth of this process's largest memory so far, in kilobytes, by some work.
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

// The picture files one after the other, each into a file of the host.
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
        Require(WritePictureFile(format, path, bench.scene(), workspace.HostFiles()),
                "the picture cannot be written");
      });
      return std::vector<double>{static_cast<double>(kilobytes)};
    });
    table.Row({Grouped(lines), name, Fixed(growth[0], 0)});
  }
}

void Measure(uint64_t lines, const BenchOptions& options, const Workspace& workspace) {
  BenchScene bench;
  bench.Load(lines, options, workspace);
  std::vector<uint32_t> pixels(size_t{kWidth} * kHeight);

  std::printf("\n%s lines on %d x %d pixels\n", Grouped(lines).c_str(), kWidth, kHeight);
  const Table table({"work", "ns a block", "ratio", "to"});
  const auto row = [&](const char* work, double seconds, double reference, const char* to) {
    table.Row({work, Fixed(seconds / static_cast<double>(lines) * 1e9, 1),
               reference > 0 ? Fixed(seconds / reference, 2) : "", to});
  };
  const auto repaint = [&] {
    return MedianOf(options.repetitions, [&] { return RepaintSeconds(&bench, &pixels); });
  };

  const double walk = MedianOf(options.repetitions, [&] { return WalkSeconds(&bench); });
  row("walk and projection", walk, 0, "");
  const double fit = MedianOf(options.repetitions, [&] {
    return Seconds(
        [&] { FitToPath(&bench.view.transform, &bench.loaded.program.store, &bench.ui); });
  });
  row("fit", fit, walk, "walk");

  bench.SetFeeds(0);
  const double oneFeed = repaint();
  row("repaint, one feed", oneFeed, walk, "walk");
#if TVX_BENCH_WITH_QT
  const double painter = MedianOf(options.repetitions, [&] { return PainterSeconds(&bench); });
  row("painter, ready polylines", painter, walk, "walk");
  row("repaint, one feed", oneFeed, painter, "painter");
#endif
  bench.SetFeeds(4);
  row("repaint, a pen each 4", repaint(), oneFeed, "one feed");
  bench.loaded.job.AfaEnabled = 1;
  bench.loaded.job.FeedChgSmoothCheck = 1;
  row("repaint, smooth", repaint(), oneFeed, "one feed");

  Sink sink;
  row("metafile",
      MedianOf(options.repetitions,
               [&] {
                 MetafileDevice device(&sink);
                 return PictureSeconds(&bench, &device);
               }),
      walk, "walk");
  row("SVG",
      MedianOf(options.repetitions,
               [&] {
                 SvgDevice device(&sink, kWidth, kHeight, {-kWidth / 2, -kHeight / 2});
                 return PictureSeconds(&bench, &device);
               }),
      walk, "walk");
}

}  // namespace

}  // namespace tvx::bench

int main(int argc, char** argv) {
  using namespace tvx::bench;
  const BenchOptions options = ReadBenchOptions(argc, argv);
  const Workspace workspace;
  for (const uint64_t lines : options.sizes) Measure(lines, options, workspace);
  MeasureFirstPicture(options, workspace);
  std::puts("");
  MeasureMemory(options.sizes.back(), options, workspace);
}
