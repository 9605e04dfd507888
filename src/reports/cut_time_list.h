// The list of recorded results: what each file ran with and how long it takes, and the reports that
// are written from it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/user_interface.h"
#include "reports/spreadsheet.h"
#include "stats/result_table.h"

namespace tvx {

// Everything that is known about a result, as the list shows it.
std::vector<std::string> CutTimeListLines(const CutTimeEntry& entry);

// What stands in these lines before a name, of a directory, a master model and a picture.
inline constexpr std::string_view kNameLabels[] = {"Dir : ", "MMA ", "그림화일 "};

// The dialog of the list. It works on the result table of its window, to which the runs append
// while it is closed; nothing else is kept between two openings.
class CCutTimeListDlg final : public Dialog {
 public:
  static constexpr char kTitle[] = "TVX 출력";
  static constexpr char kFileHeading[] = "화일 이름";
  static constexpr char kInformationHeading[] = "화일 정보";
  static constexpr char kTotalLabel[] = "전체 시간 ";

  // All have to outlive the dialog.
  CCutTimeListDlg(ResultTable* results, Files* files, UserInterface* ui, Spreadsheets* spreadsheets)
      : results_(results), files_(files), ui_(ui), spreadsheets_(spreadsheets) {}

  // Before the face is shown: fills the list, with no file selected and nothing told of any.
  void Open();

  // The buttons between "OK" and "Cancel", which only close the dialog, in the order of the face.
  // Each says whether the dialog stays open.
  struct Button {
    const char* caption;
    Closing (CCutTimeListDlg::*press)();
  };
  static std::span<const Button> Buttons();

  // Shows the lines of an entry. For an index that the list does not have no file is selected, and
  // the lines stay.
  void Select(int index);

  // "청소": empties the table and closes the dialog.
  Closing Clear();
  // "화일삭제": takes the selected entry out of the table, and none from the disk.
  Closing DeleteSelected();
  // The reports. They cover the whole table, whatever is selected.
  Closing WriteReport();
  Closing WriteList();
  Closing WriteListCopy();
  // Cuts the figures of the table down.
  Closing Export();

  // The total as shown, in minutes.
  std::string TotalTimeText() const;

  std::vector<std::string> fileNames;    // the list of files
  std::vector<std::string> information;  // the lines of the file selected last
  int selected = -1;                     // -1: no file
  float totalTime = 0;                   // minutes, of all files

 private:
  void Fill();

  ResultTable* results_;
  Files* files_;
  UserInterface* ui_;
  Spreadsheets* spreadsheets_;
};

}  // namespace tvx
