// Lists of rows, of which one or none is selected, as the dialogs have them.
#pragma once

#include <QListWidget>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// A list whose first row becomes current only when it is selected: getting the focus, a list makes
// it current as it is, and the arrow down then passes it by.
class RowList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

// Shows the rows and selects one, or none with -1, without a signal. The list stays scrolled to
// where it was, or follows a row that was added at its end.
void ShowRows(QListWidget* list, const std::vector<std::string>& rows, int selected);

// The row that is selected, -1 for none.
int SelectedRow(const QListWidget& list);

// A list with its caption above it.
QWidget* Captioned(std::string_view caption, QWidget* list);

}  // namespace tvx
