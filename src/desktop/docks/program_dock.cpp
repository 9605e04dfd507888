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

namespace tvx {

namespace {

// Of the move in work; the first line if there is none.
uint64_t KeptLine(const CTVXView& view) {
  const auto block = view.marks.BlockOf(Mark::kKept, view.program);
  return block ? view.program.source.lines.LineOf(*block) : 1;
}

}  // namespace

ProgramDock::ProgramDock(const DockContext& context, QWidget* parent)
    : ViewDock(Translated("프로그램"), parent), context_(context) {
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
      [this]() -> SourceLines* {
        CTVXView* const view = context_.activeView();
        if (view == nullptr) return nullptr;
        return view->text.LinesOf(view->program, view->app->files);
      },
      body);
  column->addWidget(text_, 1);
  setWidget(body);
  connect(text_, &ProgramText::LineChosen, this,
          [this](uint64_t line) { context_.goToLine(line, Centring::kIfOutside); });
  connect(number_, &QLineEdit::returnPressed, this, &ProgramDock::GoToTypedLine);
  auto* const ask = new QShortcut(QKeySequence("Ctrl+G"), parent);
  connect(ask, &QShortcut::activated, this, &ProgramDock::AskForLine);
}

void ProgramDock::ShowProgram(CTVXView* view) {
  const uint32_t edition = view == nullptr ? 0 : view->program.edition;
  if (view == shownView_ && edition == shownEdition_) return text_->viewport()->update();
  shownView_ = nullptr;
  if (isVisible()) ReadProgram();
}

void ProgramDock::showEvent(QShowEvent* event) {
  ReadProgram();
  ViewDock::showEvent(event);
}

void ProgramDock::ReadProgram() {
  const CTVXView* const view = context_.activeView();
  shownView_ = view;
  shownEdition_ = view == nullptr ? 0 : view->program.edition;
  text_->ShowProgram(view == nullptr ? 1 : KeptLine(*view));
}

void ProgramDock::ShowLine(CTVXView* /*view*/, uint64_t line) {
  if (isVisible()) text_->ShowLine(line);
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
  context_.goToLine(text_->line(), Centring::kIfOutside);
}

}  // namespace tvx
