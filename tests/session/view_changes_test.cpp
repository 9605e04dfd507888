// What each operation on a window tells its listeners, and how often it shows the picture.
#include "session/view_operations.h"
#include "session_test.h"

namespace tvx {
namespace {

std::string Names(ChangeSet changes) {
  constexpr std::pair<ChangeSet, const char*> kNames[] = {
      {Change::kProgram, "program "}, {Change::kName, "name "},       {Change::kFeeds, "feeds "},
      {Change::kOptions, "options "}, {Change::kView, "view "},       {Change::kCheck, "check "},
      {Change::kResult, "result "},   {Change::kHovered, "hovered "}, {Change::kKept, "kept "},
      {Change::kLine, "line "}};
  std::string names;
  for (const auto& [change, name] : kNames) {
    if (changes.HasAny(change)) names += name;
  }
  return names;
}

class ViewChanges : public SessionTest {
 protected:
  ViewChanges() {
    files.Put("c:\\part.nc", Surface());
    view.view.transform.sizedWidth = view.view.transform.clientWidth = 800;
    view.view.transform.sizedHeight = view.view.transform.clientHeight = 600;
    view.job.MetafileCreateChk = 0;
  }

  void Run(CommandId id) { RunViewCommand(&view, id); }
  void Accept() {
    ui.OnDialog([](Dialog*) { return true; });
  }
  // Lines of the list, each with the program.
  void RunList(int lines) {
    OnJobs(true, [lines](CTransferDlg* dialog) {
      for (int i = 0; i < lines; ++i)
        dialog->list.Insert(0, "part.nc", "Dir c: FS 5 RT OFF Afa ON ");
    });
    Run(CommandId::kRunJobList);
  }

  CTVXView view{&app};
};

TEST_F(ViewChanges, EachOperationTellsWhatItChanged) {
  constexpr char kLoaded[] = "1 program name feeds view check ";
  const struct {
    const char* name;
    std::function<void()> act;
    const char* told;  // times shown at once, and all changes once settled
  } rows[] = {
      {"load", [&] { LoadProgram(&view, "c:\\part.nc"); }, kLoaded},
      {"check",
       [&] {
         while (view.CheckMore(50)) {
         }
       },
       "0 check "},
      {"fit", [&] { Run(CommandId::kFit); }, "1 view "},
      {"top view", [&] { Run(CommandId::kViewTop); }, "1 view "},
      {"redraw", [&] { Run(CommandId::kRedraw); }, "1 view "},
      {"rapids", [&] { Run(CommandId::kToggleRapids); }, "1 view "},
      {"plain cut time", [&] { Run(CommandId::kPlainCutTime); }, "0 "},
      {"hover", [&] { view.SetMark(Mark::kHovered, 5); }, "0 hovered "},
      {"hover again", [&] { view.SetMark(Mark::kHovered, 5); }, "0 "},
      {"keep", [&] { view.SetMark(Mark::kKept, 5); }, "0 kept line "},
      {"line in the middle", [&] { view.GoToLine(9, Centring::kAlways); }, "0 view kept line "},
      {"line inside", [&] { view.GoToLine(9, Centring::kIfOutside); }, "0 line "},
      {"cancelled options",
       [&] {
         ui.OnDialog([](Dialog*) { return false; });
         Run(CommandId::kSingleCutTime);
       },
       "0 options "},
      {"single cut time",
       [&] {
         OnOptions("2000");
         Accept();
         Run(CommandId::kSingleCutTime);
       },
       "1 feeds options view result "},
      {"result list", [&] { Accept(), Run(CommandId::kResultList); }, "0 result "},
      {"run of two", [&] { RunList(2); }, "2 program name feeds options view check result "},
      {"master model",
       [&] { LoadProgram(&view, "c:\\part.nc"), Accept(), Run(CommandId::kMasterBuild); },
       "2 program name feeds view check "},
      {"missing file", [&] { LoadProgram(&view, "c:\\none.nc"); }, kLoaded},
  };
  int shown = 0;
  ChangeSet told;
  const Subscription picture = view.changes.Subscribe(
      kAllChanges, Timing::kAtOnce,
      [&](ChangeSet, Timing timing) { shown += timing == Timing::kAtOnce ? 1 : 0; });
  const Subscription dock = view.changes.Subscribe(
      kAllChanges, Timing::kSettled, [&](ChangeSet changes, Timing) { told |= changes; });
  for (const auto& row : rows) {
    shown = 0;
    told = {};
    row.act();
    EXPECT_EQ(std::to_string(shown) + " " + Names(told), row.told) << row.name;
  }
}

TEST_F(ViewChanges, LineInWorkIsThatOfTheKeptMoveOrTheOneGoneTo) {
  files.Put("c:\\text.nc", "G1 X9 F100\n(text)\nX8\n");
  LoadProgram(&view, "c:\\text.nc");
  EXPECT_EQ(view.line(), 1U);
  view.SetMark(Mark::kKept, view.program.source.lines.FirstBlockOf(3));
  EXPECT_EQ(view.line(), 3U);
  view.GoToLine(2, Centring::kAlways);
  EXPECT_EQ(view.line(), 2U);
  LoadProgram(&view, "c:\\part.nc");
  EXPECT_EQ(view.line(), 1U);
}

}  // namespace
}  // namespace tvx
