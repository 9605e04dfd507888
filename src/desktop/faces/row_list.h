// Lists of rows, of which one or none is selected, as the dialogs have them.
#pragma once

#include <QListWidget>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

// A list whose first row becomes current only when it is selected. A QListWidget makes it current
// when it gets the focus, and the first press of the down arrow would then skip it.
class RowList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

// Shows the rows and selects one, or none with -1, without a signal. Keeps the scroll position, but
// scrolls to a row that is appended while none is selected.
void ShowRows(QListWidget* list, const std::vector<std::string>& rows, int selected);

// The row that is selected, -1 for none.
int SelectedRow(const QListWidget& list);

// A list with its caption above it.
QWidget* Captioned(std::string_view caption, QWidget* list);

}  // namespace tvx
