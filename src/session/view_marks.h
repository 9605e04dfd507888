// The moves that are marked in the picture of a window: the one that the mouse rests on, and the
// one that the user works with. Both are dropped when another program fills the store.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "view/pick.h"

namespace tvx {

enum class Mark { kHovered, kKept };
inline constexpr int kMarks = 2;

// When the picture is moved so that the move of a line is in its middle.
enum class Centring { kAlways, kIfOutside };

class ViewMarks {
 public:
  // The move at a pixel of the drawing area, origin top left; nothing if there is none within
  // PickIndex::kReach. The first call for a program looks at all of its blocks, unless Prepare has
  // done so.
  std::optional<uint32_t> MoveAt(const Scene& scene, Pixel pixel);

  // Makes the first MoveAt for a program as fast as the others.
  void Prepare(NcProgram* program) { IndexOf(program); }

  // The point about which a drag from a pixel turns the picture: on the move there, else in the
  // middle of the picture, as deep as the middle of the path. The register stays as it is.
  Vec3 PivotAt(const Scene& scene, Pixel pixel);

  // Marks a block or, for nothing, none. Returns true if that is a change.
  bool Set(Mark mark, const NcProgram& program, std::optional<uint32_t> block);
  std::optional<uint32_t> BlockOf(Mark mark, const NcProgram& program) const;

  // The line of a mark as the last drawing has it, in pixels from the centre of the drawing area.
  // Empty for no mark and for a block that is no move.
  std::vector<Pixel> LineOf(Mark mark, const Scene& scene);

 private:
  const PickIndex& IndexOf(NcProgram* program);

  struct MarkedBlock {
    std::optional<uint32_t> block;
    uint32_t edition = 0;
  };
  MarkedBlock marked_[kMarks];
  std::unique_ptr<PickIndex> index_;
  std::pair<uint32_t, uint32_t> indexed_;  // edition and number of blocks: of a load under way, too
};

}  // namespace tvx
