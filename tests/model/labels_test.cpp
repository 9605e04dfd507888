#include "model/labels.h"

#include <gtest/gtest.h>

#include <utility>

namespace tvx {
namespace {

TEST(Labels, EnglishOnlyWhenSet) {
  const std::pair<const char*, const char*> cases[] = {
      {"화일명 : a.nc ", "FileName : a.nc "},
      {"  재전송: 블록-> 5 ", "  Restart: Block-> 5 "},
      {"공차 공차공차", "Toler TolerToler"},
      {"Afa조건:\r\n", "Afa:\r\n"},
      {"30도 가중치(0.70)", "30 deg weight(0.70)"},
      {"최대피드 코너가중치 경사가중치", "MaxFeed CornerWeight SideWeight"},
      {"조건화일: c.afa", "Afa file: c.afa"},
      {"가공조건 화일 :", "가공조건 화일 :"},
  };
  for (const auto& [korean, english] : cases) {
    for (const int language : {kKoreanLabels, kEnglishLabels, 3}) {
      LabelLanguage = language;
      EXPECT_EQ(ReplaceLabels(korean), language == kEnglishLabels ? english : korean) << language;
    }
  }
  LabelLanguage = kKoreanLabels;
}

}  // namespace
}  // namespace tvx
