// The steps of one program from its file to its figures. The commands of a window, the run over a
// job list and the tool all use these; each decides what the user sees of a result.
#pragma once

#include <string>

#include "feed/feed_pass.h"
#include "feed/master_grid.h"
#include "model/loader.h"
#include "model/result_entry.h"
#include "shell/tvx_view.h"
#include "view/path_drawing.h"
#include "view/view_transform.h"

namespace tvx {

// What the steps work on in one window.
struct ProgramContext {
  NcProgram* program;
  JobRecord* job;
  const MasterGrid* master;
  ViewTransform* transform;
  CutTimeEntry* current;           // receives the figures
  FeedPassMemory* feedPassMemory;  // of the application
  UserInterface* ui;               // repaints
  FeedCauses* causes;              // follow the adjustment; null if they are not wanted
  bool keepsProgrammed;            // the figures before the first adjustment of a program
};

ProgramContext ProgramContextOf(CTVXView* view);

// The picture of a window's program.
Scene SceneOf(CTVXView* view);

// Loads an NC file, by its drive path or relative to the current directory. The path and the name
// in it become the current file of the window; a file that cannot be opened leaves none.
LoadResult LoadFile(CTVXView* view, const std::string& path);

// Adjusts the feeds by the job record and the master model. The trace receives each change; without
// one, the causes of the context do. Returns false if the user stopped it, which leaves a part of
// the feeds as they were.
bool AdjustFeeds(const ProgramContext& context, const FeedTrace& trace = {});

// Computes the figures into the current result, which keeps its names.
void CountTimes(const ProgramContext& context);

// Adjusts the feeds if `adjusts`, fits the view to the path, which repaints, and computes the
// figures. Returns false if the user stopped one of them, or work before.
bool AdjustFitCount(const ProgramContext& context, bool adjusts);

}  // namespace tvx
