// The client of tvx-calc with shell scripts in place of tvx-calc: the lines that it sends, and
// programs that end, hang, or answer wrongly.
#include "reports/calc_client.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "platform/files/drives.h"
#include "reports/calc_lines.h"
#include "support/temp_dir.h"

namespace tvx {
namespace {

constexpr Milliseconds kPatience{300};
constexpr Milliseconds kLongestTest{16000};  // a program that ignores signals is killed in seconds

class CalcClientTest : public testing::Test {
 protected:
  ~CalcClientTest() override { EXPECT_LT(std::chrono::steady_clock::now() - start_, kLongestTest); }
  std::unique_ptr<SpreadsheetApplication> Start(const std::string& script,
                                                Milliseconds patience = Milliseconds{5000},
                                                SpreadsheetForm form = SpreadsheetForm::kFile) {
    const auto path = dir_.Put("tvx-calc", "#!/bin/sh\n" + script);
    chmod(path.c_str(), 0755);
    return CalcSpreadsheets(&drives_, path, patience).Start(form);
  }

  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  TempDir dir_;
  Drives drives_{dir_ / "home"};
};

TEST_F(CalcClientTest, EachStepIsOneLine) {
  const std::string log = (dir_ / "log").string();
  const std::string script = "echo \"$1\" >" + log + "; echo done\nwhile IFS= read -r line; do " +
                             "printf '%s\\n' \"$line\" >>" + log + "; echo done; done";
  for (const bool file : {false, true}) {
    auto program = Start(script, Milliseconds{5000},
                         file ? SpreadsheetForm::kFile : SpreadsheetForm::kInteractive);
    ASSERT_NE(program, nullptr);
    EXPECT_TRUE(program->OpenWorkbook("z:\\tmp\\작업 1.xls"));
    EXPECT_TRUE(program->SelectSheet(1));
    EXPECT_TRUE(program->SelectRange("A1", "A1"));
    EXPECT_TRUE(program->PutValue("=c:\\새 폴더\\\n\r끝 "));
    EXPECT_TRUE(program->SelectRange("A1", "B2"));
    EXPECT_TRUE(program->PutValue(0.1f));
    EXPECT_TRUE(program->SetVisible(true));
    EXPECT_TRUE(file ? program->Save() : program->SetUserControl(true));
    program.reset();
    EXPECT_EQ(HostBytes(log), std::string(file ? "file" : "window") +
                                  "\nopen /tmp/작업 1.xls\nsheet 1\nrange A1\n"
                                  "text =c:\\\\새 폴더\\\\\\n\\r끝 \nrange A1:B2\n"
                                  "number 0.10000000149011612\nvisible yes\n" +
                                  (file ? "save \n" : "leave \n"));
  }
}

TEST_F(CalcClientTest, SplitLineIsWordAndArgument) {
  using Line = std::pair<std::string, std::string>;
  for (const char* const text : {"", " ", "a\\b", "\\", "\\n", "a\nb\r\n", "=1+1", "한글"}) {
    EXPECT_EQ(SplitCalcLine(CalcLine(kCalcText, text)), Line("text", text));
  }
  EXPECT_EQ(SplitCalcLine("save"), Line("save", ""));
  EXPECT_EQ(SplitCalcLine("text a\\"), Line("text", "a\\"));
}

TEST_F(CalcClientTest, ProgramThatDoesNotStartIsNull) {
  EXPECT_EQ(CalcSpreadsheets(&drives_, dir_ / "none").Start(SpreadsheetForm::kFile), nullptr);
  for (const char* const script :
       {"exit 0", "exit 3", "kill -9 $$", "echo failed there is no display", "echo nonsense",
        "echo", "printf done", "exec sleep 100", "trap '' TERM HUP; while :; do sleep 1; done"}) {
    EXPECT_EQ(Start(script, kPatience), nullptr) << script;
  }
}

TEST_F(CalcClientTest, AfterTheProgramEndsOrHangsEveryStepFails) {
  const std::pair<const char*, const char*> ends[] = {
      {"exit 1", "the program has ended"},
      {"read line; kill -9 $$", "the program has ended"},  // in the middle of a step
      {"sleep 100", "the program does not answer"}};
  for (const auto& [end, problem] : ends) {
    for (const int good : {0, 3}) {
      std::string script = "echo done\n";
      for (int i = 0; i < good; ++i) script += "read line; echo done\n";
      const auto program = Start(script + end, kPatience);
      for (int i = 0; i < 5; ++i) EXPECT_EQ(program->SelectSheet(1), i < good) << end << i;
      EXPECT_EQ(program->Problem(), problem);
    }
  }
}

// A text that fills the pipe would block the sender without limit.
TEST_F(CalcClientTest, ProgramThatDoesNotReadIsEnded) {
  const auto program = Start("echo done; sleep 100", kPatience);
  EXPECT_FALSE(program->PutValue(std::string(size_t{4} << 20, 'x')));
}

TEST_F(CalcClientTest, ProblemIsTheReasonOfTheFirstFailure) {
  const auto program =
      Start("echo done; read line; printf '%s\\n' 'failed C:\\\\x is \\n odd'; read line");
  EXPECT_FALSE(program->SelectSheet(1));
  EXPECT_FALSE(program->Save());
  EXPECT_EQ(program->Problem(), "C:\\x is \n odd");
  EXPECT_FALSE(Start("echo done; exit")->OpenWorkbook("q:\\no drive"));
}

// True for a zombie too, which another process has to reap.
bool HasEnded(const std::string& process) {
  for (int i = 0; i < 100; ++i) {
    std::ifstream file("/proc/" + process + "/stat");
    std::string state;
    if (!std::getline(file, state) || state.find(") Z") != std::string::npos) return true;
    std::this_thread::sleep_for(Milliseconds{20});
  }
  return false;
}

// The children of tvx-calc end with it, even if it is killed.
TEST_F(CalcClientTest, ChildrenOfTheProgramEndWithIt) {
  const auto pid = dir_ / "pid";
  for (const char* const then : {"read line; exit 0", "kill -9 $$", "trap '' TERM; sleep 100"}) {
    auto program =
        Start("sleep 1000 & printf $! >" + pid.string() + "; echo done; " + then, kPatience);
    EXPECT_EQ(then[0] != 'r' && program->SelectSheet(1), false);
    program.reset();
    EXPECT_TRUE(HasEnded(HostBytes(pid))) << then;
  }
}

}  // namespace
}  // namespace tvx
