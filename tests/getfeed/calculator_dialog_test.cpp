#include "getfeed/calculator_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/scripted_ui.h"

namespace tvx {
namespace {

const CalculatorNumber& Number(std::string_view name) {
  return *std::ranges::find(CalculatorNumbers(), name, &CalculatorNumber::name);
}

std::string Results(const CGetFeedDlg& dialog) {
  return dialog.NumberText(Number("spindleOut")) + "|" + dialog.NumberText(Number("feedOut")) +
         "|" + dialog.NumberText(Number("removalOut"));
}

TEST(CalculatorDialog, OpensOnTheCallersTool) {
  ScriptedUi ui;
  CGetFeedDlg dialog(8.0F, "SKD11", &ui);
  EXPECT_EQ(dialog.state.workMaterial, "SKD11");
  EXPECT_EQ(dialog.NumberText(Number("toolDiameter")), "8");
  EXPECT_EQ(dialog.NumberText(Number("stepover")), "0.2");
  EXPECT_EQ(dialog.FluteCountText(), "2");
  EXPECT_EQ(dialog.speedCaption, "<<공구보호 -----(0)----- 가공속도>> ");
  EXPECT_EQ(dialog.feedCaption, "<<고품질 -----(0)----- 가공 속도>> ");
  EXPECT_EQ(CGetFeedDlg(8, "STEEL(S45C)", &ui).state.workMaterial, "KP4");
}

TEST(CalculatorDialog, ListsAreSorted) {
  EXPECT_EQ(
      CGetFeedDlg::WorkMaterialEntries(),
      (std::vector<std::string>{"KP1", "KP4", "KP4M", "NAK80", "SK7", "SKD11", "SKD61", "SS41",
                                "동", "알루미늄", "얄처리SKD61", "주철", "황동", "흑연"}));
  EXPECT_EQ(CGetFeedDlg::ToolMaterialEntries().front(), "고속초경");
}

TEST(CalculatorDialog, EachChangeTakesEffectAtOnce) {
  ScriptedUi ui;
  // One after the other, on one dialog.
  const struct {
    const char* field;
    const char* value;
    bool taken;
    const char* results;
  } changes[] = {
      {"feedPercent", "100", true, "1375|  440|   18"},
      {"speedPercent", "120", true, "1650|  528|   21"},
      {"feedPercent", "80", true, "1650|  422|   14"},
      {"speedPercent", "100", true, "1375|  352|   11"},
      {"feedPercent", "100", true, "1375|  440|   18"},
      {"stepover", "5", true, "1375|  440|  440"},
      {"cutDepth", "5", true, "613|  196| 4908"},
      {"cutDepth", "", true, "613|  196| 4908"},
      {"cutDepth", "5 mm", true, "613|  196| 4908"},
      {"lengthRatio", "5", false, "613|  196| 4908"},
      {"highSpeedRough", "1", true, "306|  196| 4908"},
      {"highSpeedRough", "1", true, "306|  196| 4908"},
      {"highSpeedRough", "yes", false, "306|  196| 4908"},
      {"fluteCount", "4", true, "153|  196| 4908"},
      {"toolMaterial", "하이스", true, "197|  253| 6326"},
  };
  CGetFeedDlg dialog(10, "KP4", &ui);
  for (const auto& c : changes) {
    EXPECT_EQ(dialog.Change(c.field, c.value), c.taken) << c.field << " " << c.value;
    EXPECT_EQ(Results(dialog), c.results) << c.field << " " << c.value;
  }
  EXPECT_EQ(dialog.NumberText(Number("cutDepth")), "5 mm");
  EXPECT_EQ(dialog.FluteCountText(), "4");
}

TEST(CalculatorDialog, SliderCaptionsFollow) {
  ScriptedUi ui;
  CGetFeedDlg dialog(10, "KP4", &ui);
  dialog.ReleaseSpeedSlider(150);
  dialog.ReleaseFeedSlider(20);  // held at the slider's end
  EXPECT_EQ(dialog.speedCaption, "<< 공구보호 -----(50)----- 가공속도>>");
  EXPECT_EQ(dialog.feedCaption, "<<고품질 -----(-50)----- 가공 속도>> ");
}

TEST(CalculatorDialog, AcceptsWhatIsShown) {
  ScriptedUi ui;
  CGetFeedDlg dialog(10, "KP4", &ui);
  EXPECT_TRUE(dialog.Change("stepover", "5"));
  EXPECT_TRUE(dialog.Change("cutDepth", "5"));
  EXPECT_NE(dialog.state.feedOut, 196.0F);
  EXPECT_EQ(dialog.Accept(), Closing::kAccepted);
  EXPECT_EQ(dialog.state.feedOut, 196.0F);
  EXPECT_EQ(dialog.state.spindleOut, 613);
  EXPECT_TRUE(ui.messages.empty());

  EXPECT_TRUE(dialog.Change("cutDepth", "nan"));
  EXPECT_EQ(dialog.Accept(), Closing::kStaysOpen);
  EXPECT_EQ(dialog.refusedField, "cutDepth");
  EXPECT_EQ(ui.messages.size(), 1U);
}

}  // namespace
}  // namespace tvx
