// Finds the installed pages, or those of the source tree that the program was built in.
#include "desktop/window/help.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>

#include "base/message.h"
#include "desktop/language.h"

namespace tvx {

namespace {

constexpr char kGuide[] = "docs/guide";
constexpr int kLinesAbove = 4;  // of a line that is shown: its heading

// Empty if there is no guide.
QString GuideFolder() {
  const QString installed =
      QStandardPaths::locate(QStandardPaths::GenericDataLocation, QString("doc/tvx/") + kGuide,
                             QStandardPaths::LocateDirectory);
  QDir folder(QCoreApplication::applicationDirPath());
  const QString beside = folder.filePath(QString("../share/doc/tvx/") + kGuide);
  for (const QString& candidate : {beside, installed}) {
    if (!candidate.isEmpty() && QFileInfo(candidate).isDir()) return candidate;
  }
  do {
    if (QFileInfo(folder.filePath(kGuide)).isDir()) return folder.filePath(kGuide);
  } while (folder.cdUp());
  return {};
}

}  // namespace

Help::Help(QWidget* parent) : QObject(parent), parent_(parent) {
  const auto add = [&](const char* text, const char* page, const char* line) {
    auto* const entry = new QAction(Translated(text), this);
    connect(entry, &QAction::triggered, this, [this, page, line] { Show(page, line); });
    entries_ << entry;
  };
  add("설명서", "README.md", "");
  add("키와 마우스", "window.md", "F1, F2, F3");  // the first row of their table
}

void Help::Show(const QString& page, const QString& text) {
  const QString folder = GuideFolder();
  if (folder.isEmpty()) {
    QMessageBox::information(parent_, "TVX", Translated("설명서가 설치되어 있지 않습니다."));
    return;
  }
  if (browser_.isNull()) {
    browser_ = new QTextBrowser(parent_);
    browser_->setWindowFlag(Qt::Window);
    browser_->setAttribute(Qt::WA_DeleteOnClose);
    browser_->setWindowTitle("TVX - " + Translated("설명서"));
    browser_->setOpenExternalLinks(true);
    browser_->resize(900, 760);
  }
  const QString language = LanguageInUse() == Language::kEnglish ? "en" : "ko";
  browser_->setSource(QUrl::fromLocalFile(QDir(folder).filePath(language + "/" + page)),
                      QTextDocument::MarkdownResource);
  browser_->show();
  if (!text.isEmpty() && browser_->find(text)) {
    QScrollBar* const bar = browser_->verticalScrollBar();
    bar->setValue(bar->value() + browser_->cursorRect().top() -
                  kLinesAbove * browser_->fontMetrics().height());
  }
  browser_->raise();
  browser_->activateWindow();
}

}  // namespace tvx
