// Fills the rows from the remarks; the lines of a kind only when it is opened, because there may be
// thousands.
#include "desktop/check_dock.h"

#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <string>
#include <vector>

#include "base/format.h"
#include "desktop/language.h"

namespace tvx {

namespace {

enum Column { kMeaning, kCount, kColumns };

constexpr int kKindRole = Qt::UserRole;  // index of the RemarkKind

QString ClassText(RemarkClass remarkClass) {
  constexpr const char* kTexts[] = {"빠짐", "다름", "참고"};
  return Translated(kTexts[static_cast<size_t>(remarkClass)]);
}

QString MeaningOf(const RemarkKind& kind) {
  return InLanguage(kind.korean, kind.english);
}

// Why there are no rows.
QString StateText(CheckState state) {
  switch (state) {
    case CheckState::kUnderWay:
      return Translated("검사 중입니다...");
    case CheckState::kDone:
      return Translated("빠지거나 다르게 읽는 줄이 없습니다.");
    case CheckState::kCannotRead:
      return Translated("화일을 읽을 수 없습니다.");
    case CheckState::kChanged:
      return Translated("불러온 뒤에 화일이 바뀌었습니다. 다시 불러오십시오.");
    case CheckState::kNoProgram:
      break;
  }
  return {};
}

QString LineText(uint64_t line) {
  return Translated(Format("줄 %s", std::to_string(line).c_str()));
}

// A line of a file may hold any characters.
QString Printable(QString text) {
  std::ranges::replace_if(
      text, [](QChar c) { return c < ' ' && c != '\t'; }, '?');
  return text;
}

// In the order of the rows: by class, then by first line.
std::vector<const RemarkKind*> FoundKinds(const ProgramCheck& check) {
  std::vector<const RemarkKind*> kinds;
  for (const RemarkKind& kind : RemarkKinds()) {
    if (!check.Of(kind.id).stored.empty()) kinds.push_back(&kind);
  }
  std::ranges::stable_sort(kinds, {}, [&](const RemarkKind* kind) {
    return std::pair(kind->remarkClass, check.Of(kind->id).stored.front().line);
  });
  return kinds;
}

}  // namespace

CheckDock::CheckDock(const DockContext& /*context*/, QWidget* parent)
    : ViewDock(Translated("프로그램 검사"), parent) {
  setObjectName("programCheck");
  auto* const body = new QWidget(this);
  auto* const column = new QVBoxLayout(body);
  status_ = new QLabel(body);
  status_->setWordWrap(true);
  column->addWidget(status_);

  auto* const splitter = new QSplitter(Qt::Vertical, body);
  splitter->setChildrenCollapsible(false);
  rows_ = new QTreeWidget(splitter);
  rows_->setColumnCount(kColumns);
  rows_->setHeaderLabels({Translated("내용"), Translated("개수")});
  rows_->header()->setStretchLastSection(false);
  rows_->header()->setSectionResizeMode(kMeaning, QHeaderView::Stretch);
  rows_->header()->setSectionResizeMode(kCount, QHeaderView::ResizeToContents);
  rows_->setUniformRowHeights(true);
  rows_->setIndentation(fontMetrics().height());
  remark_ = new QTextEdit(splitter);
  remark_->setReadOnly(true);
  for (QAbstractScrollArea* const area :
       {static_cast<QAbstractScrollArea*>(rows_), static_cast<QAbstractScrollArea*>(remark_)}) {
    area->setMinimumHeight(fontMetrics().height());  // the window has to fit on a small screen
  }
  splitter->addWidget(rows_);
  splitter->addWidget(remark_);
  column->addWidget(splitter, 1);
  connect(rows_, &QTreeWidget::itemExpanded, this, &CheckDock::AddLines);
  connect(rows_, &QTreeWidget::currentItemChanged, this, &CheckDock::ShowRemark);
  setWidget(body);
}

void CheckDock::ShowCheck(const CTVXView* view) {
  const CheckState state =
      view == nullptr ? CheckState::kNoProgram : view->check.State(view->program.source);
  const auto check = state == CheckState::kDone ? view->check.Result() : nullptr;
  if (state == state_ && check == check_) return;
  state_ = state;
  check_ = check;
  lines_.reset();
  if (check != nullptr) {
    const ProgramSource& source = view->program.source;
    source_ = {.path = source.path, .stamp = source.stamp, .lines = {}};
    lines_ = std::make_unique<SourceLines>(&source_, view->app->files);
  }
  ShowKinds();
}

void CheckDock::ShowKinds() {
  rows_->clear();
  remark_->clear();
  if (check_ != nullptr) {
    for (const RemarkKind* const kind : FoundKinds(*check_)) {
      auto* const row = new QTreeWidgetItem(rows_);
      row->setText(kMeaning, ClassText(kind->remarkClass) + " · " + MeaningOf(*kind));
      row->setToolTip(kMeaning, row->text(kMeaning) + " (" + ToQt(kind->name) + ")");
      row->setText(kCount, QString::number(check_->Of(kind->id).count));
      row->setTextAlignment(kCount, Qt::AlignRight | Qt::AlignVCenter);
      row->setData(kMeaning, kKindRole, static_cast<int>(kind->id));
      row->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    }
  }
  const bool hasRows = rows_->topLevelItemCount() > 0;
  remark_->setPlaceholderText(hasRows ? Translated("클릭한 줄의 내용이 여기에 나옵니다.") : "");
  status_->setText(hasRows ? "" : StateText(state_));
  status_->setVisible(!status_->text().isEmpty());
}

void CheckDock::AddLines(QTreeWidgetItem* kindRow) {
  if (kindRow->childCount() > 0) return;
  const auto id = static_cast<RemarkId>(kindRow->data(kMeaning, kKindRole).toInt());
  QList<QTreeWidgetItem*> lines;
  for (const Remark& remark : check_->Of(id).stored) {
    lines << new QTreeWidgetItem({LineText(remark.line) + "  " + Printable(ToQt(remark.detail))});
  }
  kindRow->addChildren(lines);
}

// A row of a kind shows its first line.
void CheckDock::ShowRemark(QTreeWidgetItem* row) {
  remark_->clear();
  if (row == nullptr) return;
  const QTreeWidgetItem* const kindRow = row->parent() == nullptr ? row : row->parent();
  const auto id = static_cast<size_t>(kindRow->data(kMeaning, kKindRole).toInt());
  const RemarkKind& kind = RemarkKinds()[id];
  const RemarkList& list = check_->lists[id];
  const int place = row == kindRow ? 0 : kindRow->indexOfChild(row);
  const Remark& remark = list.stored[static_cast<size_t>(place)];
  const auto paragraph = [](const QString& text) {
    return "<p style=\"margin: 6px 0 0 0\">" + text.toHtmlEscaped() + "</p>";
  };

  QString text = LineHtml(remark.line);
  QString meaning = MeaningOf(kind);
  if (!remark.detail.empty()) meaning += ": " + Printable(ToQt(remark.detail));
  text += paragraph(ClassText(kind.remarkClass) + " · " + meaning);
  text += paragraph(InLanguage(kind.koreanHelp, kind.englishHelp));
  if (list.stored.size() < list.count) {
    text += paragraph(Translated(Format("%s개 가운데 처음 %s개의 줄이 있습니다.",
                                        std::to_string(list.count).c_str(),
                                        std::to_string(list.stored.size()).c_str())));
  }
  remark_->setHtml(text);
}

QString CheckDock::LineHtml(uint64_t line) {
  std::vector<std::string> texts;
  const SourceResult result = lines_->Read(line, 1, &texts);
  const QString heading = "<b>" + LineText(line) + "</b>";
  if (result != SourceResult::kRead) {
    return heading + "<br>" +
           StateText(result == SourceResult::kChanged ? CheckState::kChanged
                                                      : CheckState::kCannotRead);
  }
  const QString text = texts.empty() ? QString() : Printable(ToQt(texts[0]));
  return heading + "<pre style=\"white-space: pre-wrap; margin: 2px 0 0 0\">" +
         text.toHtmlEscaped() + "</pre>";
}

}  // namespace tvx
