// Fills the rows from the remarks; the lines of a kind only when it is opened, because there may be
// thousands.
#include "desktop/docks/check_dock.h"

#include <QComboBox>
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
#include "base/path_text.h"
#include "desktop/docks/program_text.h"
#include "desktop/language.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

enum Column { kMeaning, kCount, kColumns };

constexpr int kKindRole = Qt::UserRole;  // index of the RemarkKind

constexpr Message kLine{"줄 {line}", "Line {line}"};
constexpr Message kCounts{"빠짐 {lost}, 다름 {changed}", "{lost} lost, {changed} changed"};
constexpr Message kFirstLines{"{count}개 가운데 처음 {listed}개의 줄이 있습니다.",
                              "The first {listed} lines of {count} are listed."};

// Why there are no rows.
QString StateText(CheckState state) {
  switch (state) {
    case CheckState::kUnderWay:
      return Translated("검사 중입니다...");
    case CheckState::kDone:
      return Translated("빠지거나 다르게 읽는 줄이 없습니다.");
    case CheckState::kCannotRead:
      return ProblemText(StatusKind::kCannotOpen);
    case CheckState::kChanged:
      return ProblemText(StatusKind::kChanged);
    case CheckState::kNoProgram:
      break;
  }
  return {};
}

QString LineText(uint64_t line) {
  return InLanguage(kLine, {{"line", line}});
}

// The counts, or why there are none.
QString FileText(const FileCheck& file) {
  return file.state == CheckState::kDone ? CountsText(*file.result) : StateText(file.state);
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

QString CountsText(const ProgramCheck& check) {
  return InLanguage(kCounts, {{"lost", check.Count(RemarkClass::kLost)},
                              {"changed", check.Count(RemarkClass::kChanged)}});
}

CheckDock::CheckDock(const DockContext& context, QWidget* parent)
    : ViewDock(Translated("프로그램 검사"), context, parent) {
  setObjectName("programCheck");
  auto* const body = new QWidget(this);
  auto* const column = new QVBoxLayout(body);
  choice_ = new QComboBox(body);
  choice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  choice_->hide();
  column->addWidget(choice_);
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
  connect(choice_, &QComboBox::currentIndexChanged, this, &CheckDock::ShowFile);
  connect(rows_, &QTreeWidget::itemExpanded, this, &CheckDock::AddLines);
  connect(rows_, &QTreeWidget::currentItemChanged, this, &CheckDock::ShowRemark);
  connect(rows_, &QTreeWidget::itemClicked, this, &CheckDock::ShowRemark);  // reads it once more
  setWidget(body);
  Listen(Change::kCheck | Change::kResult, [this] { ShowCheck(); });
}

// The choice stays on its file until another program is loaded.
void CheckDock::ShowCheck() {
  const CTVXView* const view = this->view();
  std::vector<std::shared_ptr<const FileCheck>> files;
  std::shared_ptr<const FileCheck> loaded;
  if (view != nullptr) {
    loaded = view->checks().Loaded();
    files = ChecksOf(view->results.recorded, loaded);
  }
  const QSignalBlocker quiet(choice_);
  const bool isSameProgram = loaded == loaded_;
  loaded_ = loaded;
  if (files != files_) {
    files_ = std::move(files);
    choice_->clear();
    choice_->addItems(QStringList(static_cast<qsizetype>(files_.size())));
    choice_->setVisible(files_.size() > 1);
  }
  const auto chosen = std::ranges::find(files_, isSameProgram ? file_ : nullptr);
  choice_->setCurrentIndex(
      static_cast<int>(chosen != files_.end() ? chosen - files_.begin() : std::ssize(files_) - 1));
  NameFiles();
  ShowFile();
}

// With the counts, as soon as they are known.
void CheckDock::NameFiles() {
  for (int row = 0; row < choice_->count(); ++row) {
    const FileCheck& file = *files_[static_cast<size_t>(row)];
    const QVariant state = static_cast<int>(file.state);
    if (choice_->itemData(row) == state) continue;
    choice_->setItemData(row, state);
    choice_->setItemText(row, ToQt(NameOfPath(file.path, kAnySlash)) + " · " + FileText(file));
    choice_->setItemData(row, ToQt(file.path), Qt::ToolTipRole);
  }
}

// The chosen file.
void CheckDock::ShowFile() {
  const int row = choice_->currentIndex();
  const auto file = row < 0 ? nullptr : files_[static_cast<size_t>(row)];
  const CheckState state = file == nullptr ? CheckState::kNoProgram : file->state;
  if (file == file_ && state == state_) return;
  file_ = file;
  state_ = state;
  lines_.reset();
  if (file != nullptr) {
    source_ = {.path = file->path, .stamp = file->stamp, .lines = {}};
    lines_ = std::make_unique<SourceLines>(&source_, context_.app->files);
  }
  ShowKinds();
}

void CheckDock::ShowKinds() {
  rows_->clear();
  remark_->clear();
  if (state_ == CheckState::kDone) {
    const ProgramCheck& check = *file_->result;
    for (const RemarkKind* const kind : FoundKinds(check)) {
      auto* const row = new QTreeWidgetItem(rows_);
      row->setText(kMeaning,
                   InLanguage(TextOf(kind->remarkClass)) + " · " + InLanguage(kind->text));
      row->setToolTip(kMeaning, row->text(kMeaning) + " (" + ToQt(kind->name) + ")");
      row->setText(kCount, QString::number(check.Of(kind->id).count));
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
  for (const Remark& remark : file_->result->Of(id).stored) {
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
  const RemarkList& list = file_->result->lists[id];
  const int place = row == kindRow ? 0 : kindRow->indexOfChild(row);
  const Remark& remark = list.stored[static_cast<size_t>(place)];
  const auto paragraph = [](const QString& text) {
    return "<p style=\"margin: 6px 0 0 0\">" + text.toHtmlEscaped() + "</p>";
  };

  QString text = LineHtml(remark.line);
  QString meaning = InLanguage(kind.text);
  if (!remark.detail.empty()) meaning += ": " + Printable(ToQt(remark.detail));
  text += paragraph(InLanguage(TextOf(kind.remarkClass)) + " · " + meaning);
  text += paragraph(InLanguage(kind.help));
  if (list.stored.size() < list.count) {
    text +=
        paragraph(InLanguage(kFirstLines, {{"count", list.count}, {"listed", list.stored.size()}}));
  }
  remark_->setHtml(text);
  // Of the files of a run, only the one that is loaded has a picture and a text in the window.
  if (file_ == loaded_) GoToLine(remark.line, Centring::kAlways);
}

QString CheckDock::LineHtml(uint64_t line) {
  const Result<std::vector<std::string>> texts = lines_->Read(line, 1);
  const QString heading = "<b>" + LineText(line) + "</b>";
  if (!texts.ok()) return heading + "<br>" + ProblemText(texts.status);
  const QString text = texts.value.empty() ? QString() : Printable(ToQt(texts.value[0]));
  return heading + "<pre style=\"white-space: pre-wrap; margin: 2px 0 0 0\">" +
         text.toHtmlEscaped() + "</pre>";
}

}  // namespace tvx
