// Compares the edition of the program, so that no command has to drop the marks.
#include "session/view_marks.h"

#include "model/walks.h"
#include "view/mouse_view.h"

namespace tvx {

const PickIndex& ViewMarks::IndexOf(NcProgram* program) {
  const std::pair current(program->edition, program->store.blockCount);
  if (index_ == nullptr || indexed_ != current) {
    index_ = std::make_unique<PickIndex>(&program->store);
    indexed_ = current;
  }
  return *index_;
}

std::optional<uint32_t> ViewMarks::MoveAt(const Scene& scene, Pixel pixel) {
  const Pixel origin = TopLeftOf(scene.view->transform);
  return IndexOf(scene.program).Pick(scene, {pixel.x + origin.x, pixel.y + origin.y});
}

Vec3 ViewMarks::PivotAt(const Scene& scene, Pixel pixel) {
  const ViewTransform& view = scene.view->transform;
  BlockStore* const store = &scene.program->store;
  if (const auto block = MoveAt(scene, pixel)) {
    return PointAt(view, pixel, EndPoint(*store->Peek(*block)));
  }
  const MotionBlock kept = store->CurrentBlock;
  Vec3 low, high;
  PathExtents(store, &low, &high);  // around the origin if there is no cut
  store->CurrentBlock = kept;
  const Vec3 middle = {(low.x + high.x) / 2, (low.y + high.y) / 2, (low.z + high.z) / 2};
  return PointAt(view, {view.clientWidth / 2, view.clientHeight / 2}, middle);
}

bool ViewMarks::Set(Mark mark, const NcProgram& program, std::optional<uint32_t> block) {
  const bool isChange = BlockOf(mark, program) != block;
  marked_[static_cast<int>(mark)] = {block, program.edition};
  return isChange;
}

std::optional<uint32_t> ViewMarks::BlockOf(Mark mark, const NcProgram& program) const {
  const MarkedBlock& marked = marked_[static_cast<int>(mark)];
  return marked.edition == program.edition ? marked.block : std::nullopt;
}

std::vector<Pixel> ViewMarks::LineOf(Mark mark, const Scene& scene) {
  const auto block = BlockOf(mark, *scene.program);
  if (!block) return {};
  return IndexOf(scene.program).DrawnLine(scene, *block);
}

}  // namespace tvx
