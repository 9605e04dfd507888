// The table of commands, in the order of the help text.
#include "cli/command.h"

namespace tvx {

// Each is in the file of its name and starts with its options.
int RunBlocks(const Call& call);
int RunCauses(const Call& call);
int RunCheck(const Call& call);
int RunConditionShow(const Call& call);
int RunConditionWrite(const Call& call);
int RunConfigShow(const Call& call);
int RunDraw(const Call& call);
int RunGetFeed(const Call& call);
int RunInfo(const Call& call);
int RunJobs(const Call& call);
int RunMachineFit(const Call& call);
int RunMachineShow(const Call& call);
int RunMasterBuild(const Call& call);
int RunMasterDump(const Call& call);
int RunMasterLookup(const Call& call);
int RunMasterShow(const Call& call);
int RunMoves(const Call& call);
int RunOptionLineBuild(const Call& call);
int RunOptionLineParse(const Call& call);
int RunPicture(const Call& call);
int RunProject(const Call& call);
int RunTime(const Call& call);

namespace {

constexpr ToolCommand kCommands[] = {
    {"time",
     {"조정 전과 조정 후의 가공 시간",
      "cut-time figures, as programmed and after the feed adjustment"},
     RunTime},
    {"check",
     {"시간에서 빠지는 것을 줄마다", "what the times leave out, by source line"},
     RunCheck},
    {"causes",
     {"피드를 늦춘 규칙과 그 시간, 위치", "which rules slow a program, how much and where"},
     RunCauses},
    {"info", {"화일정보 창의 내용", "the lines of the file information dialog"}, RunInfo},
    {"blocks", {"저장된 이동을 한 줄에 하나씩", "the stored moves, one a line"}, RunBlocks},
    {"moves",
     {"기계 제어기가 실행하는 이동을 한 줄에 하나씩",
      "the moves as a machine control runs them, one a line"},
     RunMoves},
    {"run", {"작업 리스트의 모든 화일을 실행", "the multi-file run over a job list"}, RunJobs},
    {"machine show", {"기계 화일의 값", "the values of a machine file"}, RunMachineShow},
    {"machine fit",
     {"측정한 시간에 기계 화일을 맞추기", "fit a machine file to measured times"},
     RunMachineFit},
    {"master build",
     {"프로그램으로 마스터 모델 생성", "build a master model from a program"},
     RunMasterBuild},
    {"master dump",
     {"마스터 모델의 값과 셀", "the fields and cells of a master model"},
     RunMasterDump},
    {"master lookup",
     {"점 근처에서 마스터 모델의 각도", "the angles of a master model near points"},
     RunMasterLookup},
    {"master show",
     {"마스터 모델 그림의 이동", "the moves of the wire picture of a master model"},
     RunMasterShow},
    {"draw", {"그림을 장치 호출로", "the drawing, as calls of a device"}, RunDraw},
    {"picture",
     {"그림화일 쓰기: 메타화일, SVG, PNG", "write the picture: metafile, SVG or PNG"},
     RunPicture},
    {"project", {"그림에서 점의 위치", "where points appear in the picture"}, RunProject},
    {"option-line parse",
     {"옵션 줄이 나타내는 작업 조건", "the job record that an option line gives"},
     RunOptionLineParse},
    {"option-line build", {"화일의 옵션 줄", "the option line of a file"}, RunOptionLineBuild},
    {"condition show", {"조건화일의 값", "the parameters of a condition file"}, RunConditionShow},
    {"condition write", {"조건화일 쓰기", "write a condition file"}, RunConditionWrite},
    {"getfeed", {"회전수와 피드 계산기", "the calculator of spindle speed and feed"}, RunGetFeed},
    {"config show",
     {"환경설정, 리스트, 사용자 키", "the configuration, the lists and the user keys"},
     RunConfigShow},
};

}  // namespace

std::span<const ToolCommand> ToolCommands() {
  return kCommands;
}

}  // namespace tvx
