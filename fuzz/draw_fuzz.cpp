// Fuzzes the drawing of a program in the picture formats. The first bytes of the input choose the
// format, the view and how feeds are drawn; the rest is a program in the word-address format.

#include <algorithm>
#include <string_view>

#include "fuzz_world.h"
#include "model/loader.h"
#include "session/view_commands.h"
#include "view/picture.h"

namespace {

using namespace tvx;

constexpr size_t kChoices = 6;
constexpr int32_t kSide = 60;  // pixels; a larger page only makes the runs slow
constexpr float kScales[] = {30, 0.001F, 500, 1e-9F, 7};
// A circle in a small view has some hundred chords, and one in a large view fills a file.
constexpr size_t kMostProgram = 400;  // bytes

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < kChoices) return 0;
  const auto choice = [&](size_t i) { return static_cast<int32_t>(data[i]); };
  const std::string_view text = AsText(data, size).substr(kChoices);
  FuzzFiles files(text.substr(0, kMostProgram));
  ParserStates states;
  NcProgram program;
  JobRecord job;
  if (!LoadNcFile("c:\\fuzz.nc", &program, &states, &job, &files).ok()) return 0;

  ViewState view;
  OnResize(&view.transform, kSide, kSide);
  PrepareDevice(&view.transform);
  SetViewMode(&view.transform, choice(1) % (kViewModes + 1));
  FitToPath(&view.transform, &program.store);
  if (choice(2) % 2 == 1) view.transform.viewScale = kScales[choice(2) / 2 % std::size(kScales)];
  // A fit of points far away leaves the pan at the end of its range.
  constexpr int32_t kFar = 1'000'000'000;
  int32_t& pan = view.transform.panX;
  if (-kFar < pan && pan < kFar) pan += choice(3) - 128;
  view.RapidVisible = choice(4) % 2;
  job.AfaEnabled = choice(5) % 2;
  job.FeedChgSmoothCheck = choice(5) / 2 % 2;

  const Scene scene{&program, &job, &view};
  constexpr PictureFormat kFormats[] = {PictureFormat::kMetafile, PictureFormat::kSvg,
                                        PictureFormat::kPng};
  const PictureFormat format = kFormats[choice(0) % std::size(kFormats)];
  Require(WritePictureFile(format, "c:\\fuzz", scene, &files).ok());
  Require(files.written.size() > kSide);
  if (format == PictureFormat::kMetafile) Require(IsMetafile(files.written));
  return 0;
}
