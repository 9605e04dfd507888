// The client of tvx-calc against programs that behave as tvx-calc never should.

#include "reports/calc_client.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <functional>
#include <thread>

#include "platform/drives.h"
#include "reports/calc_lines.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

using Clock = std::chrono::steady_clock;

// What any failure may take beyond the patience: the end of a program that does not want to.
constexpr Milliseconds kWithinSeconds{8000};

class CalcClientTest : public testing::Test {
 protected:
  // A spreadsheet program of a few lines in place of tvx-calc.
  CalcSpreadsheets Fake(const std::string& script, Milliseconds patience = Milliseconds{5000}) {
    const auto path = dir_.Put("tvx-calc", "#!/bin/sh\n" + script);
    chmod(path.c_str(), 0755);
    return CalcSpreadsheets(&drives_, path, patience);
  }

  std::unique_ptr<SpreadsheetApplication> Started(const std::string& script,
                                                  Milliseconds patience = Milliseconds{5000}) {
    auto program = Fake(script, patience).Start(SpreadsheetForm::kFile);
    EXPECT_NE(program, nullptr) << script;
    return program;
  }

  std::string InFolder(const std::string& name) const { return (dir_ / name).string(); }

  TempDir dir_;
  Drives drives_{dir_ / "home"};
};

using Step = std::function<bool(SpreadsheetApplication*)>;
const Step kSteps[] = {
    [](auto* program) { return program->OpenWorkbook("z:\\tmp\\a.xls"); },
    [](auto* program) { return program->SelectSheet(1); },
    [](auto* program) { return program->SelectRange("A1", "A1"); },
    [](auto* program) { return program->PutValue("NO"); },
    [](auto* program) { return program->SetVisible(true); },
    [](auto* program) { return program->SetUserControl(true); },
    [](auto* program) { return program->Save(); },
};

// Answers the start and `count` steps, then does `then`.
std::string AnswerSteps(size_t count, const std::string& then) {
  std::string script = "echo done\n";
  for (size_t i = 0; i < count; ++i) script += "read line; echo done\n";
  return script + then + "\n";
}

TEST_F(CalcClientTest, TellsTheStepsLineByLine) {
  const std::string log = InFolder("log");
  auto spreadsheets =
      Fake("echo \"$1\" >" + log + "; echo done\nwhile IFS= read -r line; do printf " +
           "'%s\\n' \"$line\" >>" + log + "; echo done; done");
  for (const SpreadsheetForm form : {SpreadsheetForm::kInteractive, SpreadsheetForm::kFile}) {
    const bool file = form == SpreadsheetForm::kFile;
    {
      const auto program = spreadsheets.Start(form);
      ASSERT_NE(program, nullptr);
      EXPECT_TRUE(program->OpenWorkbook("z:\\tmp\\작업 1.xls"));
      EXPECT_TRUE(program->SelectSheet(1));
      EXPECT_TRUE(program->SelectRange("A1", "A1"));
      EXPECT_TRUE(program->PutValue("=c:\\새 폴더\\\n\r끝 "));
      EXPECT_TRUE(program->SelectRange("A1", "B2"));
      EXPECT_TRUE(program->PutValue(0.1f));
      EXPECT_TRUE(program->PutValue(""));
      EXPECT_TRUE(program->SetVisible(true));
      EXPECT_TRUE(file ? program->Save() : program->SetUserControl(true));
      EXPECT_EQ(program->Problem(), "");
    }
    EXPECT_EQ(HostBytes(log), std::string(file ? "file" : "window") +
                                  "\nopen /tmp/작업 1.xls\nsheet 1\nrange A1\n"
                                  "text =c:\\\\새 폴더\\\\\\n\\r끝 \nrange A1:B2\n"
                                  "number 0.10000000149011612\ntext \nvisible yes\n" +
                                  (file ? "save \n" : "leave \n"));
  }
}

TEST_F(CalcClientTest, EveryLineComesBackAsItWas) {
  using Line = std::pair<std::string, std::string>;
  for (const char* const text : {"", " ", "a\\b", "\\", "\\n", "a\nb\r\n", "=1+1", "한글"}) {
    EXPECT_EQ(SplitCalcLine(CalcLine(kCalcText, text)), Line("text", text));
  }
  EXPECT_EQ(SplitCalcLine("save"), Line("save", ""));
}

TEST_F(CalcClientTest, AProgramThatDoesNotStartIsNone) {
  for (const auto& path : {dir_ / "no such program", dir_.Path()}) {
    EXPECT_EQ(CalcSpreadsheets(&drives_, path).Start(SpreadsheetForm::kInteractive), nullptr);
  }
  for (const char* const script : {
           "exit 0", "exit 3", "kill -9 $$", "echo failed there is no display", "echo nonsense",
           "echo", "printf done",                          // the last without the end of its line
           "exec sleep 100",                               // silent
           "trap '' TERM HUP; while :; do sleep 1; done",  // silent and stubborn
       }) {
    auto spreadsheets = Fake(script, Milliseconds{300});
    const auto start = Clock::now();
    EXPECT_EQ(spreadsheets.Start(SpreadsheetForm::kFile), nullptr) << script;
    EXPECT_LT(Clock::now() - start, kWithinSeconds) << script;
  }
}

TEST_F(CalcClientTest, AfterADeathOrASilenceThatStepAndAllLaterOnesFail) {
  const struct {
    const char* then;
    const char* problem;
  } ends[] = {{"exit 1", "the program has ended"},
              {"read line; kill -9 $$", "the program has ended"},  // in the middle of a step
              {"sleep 100", "the program does not answer"}};
  for (const auto& end : ends) {
    for (const size_t good : {size_t{0}, size_t{3}, std::size(kSteps) - 1}) {
      SCOPED_TRACE(end.then + std::string(" behind ") + std::to_string(good));
      const auto program = Started(AnswerSteps(good, end.then), Milliseconds{300});
      const auto start = Clock::now();
      for (size_t i = 0; i < std::size(kSteps); ++i) {
        EXPECT_EQ(kSteps[i](program.get()), i < good) << "step " << i;
      }
      EXPECT_EQ(program->Problem(), end.problem);
      EXPECT_LT(Clock::now() - start, kWithinSeconds);
    }
  }
}

// A text that fills the channel would block the sender for ever.
TEST_F(CalcClientTest, AProgramThatDoesNotReadIsGivenUp) {
  const auto program = Started("echo done; sleep 100", Milliseconds{300});
  const auto start = Clock::now();
  EXPECT_FALSE(program->PutValue(std::string(size_t{4} << 20, 'x')));
  EXPECT_LT(Clock::now() - start, kWithinSeconds);
}

TEST_F(CalcClientTest, TheReasonOfAFailureIsToldOnce) {
  const auto program =
      Started(AnswerSteps(1, "read line; printf '%s\\n' 'failed C:\\\\x is \\n odd'; read line"));
  EXPECT_TRUE(program->OpenWorkbook("z:\\tmp\\a.xls"));
  EXPECT_FALSE(program->SelectSheet(1));
  EXPECT_FALSE(program->Save());
  EXPECT_EQ(program->Problem(), "C:\\x is \n odd");
  EXPECT_FALSE(Started("echo done; exit")->OpenWorkbook("q:\\no drive"));
}

// Also true for a zombie, which waits for a process that is not ours to reap it.
bool HasEnded(pid_t process) {
  for (int i = 0; i < 100; ++i) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string state;
    if (!std::getline(file, state) || state.find(") Z") != std::string::npos) return true;
    std::this_thread::sleep_for(Milliseconds{20});
  }
  return false;
}

// Whatever tvx-calc has started ends with it, also when it dies without a chance to see to it.
TEST_F(CalcClientTest, NothingIsLeftRunning) {
  const std::string log = InFolder("pid");
  for (const char* const then : {"read line; exit 0", "kill -9 $$", "trap '' TERM; sleep 100"}) {
    auto program =
        Started("sleep 1000 & echo $! >" + log + "; echo done; " + then, Milliseconds{300});
    if (std::string_view(then).starts_with("read")) {
      program.reset();
    } else {
      EXPECT_FALSE(program->SelectSheet(1));
    }
    EXPECT_TRUE(HasEnded(std::stoi(HostBytes(log)))) << then;
  }
}

}  // namespace
}  // namespace tvx
