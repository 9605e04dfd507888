// Paints the rows in the view from the file, and turns keys and clicks into lines.
#include "desktop/docks/program_text.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <string>
#include <vector>

#include "desktop/language.h"

namespace tvx {

namespace {

constexpr int kMargin = 4;  // pixels, beside numbers and text

}  // namespace

QString ProblemText(const Status& source) {
  switch (source.kind()) {
    case StatusKind::kOk:
    case StatusKind::kNoProgram:
      return {};
    case StatusKind::kChanged:
      return Translated("불러온 뒤에 화일이 바뀌었습니다. 다시 불러오십시오.");
    default:
      return Translated("화일을 읽을 수 없습니다.");
  }
}

ProgramText::ProgramText(std::function<SourceLines*()> lines, QWidget* parent)
    : QAbstractScrollArea(parent), programLines_(std::move(lines)) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setCursor(Qt::ArrowCursor);
}

QSize ProgramText::sizeHint() const {
  constexpr int kRows = 12;
  return {fontMetrics().horizontalAdvance('0') * 36, RowHeight() * kRows};
}

int ProgramText::RowsShown() const {
  return std::max(1, viewport()->height() / RowHeight());
}

int ProgramText::NumbersWidth() const {
  const auto digits = static_cast<int>(std::to_string(count_).size());
  return fontMetrics().horizontalAdvance('0') * digits + 2 * kMargin;
}

void ProgramText::ShowProgram(uint64_t line) {
  SourceLines* const lines = programLines_();
  const Result<uint64_t> count = lines == nullptr ? Status(StatusKind::kNoProgram) : lines->Count();
  count_ = count.value;
  source_ = count.status;
  textWidth_ = 0;
  SetRanges();
  ShowLine(line);
}

void ProgramText::ShowLine(uint64_t line) {
  line_ = std::clamp<uint64_t>(line, 1, std::max<uint64_t>(count_, 1));
  const auto row = static_cast<int>(line_ - 1);
  const int top = verticalScrollBar()->value();
  if (row < top || row >= top + RowsShown()) verticalScrollBar()->setValue(row - RowsShown() / 2);
  viewport()->update();
}

void ProgramText::SetRanges() {
  const auto rows = static_cast<int>(std::min<uint64_t>(count_, INT32_MAX));
  verticalScrollBar()->setRange(0, std::max(0, rows - RowsShown()));
  verticalScrollBar()->setPageStep(RowsShown());
  const int room = viewport()->width() - NumbersWidth() - 2 * kMargin;
  horizontalScrollBar()->setRange(0, std::max(0, textWidth_ - room));
  horizontalScrollBar()->setPageStep(std::max(1, room));
  horizontalScrollBar()->setSingleStep(fontMetrics().horizontalAdvance('0'));
}

void ProgramText::resizeEvent(QResizeEvent* /*event*/) {
  SetRanges();
}

void ProgramText::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  const auto top = static_cast<uint64_t>(verticalScrollBar()->value()) + 1;
  SourceLines* const lines = programLines_();
  std::vector<std::string> texts;
  if (lines != nullptr && count_ > 0) {
    Result<std::vector<std::string>> read = lines->Read(top, static_cast<size_t>(RowsShown()) + 1);
    source_ = read.status;
    texts = std::move(read.value);
  }
  painter.setPen(palette().color(QPalette::Text));
  if (!source_.ok()) {
    painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                     Qt::TextWordWrap, ProblemText(source_));
    return;
  }
  const int numbers = NumbersWidth();
  const int left = numbers + kMargin - horizontalScrollBar()->value();
  int widest = textWidth_;
  for (size_t i = 0; i < texts.size(); ++i) {
    const QRect row(0, static_cast<int>(i) * RowHeight(), viewport()->width(), RowHeight());
    const bool isCurrent = top + i == line_;
    if (isCurrent) painter.fillRect(row, palette().color(QPalette::Highlight));
    const QPalette::ColorRole role = isCurrent ? QPalette::HighlightedText : QPalette::Text;
    const QString text = Printable(ToQt(texts[i])).replace('\t', "    ");
    widest = std::max(widest, fontMetrics().horizontalAdvance(text));
    painter.setPen(palette().color(role));
    painter.setClipRect(row.adjusted(numbers, 0, 0, 0));
    painter.drawText(QRect(left, row.y(), widest + kMargin, row.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter.setClipping(false);
    if (!isCurrent) painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(
        row.adjusted(0, 0, row.width() > numbers ? numbers - row.width() - kMargin : 0, 0),
        Qt::AlignRight | Qt::AlignVCenter, QString::number(top + i));
  }
  if (widest == textWidth_) return;
  textWidth_ = widest;
  QMetaObject::invokeMethod(this, &ProgramText::SetRanges, Qt::QueuedConnection);
}

void ProgramText::Choose(int64_t line) {
  if (count_ == 0) return;
  const auto chosen =
      static_cast<uint64_t>(std::clamp<int64_t>(line, 1, static_cast<int64_t>(count_)));
  ShowLine(chosen);
  emit LineChosen(chosen);
}

void ProgramText::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  Choose(int64_t{verticalScrollBar()->value()} + 1 + event->position().toPoint().y() / RowHeight());
}

// The file may have been edited in another window.
void ProgramText::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) viewport()->update();
  QAbstractScrollArea::changeEvent(event);
}

void ProgramText::keyPressEvent(QKeyEvent* event) {
  const auto line = static_cast<int64_t>(line_);
  switch (event->key()) {
    case Qt::Key_Up:
      return Choose(line - 1);
    case Qt::Key_Down:
      return Choose(line + 1);
    case Qt::Key_PageUp:
      return Choose(line - RowsShown());
    case Qt::Key_PageDown:
      return Choose(line + RowsShown());
    case Qt::Key_Home:
      return Choose(1);
    case Qt::Key_End:
      return Choose(static_cast<int64_t>(count_));
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace tvx
