// What the parts of the word-address reader share: the words of the line that is run, the modes,
// and where the moves go.
#pragma once

#include <string>
#include <string_view>

#include "control/program_run.h"
#include "control/word_line.h"
#include "control/word_modes.h"

namespace tvx {

// The letters of X, Y and Z, and of the centre on the same axes.
inline constexpr std::string_view kAxisLetters = "XYZ";
inline constexpr std::string_view kCentreLetters = "IJK";
inline constexpr uint32_t kAxisWords = Letters("XYZ");

struct WordState {
  WordState(ProgramRun* run, bool isIntegerData)
      : path(run->path), limit(run->limit), integerUnit_(isIntegerData ? 0.001 : 1) {
    SetUnit(1);
  }

  WordLine words;
  LineGroups groups;
  WordModes modes;
  PathWriter& path;
  RunLimit& limit;

  // The value of a word in mm.
  double Length(char letter) const { return words[letter] * modes.units[words.HasPoint(letter)]; }
  // Sets the unit of lengths and feeds, mm.
  void SetUnit(double unit) { modes.units = {unit * integerUnit_, unit}; }

  // Changes the values of those of the axis words X, Y and Z that are given. Letter by letter,
  // since nearly every line comes through here.
  void ReadAxes(uint32_t given, Point* end) const {
    ReadAxis<'X'>(given, &(*end)[0]);
    ReadAxis<'Y'>(given, &(*end)[1]);
    ReadAxis<'Z'>(given, &(*end)[2]);
  }

  // The dwell of a P word: milliseconds, with a decimal point seconds.
  double DwellOfP() const { return words.HasPoint('P') ? words['P'] : words['P'] / 1000; }

  // True if the P word of the line belongs to another word of it than an arc or a cycle.
  bool IsPTaken() const;

  CutFeed Feed() const {
    if (modes.feedMode == FeedMode::kPerMinute) return {modes.feed, false};
    if (modes.feedMode == FeedMode::kPerTurn) return {modes.feed * modes.spindle, false};
    return {words.Or('F', 0), true};
  }

  void Remark(ReadingRemarkId id, std::string_view detail) { path.Remark(id, detail); }

 private:
  template <char kLetter>
  void ReadAxis(uint32_t given, double* value) const {
    if ((given & WordLine::Bit(kLetter)) == 0) return;
    *value = (modes.isIncremental ? *value : 0) + Length(kLetter);
  }

  double integerUnit_;  // of a length without a decimal point, in the unit of the program
};

// A word as its line has it: "G61.1".
std::string WordText(char letter, double value);

// Finds the groups of the line's G words.
void FindGroups(WordState* state);
// Units, feed mode, F, S and T.
void SetFeeds(WordState* state);
void SetUnitsAndFeedMode(WordState* state);
// All other modes.
void SetModes(WordState* state);

// The shift of G52 or G92.
void SetShift(WordModes* modes, Point WordModes::*shift, const Point& value);

// G52, G92 and G68 with the words of the line.
void ShiftLocally(WordState* state);
void ShiftOrigin(WordState* state);
void TurnCoordinates(WordState* state);

// As EndPoint below, for coordinates that are shifted, turned or polar. `given`: the axis words.
Point ShiftedEndPoint(WordState* state, Plane polarPlane, uint32_t given);

// The end of a move with those of the given axis words that the line has. `polarPlane` is that of
// radius and angle under G16, whose last values it changes.
inline Point EndPoint(WordState* state, Plane polarPlane, uint32_t axes) {
  const uint32_t given = state->words.given & axes;
  const bool isPlain = state->modes.coordinates.ArePlain() && !state->modes.polar.isOn;
  if (!isPlain) [[unlikely]]
    return ShiftedEndPoint(state, polarPlane, given);
  Point end = state->path.Position();
  state->ReadAxes(given, &end);
  return end;
}

// G2 or G3 with the words of the line.
void RunArc(WordState* state);

// A line under a canned cycle. False if the limit has ended the run.
bool RunCycleLine(WordState* state);

}  // namespace tvx
