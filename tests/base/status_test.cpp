// What a failure is, by the reason of the system.
#include "base/status.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

namespace tvx {
namespace {

TEST(Status, ReasonOfAFailedOpeningSelectsItsKind) {
  const struct {
    int reason;
    StatusKind kind;
    bool isReadFailure;
  } cases[] = {
      {ENOENT, StatusKind::kMissing, false},   {ENOTDIR, StatusKind::kMissing, false},
      {EISDIR, StatusKind::kNoFile, false},    {ENAMETOOLONG, StatusKind::kNoFile, false},
      {EACCES, StatusKind::kCannotOpen, true}, {ELOOP, StatusKind::kCannotOpen, true},
  };
  for (const auto& [reason, kind, isReadFailure] : cases) {
    const Status status = Status::CannotOpen("c:\\a.nc", reason);
    EXPECT_EQ(status, Status(kind, "c:\\a.nc", reason)) << reason;
    EXPECT_EQ(status.IsReadFailure(), isReadFailure) << reason;
    EXPECT_EQ(status.Text(), std::strerror(reason));
    EXPECT_FALSE(status.ok());
  }
}

TEST(Status, TextIsThatOfTheSystemElseThatOfTheKind) {
  EXPECT_EQ(Status().Text(), "");
  EXPECT_EQ(Status(StatusKind::kWriteFailed, "x", ENOSPC).Text(), "No space left on device");
  EXPECT_EQ(Status(StatusKind::kChanged, "x").Text(), "has changed while it was read");
  EXPECT_TRUE(Status(StatusKind::kChanged).IsReadFailure());
  EXPECT_FALSE(Status(StatusKind::kPartSource).IsReadFailure());
  EXPECT_FALSE(Status().IsReadFailure());
}

Result<std::string> FirstWord(const std::string& text) {
  if (text.empty()) return Status(StatusKind::kNoContent);
  return text.substr(0, text.find(' '));
}

TEST(Result, HasAValueOrAFailure) {
  EXPECT_TRUE(FirstWord("G1 X2").ok());
  EXPECT_EQ(FirstWord("G1 X2").value, "G1");
  EXPECT_EQ(FirstWord("").status.kind(), StatusKind::kNoContent);
  EXPECT_EQ(FirstWord("").value, "");
}

}  // namespace
}  // namespace tvx
