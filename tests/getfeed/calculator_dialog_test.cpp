// The user's changes, with the results that the dialog shows.
#include "getfeed/calculator_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/scan.h"
#include "support/scripted_ui.h"

namespace tvx {
namespace {

class CalculatorDialog : public testing::Test {
 protected:
  static std::string Text(const CGetFeedDlg& dialog, std::string_view name) {
    return dialog.NumberText(
        *std::ranges::find(CalculatorNumbers(), name, &CalculatorNumber::name));
  }

  ScriptedUi ui;
  CGetFeedDlg dialog{10, "KP4", &ui};
};

TEST_F(CalculatorDialog, OpensWithTheCallersTool) {
  const CGetFeedDlg own(8.0F, "SKD11", &ui);
  EXPECT_EQ(own.state.workMaterial, "SKD11");
  EXPECT_EQ(Text(own, "toolDiameter"), "8");
  EXPECT_EQ(Text(own, "stepover"), "0.2");
  EXPECT_EQ(own.FluteCountText(), "2");
  EXPECT_EQ(own.speedCaption, "<<공구보호 -----(0)----- 가공속도>> ");
  EXPECT_EQ(own.feedCaption, "<<고품질 -----(0)----- 가공 속도>> ");
  EXPECT_EQ(CGetFeedDlg(8, "STEEL(S45C)", &ui).state.workMaterial, "KP4");
}

TEST_F(CalculatorDialog, ListsAreSorted) {
  EXPECT_EQ(
      CGetFeedDlg::WorkMaterialEntries(),
      (std::vector<std::string>{"KP1", "KP4", "KP4M", "NAK80", "SK7", "SKD11", "SKD61", "SS41",
                                "동", "알루미늄", "얄처리SKD61", "주철", "황동", "흑연"}));
  EXPECT_EQ(CGetFeedDlg::ToolMaterialEntries().front(), "고속초경");
}

TEST_F(CalculatorDialog, ChangesTakeEffectAtOnce) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "1375|  440|   18"},
      {"speedPercent=150", "2063|  660|   26"},
      {"feedPercent=150", "1375|  660|   40"},
      {"maxSpindle=1000", "1000|  320|   13"},
      {"maxFeedRate=0", "1375|    0|    0"},
      {"idlePower=10", "0|    0|    0"},
      {"stepover=5 cutDepth=5", "613|  196| 4908"},
      {"stepover=5 cutDepth=5 cutDepth=", "613|  196| 4908"},
      {"stepover=5 cutDepth=5 maxFeedRate=100", "312|  100| 2500"},
      {"stepover=5 cutDepth=5 ncPower=3.025", "36|   12|  292"},
      {"stepover=5 cutDepth=5 toolLength=60", "582|  186| 4662"},
      {"stepover=5 cutDepth=5 toolLength=60 speedPercent=100", "582|  186| 4662"},
      {"stepover=5 cutDepth=5 toolLength=60 toolLength=500", "582|  186| 4662"},
      {"stepover=5 cutDepth=5 highSpeedRough=1 highSpeedRough=1", "306|  196| 4908"},
      {"stepover=5 cutDepth=5 fluteCount=4", "306|  196| 4908"},
      {"stepover=5 cutDepth=5 fluteCount=4 toolLength=50", "460|  294| 7361"},
      {"stepover=5 cutDepth=5 toolMaterial=하이스", "527|  169| 4217"},
      {"stepover=5 cutDepth=5 toolMaterial=하이스 fluteLength=20", "632|  202| 5061"},
      {"stepover=5 cutDepth=5 toolMaterial=하이스 fluteLength=20 fluteLength=60",
       "632|  202| 5061"},
  };
  for (const auto& [changes, results] : cases) {
    CGetFeedDlg fresh(10, "KP4", &ui);
    WordScanner words(changes);
    for (std::string word; words.ReadWord(&word);) {
      const size_t equals = word.find('=');
      EXPECT_TRUE(fresh.Change(word.substr(0, equals), word.substr(equals + 1))) << changes;
    }
    const std::string shown = Text(fresh, "spindleOut") + "|" + Text(fresh, "feedOut") + "|";
    EXPECT_EQ(shown + Text(fresh, "removalOut"), results) << changes;
  }
}

TEST_F(CalculatorDialog, NumberFieldKeepsItsText) {
  EXPECT_TRUE(dialog.Change("cutDepth", "5 mm"));
  EXPECT_EQ(dialog.state.cutDepth, 5);
  EXPECT_EQ(Text(dialog, "cutDepth"), "5 mm");
  EXPECT_FALSE(dialog.Change("highSpeedRough", "yes"));
  EXPECT_FALSE(dialog.Change("lengthRatio", "5"));
}

TEST_F(CalculatorDialog, SliderCaptionsFollow) {
  dialog.ReleaseSpeedSlider(150);
  dialog.ReleaseFeedSlider(20);  // clamped to 50
  EXPECT_EQ(dialog.speedCaption, "<< 공구보호 -----(50)----- 가공속도>>");
  EXPECT_EQ(dialog.feedCaption, "<<고품질 -----(-50)----- 가공 속도>> ");
}

TEST_F(CalculatorDialog, AcceptsTheValuesAsShown) {
  for (const char* const field : {"stepover", "cutDepth"}) EXPECT_TRUE(dialog.Change(field, "5"));
  EXPECT_TRUE(dialog.Change("maxSpindle", "1000000"));
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
