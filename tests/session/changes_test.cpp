// When listeners are called, and what they may do meanwhile.
#include "session/changes.h"

#include <gtest/gtest.h>

#include <string>

namespace tvx {
namespace {

// Names of the changes: "feeds view".
std::string Names(ChangeSet changes) {
  constexpr std::pair<ChangeSet, const char*> kNames[] = {{Change::kFeeds, "feeds"},
                                                          {Change::kView, "view"},
                                                          {Change::kCheck, "check"},
                                                          {Change::kResult, "result"}};
  std::string names;
  for (const auto& [change, name] : kNames) {
    if (changes.HasAny(change)) names += std::string(names.empty() ? "" : " ") + name;
  }
  return names;
}

class ChangesTest : public testing::Test {
 protected:
  // Each call of the listener is a line: "NAME CHANGES", with "!" for a call at once.
  ChangeListener Logging(const std::string& name) {
    return [this, name](ChangeSet changes, Timing timing) {
      log += name + (timing == Timing::kAtOnce ? "! " : " ") + Names(changes) + "; ";
    };
  }

  std::string log;
  ChangeNotifier notifier;
};

// The steps: "n" notes new feeds and another view, "v" another view, "c" a check; "S" shows, "E"
// settles, "D" settles what was shown.
TEST_F(ChangesTest, ListenerHearsOnceOfWhatItIsInterestedIn) {
  const Subscription picture =
      notifier.Subscribe(Change::kFeeds | Change::kView, Timing::kAtOnce, Logging("picture"));
  const Subscription dock =
      notifier.Subscribe(Change::kFeeds | Change::kCheck, Timing::kSettled, Logging("dock"));
  const struct {
    const char* steps;
    const char* heard;
  } cases[] = {
      {"n", ""},
      {"S", "picture! feeds view; "},
      {"SvS", "picture! view; "},
      {"E", "dock feeds; "},
      {"E", ""},
      {"v", ""},
      {"D", ""},
      {"E", "picture view; "},
      {"ccE", "dock check; "},
      {"nScD", "picture! feeds view; dock feeds check; "},
      {"cD", ""},
      {"vSDvD", "picture! view; dock check; "},
      {"E", "picture view; "},
  };
  for (const auto& c : cases) {
    for (const char step : std::string_view(c.steps)) {
      if (step == 'n') notifier.Note(Change::kFeeds | Change::kView);
      if (step == 'v') notifier.Note(Change::kView);
      if (step == 'c') notifier.Note(Change::kCheck);
      if (step == 'S') notifier.Show();
      if (step == 'E') notifier.Settle();
      if (step == 'D') notifier.SettleShown();
    }
    EXPECT_EQ(log, c.heard) << c.steps;
    log.clear();
  }
}

TEST_F(ChangesTest, ListenerMayNoteAndSettleWithoutBeingCalledAgainMeanwhile) {
  int notes = 2;
  const Subscription first =
      notifier.Subscribe(Change::kFeeds | Change::kView, Timing::kAtOnce, [&](auto, auto) {
        log += "first; ";
        if (--notes >= 0) notifier.Note(Change::kView | Change::kResult);
        notifier.Settle();
      });
  const Subscription second =
      notifier.Subscribe(Change::kResult, Timing::kSettled, Logging("second"));
  notifier.Note(Change::kFeeds);
  notifier.Show();
  EXPECT_EQ(log, "first; second result; first; second result; first; ");
}

TEST_F(ChangesTest, SubscriptionsComeAndGoDuringACall) {
  Subscription self, later, added;
  self = notifier.Subscribe(Change::kFeeds, Timing::kSettled, [&](auto, auto) {
    log += "self; ";
    self.reset();
    later.reset();
    added = notifier.Subscribe(Change::kFeeds | Change::kView, Timing::kSettled, Logging("added"));
    notifier.Note(Change::kView);
  });
  later = notifier.Subscribe(Change::kFeeds, Timing::kSettled, Logging("later"));
  for (int i = 0; i < 2; ++i) {
    notifier.Note(Change::kFeeds);
    notifier.Settle();
  }
  EXPECT_EQ(log, "self; added view; added feeds; ");
}

TEST_F(ChangesTest, SubscriptionMayOutliveTheNotifier) {
  auto shortLived = std::make_unique<ChangeNotifier>();
  Subscription kept = shortLived->Subscribe(Change::kFeeds, Timing::kSettled, Logging("kept"));
  shortLived.reset();
  kept.reset();
  EXPECT_EQ(log, "");
}

}  // namespace
}  // namespace tvx
