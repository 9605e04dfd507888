// A small program and its view, and the calls that a drawing of it makes.
#pragma once

#include <string>
#include <utility>

#include "model/loader.h"
#include "view/path_drawing.h"
#include "view/recorder_device.h"

namespace tvx {

struct TestScene {
  // Seen from above: at one pixel a unit a point (x, y) is the pixel (x, -y).
  explicit TestScene(float viewScale = 1.0F) {
    SetViewMode(&view.transform, 1);
    view.transform.viewScale = viewScale;
  }

  void Add(MotionBlock block) {
    program.store.CurrentBlock = block;
    program.store.WriteBlock(program.store.blockCount++);
  }
  void Add(uint32_t type, float x, float y, int32_t feed = 0) {
    Add({.x = x, .y = y, .feed = feed, .type = type});
  }
  void AddArc(uint32_t type, float x, float y, float i, float j) {
    Add(type, x, y);
    Add(BlockArcCentre, i, j);
  }

  Scene scene() { return {&program, &job, &view}; }

  // The calls of a drawing on a fresh device, separated by "|".
  template <typename Draw>
  std::string Calls(Draw draw) {
    std::string calls;
    RecorderDevice device(
        [&](std::string_view call) { calls.append(calls.empty() ? "" : "|").append(call); });
    PathDrawing drawing(scene(), &view.screen, kScreenPalette, &device);
    draw(&drawing);
    return calls;
  }
  std::string PathCalls() {
    return Calls([](PathDrawing* drawing) { drawing->DrawPath(); });
  }

  NcProgram program;
  JobRecord job;
  ViewState view;
};

}  // namespace tvx
