// The guide in a window of its own, and the entries of the Help menus that open it.
#pragma once

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>

class QTextBrowser;
class QWidget;

namespace tvx {

class Help : public QObject {
  Q_OBJECT

 public:
  // The window of the guide belongs to the parent.
  explicit Help(QWidget* parent);

  const QList<QAction*>& MenuEntries() const { return entries_; }

 private:
  // Shows a page of the guide in the language in use, and in it the first line with this text. A
  // message says so if the guide is not installed.
  void Show(const QString& page, const QString& text);

  QWidget* parent_;
  QList<QAction*> entries_;
  QPointer<QTextBrowser> browser_;
};

}  // namespace tvx
