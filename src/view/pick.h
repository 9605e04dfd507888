// Finds the move at a pixel of the picture: the one whose drawn line is nearest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "model/block_store.h"
#include "view/drawing_device.h"
#include "view/path_drawing.h"

namespace tvx {

// A box in space with sides along the axes, mm.
struct PathBox {
  float low[3];
  float high[3];
};

// Answers where the moves of one store appear, in any view. The index is valid as long as no
// coordinate and no type in the store changes: make a new one after each load. A feed pass changes
// neither. It takes less than half a byte for each block.
//
// Pixels are those that the drawing hands to its device: the origin is the centre of the drawing
// area. The results are those of a drawing of the whole scene; the scene is left as it was.
class PickIndex {
 public:
  // How far from a line a pixel still counts as on it, pixels.
  static constexpr int kReach = 6;

  // Looks at every block once, which repairs bad records. The register stays as it is. The store
  // has to outlive the index.
  explicit PickIndex(BlockStore* store);

  // The block of the move whose drawn line is nearest to the pixel, at most kReach away; of several
  // at the same distance the one drawn last. Nothing if there is none. An arc is reported as the
  // first of its two blocks.
  std::optional<uint32_t> Pick(const Scene& scene, Pixel pixel) const;

  // The line of one move, from the point where the drawing arrives at it. A hidden rapid has the
  // line of a visible one. Empty for a block that is no move and for a move of which nothing is
  // drawn; a single point for the first move, to which the drawing only moves.
  std::vector<Pixel> DrawnLine(const Scene& scene, uint32_t block) const;

  // Memory in use beside the object itself.
  size_t Bytes() const { return runs_.capacity() * sizeof(PathBox); }

 private:
  friend class MoveDrawing;

  static constexpr uint32_t kRunBlocks = 64;

  BlockStore* store_;
  // Of each run of blocks, bounds of the lines that its moves draw.
  std::vector<PathBox> runs_;
};

}  // namespace tvx
