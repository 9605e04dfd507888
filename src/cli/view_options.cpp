// The drawing options, applied in the order of the documentation.
#include "cli/view_options.h"

#include "cli/command.h"
#include "cli/numbers.h"
#include "view/view_transform.h"

namespace tvx {
namespace {

constexpr int kDefaultMode = 4;
// No window is wider, and a square of it is the largest image that is written.
constexpr int32_t kLargestSize = 16384;  // pixels

template <size_t count>
std::optional<std::array<int32_t, count>> NumbersOf(const std::optional<std::string>& word,
                                                    const std::string& name,
                                                    const std::string& form) {
  if (!word) return std::nullopt;
  std::array<int32_t, count> numbers;
  ReadNumbers(*word, ',', numbers, name, form);
  return numbers;
}

bool IsSize(int32_t pixels) {
  return pixels >= 1 && pixels <= kLargestSize;
}

}  // namespace

void ViewOptions::AddTo(CommandLine* line) {
  line->AddOption("--size", &sizeWord_, "WxH: size of the drawing area (default 800x600)");
  line->AddOption("--view", &mode_,
                  "N: 1 top, 2 front, 3 right, 4 to 7 isometric (default 4); then the view is "
                  "fitted to the path");
  line->AddOption("--angles", &anglesWord_, "X,Y,Z: turn the view, in whole degrees");
  line->AddOption("--scale", &scaleWord_, "S: pixels per mm");
  line->AddOption("--pan", &panWord_, "X,Y: what appears at the centre, in whole mm");
  line->AddOption("--zoom", &zoomWord_,
                  "X1,Y1,X2,Y2: zoom to this rectangle, in pixels from the top left");
  line->AddFlag("--hide-rapids", &hideRapids_, "do not draw the rapid moves");
  line->AddFlag("--as-picture", &asPicture_, "the drawing of the picture file, for a white page");
}

void ViewOptions::Check() {
  if (sizeWord_) {
    const std::string form = "size WxH of 1 to " + std::to_string(kLargestSize) + " pixels";
    ReadNumbers(*sizeWord_, 'x', size_, "--size", form);
    if (!IsSize(size_[0]) || !IsSize(size_[1])) {
      throw WrongCall{"--size: '" + *sizeWord_ + "' is no " + form};
    }
  }
  if (mode_ && (*mode_ < 1 || *mode_ > kViewModes)) {
    throw WrongCall{"--view: '" + std::to_string(*mode_) + "' is no view from 1 to " +
                    std::to_string(kViewModes)};
  }
  angles_ = NumbersOf<3>(anglesWord_, "--angles", "X,Y,Z in whole degrees");
  if (scaleWord_) scale_ = NumberOf(*scaleWord_, "--scale");
  pan_ = NumbersOf<2>(panWord_, "--pan", "X,Y in whole mm");
  zoom_ = NumbersOf<4>(zoomWord_, "--zoom", "X1,Y1,X2,Y2 in pixels");
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
