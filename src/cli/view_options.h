// The options that commands with a drawing share.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "cli/command_line.h"
#include "session/tvx_view.h"

namespace tvx {

// The options that the commands on the picture share, called VIEW in their help: how the program is
// looked at.
class ViewOptions {
 public:
  void AddTo(CommandLine* line);
  // After the parse. Throws WrongCall for a value that is none.
  void Check();

  // Sets up the view in the order in which the options act: the size of the drawing area, the view
  // mode, the fit to the loaded program if `fits`, the angles, scale and pan that were given, the
  // zoom, and the rapids.
  void Apply(CTVXView* view, bool fits) const;

  // True if the drawing of the picture file is wanted instead of the screen's.
  bool AsPicture() const { return asPicture_; }

 private:
  std::optional<std::string> sizeWord_, anglesWord_, scaleWord_, panWord_, zoomWord_;
  std::optional<int> mode_;
  bool hideRapids_ = false;
  bool asPicture_ = false;

  // What the words say.
  std::array<int32_t, 2> size_ = {800, 600};      // pixels
  std::optional<std::array<int32_t, 3>> angles_;  // degrees
  std::optional<float> scale_;                    // pixels per world unit
  std::optional<std::array<int32_t, 2>> pan_;     // world units
  std::optional<std::array<int32_t, 4>> zoom_;    // pixels from the top left of the area
};

}  // namespace tvx
