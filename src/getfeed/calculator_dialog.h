// The dialog of the calculator, which proposes spindle speed and feed for a tool and a material.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "getfeed/calculation.h"
#include "platform/user_interface.h"

namespace tvx {

// One number field of the dialog, with its range on acceptance.
struct CalculatorNumber {
  const char* name;   // of its field in GetFeedState
  const char* label;  // beside the field
  float lowest;
  float highest;
  float GetFeedState::*field;          // null for the spindle speed, a whole number
  void (*recalculate)(GetFeedState*);  // after an edit; null for a result, which is read-only
};

// All number fields, in the order in which they are checked. The face shows them in three groups:
// inputs toolDiameter, toolLength, fluteLength, stepover, cutDepth; machine limits maxFeedRate,
// maxSpindle, idlePower, ncPower; results spindleOut, feedOut, removalOut.
inline constexpr size_t kCalculatorNumbers = 12;
std::span<const CalculatorNumber, kCalculatorNumbers> CalculatorNumbers();

// Constructed for each opening. Every change updates the results at once.
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

  // Starts with the caller's tool diameter in mm, and with its material if the tables contain it.
  CGetFeedDlg(float toolDiameter, std::string_view material, UserInterface* ui);

  // The entries of the three drop-down lists, sorted by text. The selected entries are
  // state.workMaterial, state.toolMaterial and FluteCountText().
  static std::vector<std::string> WorkMaterialEntries();
  static std::vector<std::string> ToolMaterialEntries();
  static std::vector<std::string> FluteCountEntries();
  std::string FluteCountText() const;

  // A selection in a list. Returns false and changes nothing for a text that is not an entry.
  bool SelectWorkMaterial(std::string_view entry);
  bool SelectToolMaterial(std::string_view entry);
  bool SelectFluteCount(std::string_view entry);

  // The text of a number field: an input as typed, a result as formatted.
  std::string NumberText(const CalculatorNumber& number) const;
  // An edit of a number field. The text is kept as typed; its value is the decimal number at its
  // start, 0 if there is none. Does nothing for a result.
  void EditNumber(const CalculatorNumber& number, std::string_view text);

  // A slider released at a position, which is clamped to its range. Updates speedCaption or
  // feedCaption.
  void ReleaseSpeedSlider(int position);
  void ReleaseFeedSlider(int position);

  // A click on the check box of high-speed roughing, which is ticked if state.highSpeedRough is not
  // 0.
  void ToggleHighSpeedRough();

  // Makes one of the changes above by the name of the record's field: "workMaterial",
  // "toolDiameter", "speedPercent" and so on. Returns false and changes nothing for a field that
  // the user cannot change or a value that its control does not accept. A number field accepts any
  // text.
  bool Change(std::string_view field, std::string_view value);

  // Reads all number fields as shown and checks them. For the first one that is not a number or is
  // out of its range, shows a message, sets refusedField and returns kStaysOpen.
  Closing Accept();

  GetFeedState state;
  std::string speedCaption;
  std::string feedCaption;
  std::string refusedField;  // name of the field that gets the focus after a refusal

 private:
  UserInterface* ui_;
  std::array<std::string, kCalculatorNumbers> typed_;  // by position in CalculatorNumbers
};

}  // namespace tvx
