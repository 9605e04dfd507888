// A small program and its view, for tests of what reaches the device.
#pragma once

#include <string>
#include <vector>

#include "model/loader.h"
#include "support/scripted_ui.h"
#include "view/path_drawing.h"
#include "view/recorder_device.h"

namespace tvx {

class TestScene {
 public:
  // Seen from above: at one pixel a unit a point (x, y) is the pixel (x, -y).
  explicit TestScene(float viewScale = 1.0F) {
    SetViewMode(&view.transform, 1, &ui);
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

  // The calls of DrawPath on a fresh device, separated by "|".
  std::string PathCalls() {
    const Calls calls = Record([&](DrawingDevice* device) {
      PathDrawing(scene(), &view.screen, kScreenPalette, device).DrawPath();
    });
    return Joined(calls);
  }

  using Calls = std::vector<std::string>;
  template <typename Draw>
  static Calls Record(Draw draw) {
    Calls calls;
    RecorderDevice device([&](std::string_view line) { calls.emplace_back(line); });
    draw(&device);
    return calls;
  }
  static std::string Joined(const Calls& calls) {
    std::string text;
    for (const std::string& call : calls) text += (text.empty() ? "" : "|") + call;
    return text;
  }

  NcProgram program;
  JobRecord job;
  ViewState view;
  ScriptedUi ui;
};

}  // namespace tvx
