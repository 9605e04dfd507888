// Updates lists without signals and without losing the scroll position.
#include "desktop/faces/row_list.h"

#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "desktop/language.h"

namespace tvx {

namespace {

bool Shows(const QListWidget& list, const std::vector<std::string>& rows) {
  if (list.count() != static_cast<int>(rows.size())) return false;
  for (int i = 0; i < list.count(); ++i) {
    if (list.item(i)->text() != ToQt(rows[static_cast<size_t>(i)])) return false;
  }
  return true;
}

}  // namespace

void RowList::focusInEvent(QFocusEvent* event) {
  QListWidget::focusInEvent(event);
  if (selectedItems().isEmpty()) setCurrentRow(-1);
}

void ShowRows(QListWidget* list, const std::vector<std::string>& rows, int selected) {
  const QSignalBlocker blocker(list);
  if (!Shows(*list, rows)) {
    const int position = list->verticalScrollBar()->value();
    const bool oneMore = list->count() > 0 && list->count() + 1 == static_cast<int>(rows.size());
    list->clear();
    for (const std::string& row : rows) list->addItem(ToQt(row));
    list->verticalScrollBar()->setValue(position);
    if (oneMore && selected < 0) list->scrollToBottom();
  }
  if (selected < 0) list->clearSelection();
  list->setCurrentRow(selected);
}

int SelectedRow(const QListWidget& list) {
  return list.selectedItems().isEmpty() ? -1 : list.row(list.selectedItems().constFirst());
}

QWidget* Captioned(std::string_view caption, QWidget* list) {
  auto* const box = new QWidget;
  auto* const column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel(Translated(caption), box);
  label->setBuddy(list);
  column->addWidget(label);
  column->addWidget(list, 1);
  return box;
}

}  // namespace tvx
