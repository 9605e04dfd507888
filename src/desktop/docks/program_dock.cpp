// Has the text read only while the dock is shown: a large file is searched for its lines once.
#include "desktop/docks/program_dock.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QVBoxLayout>
#include <cstdint>

#include "desktop/docks/program_text.h"
#include "desktop/language.h"
#include "session/tvx_view.h"

namespace tvx {

ProgramDock::ProgramDock(const DockContext& context, QWidget* parent)
    : ViewDock(Translated("프로그램"), context, parent) {
  setObjectName("program");
  auto* const body = new QWidget(this);
  auto* const column = new QVBoxLayout(body);
  auto* const row = new QHBoxLayout;
  number_ = new QLineEdit(body);
  number_->setValidator(new QIntValidator(1, INT32_MAX, number_));
  number_->setPlaceholderText("Ctrl+G");
  auto* const label = new QLabel(Translated("줄 번호"), body);
  label->setBuddy(number_);
  row->addWidget(label);
  row->addWidget(number_, 1);
  column->addLayout(row);
  text_ = new ProgramText(
      [this]() -> SourceLines* { return view() == nullptr ? nullptr : view()->Lines(); }, body);
  column->addWidget(text_, 1);
  setWidget(body);
  connect(text_, &ProgramText::LineChosen, this,
          [this](uint64_t line) { GoToLine(line, Centring::kIfOutside); });
  connect(number_, &QLineEdit::returnPressed, this, &ProgramDock::GoToTypedLine);
  auto* const ask = new QShortcut(QKeySequence("Ctrl+G"), parent);
  connect(ask, &QShortcut::activated, this, &ProgramDock::AskForLine);
  Listen(Change::kProgram, [this] { ShowProgram(); });
  Listen(Change::kLine, [this] { ShowLine(); });
}

void ProgramDock::ShowProgram() {
  if (isVisible()) ReadProgram();
}

void ProgramDock::showEvent(QShowEvent* event) {
  ReadProgram();
  ViewDock::showEvent(event);
}

void ProgramDock::ReadProgram() {
  text_->ShowProgram(view() == nullptr ? 1 : view()->line());
}

void ProgramDock::ShowLine() {
  if (isVisible() && view() != nullptr) text_->ShowLine(view()->line());
}

void ProgramDock::AskForLine() {
  show();
  raise();
  number_->setFocus();
  number_->selectAll();
}

void ProgramDock::GoToTypedLine() {
  const uint64_t line = number_->text().toULongLong();
  if (line == 0 || text_->lines() == 0) return;
  number_->clear();  // the row shows it; a number from before would contradict the next one
  text_->ShowLine(line);
  text_->setFocus();
  GoToLine(text_->line(), Centring::kIfOutside);
}

}  // namespace tvx
