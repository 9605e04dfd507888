// The dialog of recorded results: the options and times of each file, and the reports written from
// them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "evaluate/result_table.h"
#include "platform/files/files.h"
#include "platform/user_interface.h"
#include "reports/report_table.h"
#include "reports/spreadsheet.h"

namespace tvx {

// All lines that the list shows about a result.
std::vector<std::string> CutTimeListLines(const CutTimeEntry& entry, Language language);

// How far a run came that the user stopped.
std::string StoppedText(const RunEnd& end, Language language);

// Works on the result table of its window, to which the runs append while the dialog is closed. No
// other state is kept between two openings.
class CCutTimeListDlg final : public Dialog {
 public:
  static constexpr char kTitle[] = "TVX 출력";
  static constexpr char kFileHeading[] = "화일 이름";
  static constexpr char kInformationHeading[] = "화일 정보";
  static constexpr char kTotalLabel[] = "전체 시간 ";

  // All four must outlive the dialog.
  CCutTimeListDlg(ResultTable* results, Files* files, UserInterface* ui, Spreadsheets* spreadsheets)
      : results_(results), files_(files), ui_(ui), spreadsheets_(spreadsheets) {}

  // Has to be set. Brings the checks of the results to their ends before a report that shows them.
  std::function<void()> finishChecks;

  // Call it before the face is shown. Fills the list; no file is selected and no lines are shown.
  void Open();

  // The buttons in the order of the face, without "OK" and "Cancel", which only close the dialog.
  // The result of `press` says whether the dialog stays open.
  struct Button {
    const Message* caption;
    std::function<Closing(CCutTimeListDlg*)> press;
  };
  static std::vector<Button> Buttons();

  // Selects an entry and shows its lines. An index outside the list selects no file and leaves the
  // lines.
  void Select(int index);

  // "청소": empties the table and closes the dialog.
  Closing Clear();
  // "화일삭제": removes the selected entry from the table; shows a message if none is selected. The
  // files on the disk are not touched.
  Closing DeleteSelected();
  // Asks for a file and writes a report of the whole table, whatever is selected. A spreadsheet
  // cuts the figures of the table down. What fails is shown, and the table is not reported then.
  Closing Write(const Report& report);

  // How far the last run came if the user stopped it; else empty.
  std::string Remark() const;

  // The total as shown, in minutes.
  std::string TotalTimeText() const;

  std::vector<std::string> fileNames;    // the list of files
  std::vector<std::string> information;  // the lines of the file selected last
  int selected = -1;                     // -1: no file
  float totalTime = 0;                   // minutes, of all files

 private:
  void Fill();
  bool MayReplaceFile(const Report& report, const std::string& path);
  bool MayCopyBeside(const std::string& path);
  bool WriteFiles(const Report& report, const std::string& path);
  bool FillSpreadsheet(const std::string& path);
  void ShowNamesThatListsCutOff();

  ResultTable* results_;
  Files* files_;
  UserInterface* ui_;
  Spreadsheets* spreadsheets_;
};

}  // namespace tvx
