// The drawing options, applied in the order of the documentation.
#include "cli/view_options.h"

#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/tool_text.h"
#include "view/view_transform.h"

namespace tvx {
namespace {

constexpr int kDefaultMode = 4;
// No window is wider, and a square of it is the largest image that is written.
constexpr int32_t kLargestSize = 16384;  // pixels

template <size_t count>
std::optional<std::array<int32_t, count>> NumbersOf(const std::optional<std::string>& word,
                                                    const std::string& name, const Message& form) {
  if (!word) return std::nullopt;
  std::array<int32_t, count> numbers;
  ReadNumbers(*word, ',', numbers, name, Say(form));
  return numbers;
}

bool IsSize(int32_t pixels) {
  return pixels >= 1 && pixels <= kLargestSize;
}

}  // namespace

void ViewOptions::AddTo(CommandLine* line) {
  line->AddOption(
      "--size", &sizeWord_,
      {"WxH: 그림 영역의 크기 (기본 800x600)", "WxH: size of the drawing area (default 800x600)"});
  line->AddOption("--view", &mode_,
                  {"N: 1 위, 2 앞, 3 우측, 4에서 7 입체 (기본 4), 보기를 경로에 맞춤",
                   "N: 1 top, 2 front, 3 right, 4 to 7 isometric (default 4); then the view is "
                   "fitted to the path"});
  line->AddOption("--angles", &anglesWord_,
                  {"X,Y,Z: 보기를 돌리는 각도, 정수", "X,Y,Z: turn the view, in whole degrees"});
  line->AddOption("--scale", &scaleWord_, {"S: 1 mm의 픽셀 수", "S: pixels per mm"});
  line->AddOption(
      "--pan", &panWord_,
      {"X,Y: 중심에 나타날 위치, 정수 mm", "X,Y: what appears at the centre, in whole mm"});
  line->AddOption("--zoom", &zoomWord_,
                  {"X1,Y1,X2,Y2: 이 사각형을 확대, 왼쪽 위에서 픽셀",
                   "X1,Y1,X2,Y2: zoom to this rectangle, in pixels from the top left"});
  line->AddFlag("--hide-rapids", &hideRapids_,
                {"급속이송을 그리지 않음", "do not draw the rapid moves"});
  line->AddFlag("--as-picture", &asPicture_,
                {"그림화일과 같이 흰 종이에 맞추어 그리기",
                 "the drawing of the picture file, for a white page"});
}

void ViewOptions::Check() {
  if (sizeWord_) {
    const std::string form = Say({"1에서 {most} 픽셀의 크기 WxH", "size WxH of 1 to {most} pixels"},
                                 {{"most", kLargestSize}});
    ReadNumbers(*sizeWord_, 'x', size_, "--size", form);
    if (!IsSize(size_[0]) || !IsSize(size_[1])) {
      throw WrongCall{NoSuchForm("--size", *sizeWord_, form)};
    }
  }
  if (mode_ && (*mode_ < 1 || *mode_ > kViewModes)) {
    throw WrongCall{Say({"--view: 1에서 {most}까지의 보기가 아닙니다: '{mode}'",
                         "--view: '{mode}' is no view from 1 to {most}"},
                        {{"mode", *mode_}, {"most", kViewModes}})};
  }
  angles_ = NumbersOf<3>(anglesWord_, "--angles", {"정수 각도 X,Y,Z", "X,Y,Z in whole degrees"});
  if (scaleWord_) scale_ = NumberOf(*scaleWord_, "--scale");
  pan_ = NumbersOf<2>(panWord_, "--pan", {"정수 mm X,Y", "X,Y in whole mm"});
  zoom_ = NumbersOf<4>(zoomWord_, "--zoom", {"픽셀 X1,Y1,X2,Y2", "X1,Y1,X2,Y2 in pixels"});
}

void ViewOptions::Apply(CTVXView* view, bool fits) const {
  ViewTransform* const transform = &view->view.transform;
  OnResize(transform, size_[0], size_[1]);
  PrepareDevice(transform);
  SetViewMode(transform, mode_.value_or(kDefaultMode));
  if (fits) FitToPath(transform, &view->program.store);
  if (angles_) {
    transform->rotX = (*angles_)[0];
    transform->rotY = (*angles_)[1];
    transform->rotZ = (*angles_)[2];
    transform->UpdateTrigTable();
  }
  if (scale_) transform->viewScale = *scale_;
  if (pan_) {
    transform->panX = (*pan_)[0];
    transform->panY = (*pan_)[1];
  }
  if (zoom_) {
    const auto [x1, y1, x2, y2] = *zoom_;
    ZoomToRect(transform, {x1, y1}, {x2, y2});
  }
  if (hideRapids_) view->view.RapidVisible = 0;
}

}  // namespace tvx
