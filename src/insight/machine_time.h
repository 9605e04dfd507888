// The time that a machine needs for a program: arcs, acceleration, corners, dwells and tool changes
// included. docs/machine_time.md describes the model.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

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

// Sets the times of the pauses and the total anew.
void SetPauses(const ProgramPauses& pauses, const MachineProfile& profile, MachineTime* time);

// The minutes of a machine time by their names in files.
struct MachineTimeField {
  const char* name;
  double MachineTime::*minutes;
};
std::span<const MachineTimeField> MachineTimeFields();

// How one part of a move was run; speeds in mm/s.
struct StretchRun {
  uint32_t block = 0;       // index of the move
  double length = 0;        // mm
  double limit = 0;         // the highest speed
  double acceleration = 0;  // mm/s^2
  double startSpeed = 0;
  double endSpeed = 0;
  double seconds = 0;  // without Factor
};

// Estimates the time of the stored program by the feeds in force, in three stages: every move gets
// its length, directions and limits (machine_move.h), every corner its highest speed, and two
// passes over the program turn both into speeds and times. Takes 8 bytes of memory per move.
// Reads every block, which repairs bad records; the register stays as it is. `observer`, if set,
// gets each stretch in the order of the program.
MachineTime ComputeMachineTime(BlockStore* store, const MachineProfile& profile,
                               const ProgramPauses& pauses = {},
                               const std::function<void(const StretchRun&)>& observer = {});

}  // namespace tvx
