#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "getfeed/calculation.h"
#include "platform/user_interface.h"

namespace tvx {

// One number of the calculator's face and its range on acceptance.
struct CalculatorNumber {
  const char* name;   // of its field in GetFeedState
  const char* label;  // beside the field
  float lowest;
  float highest;
  float GetFeedState::*field;          // null for the spindle speed, a whole number
  void (*recalculate)(GetFeedState*);  // after an edit; null for a result, which is read-only
};

// All numbers, in the order in which they are checked. The face has three groups: first
// toolDiameter, toolLength, fluteLength, stepover, cutDepth; then the machine's maxFeedRate,
// maxSpindle, idlePower, ncPower; then the results spindleOut, feedOut, removalOut.
inline constexpr size_t kCalculatorNumbers = 12;
std::span<const CalculatorNumber, kCalculatorNumbers> CalculatorNumbers();

// The calculator that proposes spindle speed and feed. Made anew for each opening; every change
// brings the results up to date at once.
class CGetFeedDlg : public Dialog {
 public:
  static constexpr char kTitle[] = "GetFeed Ver 1.0";
  static constexpr char kInputGroup[] = "<< 절삭조건 입력 >>";
  static constexpr char kMachineGroup[] = "<< 장비 능력 >>";
  static constexpr char kResultGroup[] = "<< 절삭조건 출력 >>";
  static constexpr char kWorkMaterial[] = "가공소재";
  static constexpr char kToolMaterial[] = "공구 재질";
  static constexpr char kFluteCount[] = "공구 날수";
  static constexpr char kHighSpeedRough[] = "고속황삭";
  static constexpr char kAccept[] = "확인";
  static constexpr char kCancel[] = "취소";
  static constexpr int kLowestPercent = 50;  // range of both sliders
  static constexpr int kHighestPercent = 150;
  static constexpr int kPercentPage = 10;

  // Opens on the caller's tool diameter in mm, and on its material if the tables know it.
  CGetFeedDlg(float toolDiameter, std::string_view material, UserInterface* ui);

  // The entries of the three drop-down lists, sorted by text. The selected ones are those of
  // state.workMaterial, state.toolMaterial and FluteCountText.
  static std::vector<std::string> WorkMaterialEntries();
  static std::vector<std::string> ToolMaterialEntries();
  static std::vector<std::string> FluteCountEntries();
  std::string FluteCountText() const;

  // A selection in a list. False, and no change, for a text that is no entry.
  bool SelectWorkMaterial(std::string_view entry);
  bool SelectToolMaterial(std::string_view entry);
  bool SelectFluteCount(std::string_view entry);

  // The text of a number field: as typed, or as a result is shown.
  std::string NumberText(const CalculatorNumber& number) const;
  // An edit of a number field, kept as typed and read as a decimal number, 0 for none. A result's
  // text cannot be edited.
  void EditNumber(const CalculatorNumber& number, std::string_view text);

  // A slider let go at a position, which is held in its range. speedCaption and feedCaption follow.
  void ReleaseSpeedSlider(int position);
  void ReleaseFeedSlider(int position);

  // A click on the check box of high-speed roughing, ticked while state.highSpeedRough is not 0.
  void ToggleHighSpeedRough();

  // Any of the changes above by the name of the record's field: "workMaterial", "toolDiameter",
  // "speedPercent" and so on. False, and no change, for a name that the user cannot change or a
  // value that its control does not take (a number field takes any text).
  bool Change(std::string_view field, std::string_view value);

  // Reads all numbers back as shown and checks them. The first one that is no number or out of its
  // range is named to the user and in refusedField, and the dialog stays open.
  Closing Accept();

  GetFeedState state;
  std::string speedCaption = "<<공구보호 -----(0)----- 가공속도>> ";
  std::string feedCaption;
  std::string refusedField;  // name of the field to put the focus on after a refusal

 private:
  UserInterface* ui_;
  std::array<std::string, kCalculatorNumbers> typed_;  // by position in CalculatorNumbers
};

}  // namespace tvx
