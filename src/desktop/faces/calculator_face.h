// The face of the cutting-condition calculator.
#pragma once

#include <array>
#include <span>

#include "desktop/faces/face.h"
#include "getfeed/calculator_dialog.h"

class QLabel;

namespace tvx {

class CalculatorFace : public Face {
 public:
  CalculatorFace(CGetFeedDlg* dialog, QWidget* parent);

 private:
  using Select = bool (CGetFeedDlg::*)(std::string_view entry);
  void AddList(QFormLayout* form, const char* label, const std::vector<std::string>& entries,
               const std::string& selected, Select select);
  void AddNumbers(QFormLayout* form, std::span<const char* const> names);
  void AddNumberGroup(QLayout* layout, const char* title, std::span<const char* const> names);
  QLabel* AddSlider(QLayout* layout, int position, void (CGetFeedDlg::*release)(int));
  void ShowResults();
  void Accept();

  CGetFeedDlg* dialog_;
  std::array<QLineEdit*, kCalculatorNumbers> numbers_{};
  QLabel* speedCaption_ = nullptr;
  QLabel* feedCaption_ = nullptr;
};

}  // namespace tvx
