// tvx-cli moves: the moves of a program as a machine control runs it.

#include <string>
#include <vector>

#include "base/format.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_progress.h"
#include "cli/tool_text.h"
#include "control/control_reading.h"
#include "platform/termination.h"

namespace tvx {
namespace {

constexpr size_t kPrintedAtOnce = 1 << 16;  // bytes

constexpr const char* kMoveNames[] = {"rapid", "cut", "arc"};
constexpr const char* kEventNames[] = {"dwell", "tool", "stop", "code"};

std::string NameOf(MoveKind kind) {
  return kMoveNames[static_cast<size_t>(kind)];
}

std::string NameOf(EventKind kind) {
  return kEventNames[static_cast<size_t>(kind)];
}

// Collects text and prints it in large pieces: a program makes millions of moves.
class Printer {
 public:
  ~Printer() { Print(text_); }
  void Add(const std::string& text) {
    text_ += text;
    if (text_.size() < kPrintedAtOnce) return;
    Print(text_);
    text_.clear();
  }

 private:
  std::string text_;
};

// One move or event a line, its fields separated by tabs.
class TextReceiver final : public MoveReceiver {
 public:
  void Move(const ControlMove& move) override {
    std::string row = Head(move.line, NameOf(move.kind));
    for (const double value : {move.end[0], move.end[1], move.end[2], move.feed}) Add(value, &row);
    if (move.kind == MoveKind::kArc) {
      row.append("\t").append(PlaneName(move.plane));
      for (const double value : {move.centre[0], move.centre[1], move.sweep}) Add(value, &row);
    }
    printer_.Add(row + "\n");
  }

  void Event(const ControlEvent& event) override {
    std::string row = Head(event.line, NameOf(event.kind));
    Add(event.value, &row);
    printer_.Add(row + "\n");
  }

 private:
  static std::string Head(uint64_t line, const std::string& name) {
    return std::to_string(line) + '\t' + name;
  }
  // Nine digits; no minus sign before a zero.
  static void Add(double value, std::string* row) { *row += Format("\t%.9g", value + 0.0); }

  Printer printer_;
};

// The elements of a JSON array, one a line.
class JsonReceiver final : public MoveReceiver {
 public:
  void Move(const ControlMove& move) override {
    std::string element = Head(move.line, NameOf(move.kind)) + ", \"end\": [" +
                          Number(move.end[0]) + ", " + Number(move.end[1]) + ", " +
                          Number(move.end[2]) + "], \"feed\": " + Number(move.feed);
    if (move.kind == MoveKind::kArc) {
      element.append(", \"plane\": \"").append(PlaneName(move.plane));
      element += "\", \"centre\": [" + Number(move.centre[0]) + ", " + Number(move.centre[1]) +
                 "], \"sweep\": " + Number(move.sweep);
    }
    printer_.Add(element + "}");
  }

  void Event(const ControlEvent& event) override {
    printer_.Add(Head(event.line, NameOf(event.kind)) + ", \"value\": " + Number(event.value) +
                 "}");
  }

 private:
  static std::string Number(double value) { return ShortestDouble(value + 0.0); }

  std::string Head(uint64_t line, const std::string& name) {
    std::string head = isFirst_ ? "\n" : ",\n";
    isFirst_ = false;
    return head + "    {\"line\": " + std::to_string(line) + ", \"kind\": \"" + name + "\"";
  }

  bool isFirst_ = true;
  Printer printer_;
};

std::string JsonString(const std::string& text) {
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void PrintRemarks(ReadingRemarks* remarks) {
  Printer printer;
  const char* separator = "\n";
  for (const ReadingRemark& remark : remarks->Sorted()) {
    printer.Add(separator + ("    {\"line\": " + std::to_string(remark.line)) + ", \"id\": \"" +
                std::string(ReadingRemarkName(remark.id)) +
                "\", \"detail\": " + JsonString(remark.detail) + "}");
    separator = ",\n";
  }
}

// Throws Failure if the program cannot be read to its end.
void RunFile(const ProgramFile& file, const JobRecord& job, Files* files, MoveReceiver* receiver,
             ReadingRemarks* remarks) {
  ReadingOptions options;
  JobRecord record = job;
  options.isConversational = IsConversational(&record);
  options.isIntegerData = record.IntNcdataFlg != 0;
  options.progress = ToolProgress();
  const ToolWork work(Work::kRead, file.argument);
  const Status read = ReadAsControl(file.path, options, files, receiver, remarks);
  switch (read.kind()) {
    case StatusKind::kWrongFormat:
      throw Failure{file.argument,
                    Say({"대화형 프로그램은 이 명령으로 읽을 수 없습니다",
                         "the control reading does not know the conversational format"})};
    case StatusKind::kStopped:
      EndIfInterrupted();
      return;
    default:
      ThrowIfUnread(file.argument, read);
  }
}

void PrintFileText(const ProgramFile& file, const JobRecord& job, Files* files) {
  TextReceiver receiver;
  ReadingRemarks remarks;
  RunFile(file, job, files, &receiver, &remarks);
}

void PrintFileJson(const ProgramFile& file, const JobRecord& job, Files* files) {
  ReadingRemarks remarks;
  Print("  {\"file\": " + JsonString(file.argument) + ",\n   \"moves\": [");
  {
    JsonReceiver receiver;
    RunFile(file, job, files, &receiver, &remarks);
  }
  Print("],\n   \"remarks\": [");
  PrintRemarks(&remarks);
  Print("]}");
}

}  // namespace

int RunMoves(const Call& call) {
  Params params;
  bool json = false;
  std::vector<std::string> arguments;
  CommandLine line(
      call, {"프로그램마다 기계 제어기가 실행하는 순서대로 이동과 기능을 한 줄에 하나씩 "
             "출력합니다: 줄 번호, "
             "종류, 이동은 x, y, z, 피드, 원호는 평면, 중심, 회전각(라디안)도, 기능은 그 값.",
             "Prints the moves and events of each program in the order in which a machine "
             "control runs them, one a line: source line, kind, then of a move x, y, z, feed, "
             "of an arc also plane, centre and sweep in radians, of an event its value."});
  params.AddTo(&line);
  line.AddFlag("--json", &json,
               {"읽으면서 확인한 내용까지 JSON 문서 하나로 출력",
                "print one JSON document, with the remarks of the reading"});
  line.AddArguments("FILE", &arguments, kFilesHelp);
  line.Parse();
  params.Check();

  Host host(call);
  const std::vector<ProgramFile> files = FindProgramFiles(host, arguments);
  ToolView view(&host);
  params.Apply(&host, &view);
  if (json) Print("[");
  const char* separator = "\n";
  for (const ProgramFile& file : files) {
    if (json) {
      Print(separator);
      PrintFileJson(file, view.job, host.files.get());
      separator = ",\n";
    } else {
      if (files.size() > 1) Print("# " + file.argument + "\n");
      PrintFileText(file, view.job, host.files.get());
    }
  }
  if (json) Print("\n]\n");
  return 0;
}

}  // namespace tvx
