// What is named as being worked on, by nested work.
#include "platform/progress.h"

#include <gtest/gtest.h>

#include "platform/termination.h"

namespace tvx {
namespace {

TEST(WorkScope, SubjectIsTheFileOfTheOutermostWorkThatHasOneAndIsKept) {
  Progress* const progress = NoProgress();
  const struct {
    const char* outer;
    const char* inner;
    const char* during;
    const char* after;  // the next work inside the outer one, on "next"
  } cases[] = {{"dir/a.nc", "z:\\dir\\a.nc", "dir/a.nc", "dir/a.nc"},
               {"", "b.nc", "b.nc", "next"},
               {"c.nc", "", "c.nc", "c.nc"}};
  for (const auto& c : cases) {
    {
      const WorkScope outer(progress, Work::kRead, c.outer);
      {
        const WorkScope inner(progress, Work::kAdjust, c.inner);
        EXPECT_STREQ(Subject(), c.during);
      }
      EXPECT_STREQ(Subject(), c.during);
      const WorkScope next(progress, Work::kDraw, "next");
      EXPECT_STREQ(Subject(), c.after);
    }
    EXPECT_STREQ(Subject(), c.after);
  }
}

}  // namespace
}  // namespace tvx
