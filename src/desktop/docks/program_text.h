// A list of the lines of a program that reads only those that it shows, so that a file of any size
// opens at once and takes no memory.
#pragma once

#include <QAbstractScrollArea>
#include <cstdint>
#include <functional>

#include "insight/source_lines.h"

namespace tvx {

// Why the lines of a program cannot be shown, in the language in use; empty for a result that has
// no problem.
QString ProblemText(const Status& source);

class ProgramText : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // `lines` returns the program to show; null for none.
  ProgramText(std::function<SourceLines*()> lines, QWidget* parent);

  // Shows the program from its file again, with a line as the current one.
  void ShowProgram(uint64_t line);
  // Makes a line the current one and brings it into view.
  void ShowLine(uint64_t line);

  uint64_t line() const { return line_; }    // from 1
  uint64_t lines() const { return count_; }  // of the file; 0 if it cannot be shown

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, 0}; }

 signals:
  // The user has made another line the current one.
  void LineChosen(uint64_t line);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Choose(int64_t line);
  void SetRanges();
  int RowHeight() const { return fontMetrics().lineSpacing(); }
  int RowsShown() const;  // that are shown whole
  int NumbersWidth() const;

  std::function<SourceLines*()> programLines_;
  Status source_ = StatusKind::kNoProgram;  // why there is no text
  uint64_t count_ = 0;
  uint64_t line_ = 1;
  int textWidth_ = 0;  // of the widest line painted so far, pixels
};

}  // namespace tvx
