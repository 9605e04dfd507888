#include "jobs/labels.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(Labels, LanguageTwoReplacesThem) {
  const char* const cases[][2] = {
      {"화일명 : a.nc ", "FileName : a.nc "},
      {"  재전송: 블록-> 5 ", "  Restart: Block-> 5 "},
      {"공차 공차공차", "Toler TolerToler"},
      {"Afa조건:\r\n", "Afa:\r\n"},
      {"최대피드 코너가중치 경사가중치", "MaxFeed CornerWeight SideWeight"},
      {"조건화일: c.afa", "Afa file: c.afa"},
      {"가공조건 화일 :", "가공조건 화일 :"},
  };
  for (const auto& [korean, english] : cases) {
    EXPECT_EQ(ReplaceLabels(korean, kEnglishLabels), english);
    EXPECT_EQ(ReplaceLabels(korean, kKoreanLabels), korean);
    EXPECT_EQ(ReplaceLabels(korean, 3), korean);
  }
}

}  // namespace
}  // namespace tvx
