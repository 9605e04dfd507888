// The time that a machine needs for a program: arcs, acceleration, corners, dwells and tool changes
// included. docs/machine_time.md describes the model.
#pragma once

#include <cstdint>

#include "insight/machine_profile.h"
#include "model/block_store.h"

namespace tvx {

// What a program has the machine do beside its moves.
struct ProgramPauses {
  double dwellSeconds = 0;
  uint64_t toolChanges = 0;
};

// All minutes except the steady ones are multiplied by the profile's Factor.
struct MachineTime {
  double cutMinutes = 0;  // straight cuts and arcs
  double rapidMinutes = 0;
  double dwellMinutes = 0;
  double toolMinutes = 0;
  double totalMinutes = 0;
  // Length over feed, arcs included: no acceleration, corners, axis limits of cuts or block time.
  double steadyCutMinutes = 0;
  double steadyRapidMinutes = 0;
  uint64_t movesWithoutFeed = 0;  // cuts that are in none of the times since they have no feed
};

// Estimates the time of the stored program by the feeds in force, in three stages: every move gets
// its length, directions and limits (machine_move.h), every corner its highest speed, and two
// passes over the program turn both into speeds and times. Takes 8 bytes of memory per move.
// Reads every block, which repairs bad records; the register stays as it is.
MachineTime ComputeMachineTime(BlockStore* store, const MachineProfile& profile,
                               const ProgramPauses& pauses = {});

}  // namespace tvx
