#include "model/labels.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(Labels, EnglishOnlyWhenSet) {
  const struct {
    const char* korean;
    const char* english;
  } cases[] = {
      {"화일명 : a.nc ", "FileName : a.nc "},
      {"  재전송: 블록-> 5 ", "  Restart: Block-> 5 "},
      {"공차 공차공차", "Toler TolerToler"},
      {"Afa조건:\r\n", "Afa:\r\n"},
      {"30도 가중치(0.70)", "30 deg weight(0.70)"},
      {"코너가중치 경사가중치", "CornerWeight SideWeight"},
      {"조건화일: c.afa", "Afa file: c.afa"},
      {"가공조건 화일 :", "가공조건 화일 :"},
      {"", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReplaceLabels(c.korean), c.korean);
    LabelLanguage = kEnglishLabels;
    EXPECT_EQ(ReplaceLabels(c.korean), c.english);
    LabelLanguage = 3;
    EXPECT_EQ(ReplaceLabels(c.korean), c.korean);
    LabelLanguage = kKoreanLabels;
  }
}

}  // namespace
}  // namespace tvx
