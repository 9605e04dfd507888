// The moves and events of a program in the order in which a machine control runs them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tvx {

// X, Y and Z, mm.
using Point = std::array<double, 3>;

// The plane of an arc. Its first and second axis form a right-handed system with the third.
enum class Plane : uint8_t { kXY, kZX, kYZ };

struct PlaneAxes {
  uint8_t first, second, third;  // indices of a Point
};
inline constexpr PlaneAxes kPlaneAxes[] = {{0, 1, 2}, {2, 0, 1}, {1, 2, 0}};

constexpr PlaneAxes AxesOf(Plane plane) {
  return kPlaneAxes[static_cast<size_t>(plane)];
}

// "XY", "ZX", "YZ".
constexpr std::string_view PlaneName(Plane plane) {
  constexpr std::string_view kNames[] = {"XY", "ZX", "YZ"};
  return kNames[static_cast<size_t>(plane)];
}

enum class MoveKind : uint8_t { kRapid, kCut, kArc };

// One move. Angle and radius of an arc change linearly from start to end, and so does the third
// axis.
struct ControlMove {
  uint64_t line = 0;  // source line that holds the words of the move, from 1
  uint64_t run = 0;   // counts the lines run: the moves of one run of a line have the same number
  MoveKind kind = MoveKind::kRapid;
  Point start{}, end{};
  double feed = 0;    // mm/min; 0 for rapids, and while no feed is known
  double length = 0;  // mm, above 1e-9
  // Of an arc.
  Plane plane = Plane::kXY;
  std::array<double, 2> centre{};  // on the first and second axis of the plane, mm
  double sweep = 0;  // radians, positive counter-clockwise seen against the third axis
};

enum class EventKind : uint8_t {
  kDwell,  // value: seconds, above 0
  kTool,   // value: the tool
  kStop,   // value: 0 for M0 and STOP, 1 for M1
  kCode,   // value: the number of an M word that has no effect on the path
};

// What a control does between two moves.
struct ControlEvent {
  uint64_t line = 0;  // as of a move
  uint64_t run = 0;
  EventKind kind = EventKind::kDwell;
  double value = 0;
};

// Gets moves and events one by one, in the order in which they are run.
class MoveReceiver {
 public:
  virtual ~MoveReceiver() = default;
  virtual void Move(const ControlMove& move) = 0;
  virtual void Event(const ControlEvent& event) = 0;
};

}  // namespace tvx
