// Follows the steps of a user in the widgets of a window.
#include "desktop/desktop_test.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTimer>
#include <QTreeView>

namespace tvx {

namespace {

constexpr int kPollMilliseconds = 5;
constexpr int kMostIdlePolls = 600;

// A button, or the field with a label, of this text, else the first whose text begins so.
QWidget* WidgetOf(QWidget* window, const QString& name, bool isButton) {
  bool isNumber = false;
  const int number = name.toInt(&isNumber);
  if (isNumber && !isButton) return window->findChildren<QLineEdit*>().value(number);
  if (name == "tree") return window->findChild<QTreeView*>();
  if (name == "list") return window->findChild<QListView*>();
  if (name == "box") return window->findChild<QComboBox*>();
  QWidget* found = nullptr;
  for (QWidget* const widget : window->findChildren<QWidget*>()) {
    const auto* const label = isButton ? nullptr : qobject_cast<QLabel*>(widget);
    QWidget* const target =
        label == nullptr ? qobject_cast<QAbstractButton*>(widget) : label->buddy();
    const QString text = widget->property("text").toString().remove('&').trimmed();
    if (target != nullptr && text == name) return target;
    if (found == nullptr && text.startsWith(name)) found = target;
  }
  return found;
}

QStringList RowsOf(const QAbstractItemModel* model) {
  QStringList rows;
  for (int row = 0; row < model->rowCount(); ++row) rows << model->index(row, 0).data().toString();
  return rows;
}

QString ShownIn(const QWidget* widget) {
  if (const auto* const rows = qobject_cast<const QAbstractItemView*>(widget)) {
    return RowsOf(rows->model()).join(", ");
  }
  const auto* const button = qobject_cast<const QAbstractButton*>(widget);
  if (button != nullptr && button->isCheckable()) return button->isChecked() ? "on" : "off";
  const char* const shown = widget->inherits("QComboBox") ? "currentText" : "text";
  return widget->property(shown).toString() +
         (widget->property("readOnly").toBool() ? " (fixed)" : "");
}

void ExpectText(const QString& shown, const QString& expected) {
  EXPECT_EQ(FromQt(shown), FromQt(expected));
}

void Enter(QWidget* widget, const QString& text) {
  if (auto* const box = qobject_cast<QComboBox*>(widget)) {
    box->setCurrentText(text);
    emit box->activated(box->currentIndex());
  } else {
    // As the input method of Korean text does it, which suits digits as well.
    QMetaObject::invokeMethod(widget, "selectAll");
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(widget, &event);
  }
  ExpectText(ShownIn(widget), text);
}

// A double click as the system reports it: a click, and then the second press on what the first one
// has put there.
void ClickRow(QAbstractItemView* rows, const QString& text, bool twice) {
  const auto found = rows->model()->match(rows->model()->index(0, 0), Qt::DisplayRole, text, 1,
                                          Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_FALSE(found.isEmpty()) << "no such row";
  const QPoint centre = rows->visualRect(found[0]).center();
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, centre);
  QApplication::processEvents();
  if (!twice) return;
  QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, centre);
  QTest::mouseRelease(rows->viewport(), Qt::LeftButton, {}, centre);
  QApplication::processEvents();
}

void PressKeys(QWidget* widget, const QString& keys) {
  QApplication::setActiveWindow(widget->window());
  widget->setFocus();
  for (const QString& key : keys.split(' ')) QTest::keyClick(widget, QKeySequence(key)[0].key());
  QApplication::processEvents();
}

void DoStep(QWidget* window, const QString& step) {
  static const QRegularExpression kStep("(?s)^(.*?)(=|##|#|<|\\?|~|!|$)(.*)$");
  const QStringList parts = kStep.match(step).capturedTexts();
  const QString &act = parts[2], &text = parts[3];
  if (step == "Esc") return QTest::keyClick(window, Qt::Key_Escape);
  if (parts[1].isEmpty()) {
    EXPECT_TRUE(TextsIn(window).contains(text)) << FromQt(TextsIn(window).join('|'));
    return;
  }
  QWidget* const widget = WidgetOf(window, parts[1], act.isEmpty());
  ASSERT_NE(widget, nullptr) << "no such button or field";
  if (act.isEmpty()) return QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, 8));
  if (act == "=") return Enter(widget, text);
  if (act == "<") return PressKeys(widget, text);
  if (act == "?") return ExpectText(ShownIn(widget), text);
  if (act == "~") return ExpectText(ShownIn(widget).contains(text) ? text : ShownIn(widget), text);
  if (act == "!") return ExpectText(window->focusWidget() == widget ? "" : "no focus", text);
  ClickRow(qobject_cast<QAbstractItemView*>(widget), text, act == "##");
}

}  // namespace

void User::Do(QWidget* window, const QString& steps) {
  for (const QString& step : steps.split(" | ")) {
    SCOPED_TRACE(FromQt(step));
    QStringList parts = step.split(" > ");
    ASSERT_TRUE(window->isVisible()) << "closed too early";
    for (QString& next : parts.mid(1)) Next(FromQt(next.replace(" & ", " | ")));
    DoStep(window, parts[0]);
  }
}

void User::Next(const std::string& steps) {
  Next([this, steps](QDialog* window) {
    if (!steps.starts_with("c:\\")) return Do(window, ToQt(steps));
    const QString path = ToQt((home_ / "drive_c").string() + steps.substr(2)).replace('\\', '/');
    window->findChild<QLineEdit*>("fileNameEdit")->setText(path);
    QMetaObject::invokeMethod(window, "accept");
  });
}

void User::Poll() {
  // Planned before the steps: the windows that they open have event loops of their own.
  QTimer::singleShot(kPollMilliseconds, &context_, [this] { Poll(); });
  const QPointer<QDialog> window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  const bool isOpen = !window.isNull() && window->isVisible();
  if (!isOpen || !waiting.empty()) idlePolls_ = 0;
  if (isOpen && !waiting.empty()) {
    const auto act = std::move(waiting.front());
    waiting.pop_front();
    act(window);
    if (window.isNull() || Translated("전송") == "전송") return;
    const QStringList korean = TextsIn(window).filter(QRegularExpression("[가-힣]"));
    EXPECT_EQ(korean.size(), koreanTexts) << FromQt(korean.join('|'));
  } else if (isOpen && ++idlePolls_ > kMostIdlePolls) {
    ADD_FAILURE() << "a window without steps: " << FromQt(window->windowTitle());
    window->reject();
  }
}

QStringList TextsIn(const QWidget* window) {
  QStringList texts(window->windowTitle());
  for (const QObject* const object : window->findChildren<QObject*>()) {
    for (const char* const name : {"text", "title", "toolTip", "statusTip", "windowTitle"}) {
      if (!object->inherits("QLineEdit")) texts << object->property(name).toString();
    }
    const auto* const rows = qobject_cast<const QAbstractItemModel*>(object);
    if (rows != nullptr) texts << RowsOf(rows);
    if (!object->property("pixmap").value<QPixmap>().isNull()) texts << "[picture]";
  }
  texts.removeAll("");
  return texts;
}

DesktopTest::DesktopTest(Language language) {
  UseLanguage(language);
  app.InitApplication(language);
  OpenWindow();
  window->NewView();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  Settle();
}

void DesktopTest::OpenWindow(const QString& settingsFile) {
  window = std::make_unique<MainWindow>(&app, &drives, settingsFile);
  ui.SetWindow(window.get());
  window->resize(900, 600);
  window->show();
  QApplication::setActiveWindow(window.get());
}

void DesktopTest::Load(const std::string& name, std::string_view text) {
  window->LoadHostFile(ToQt(home.Put(programs / name, text).string()));
  Settle();
}

void DesktopTest::Press(QKeyCombination key) {
  QApplication::setActiveWindow(window.get());
  QTest::keyClick(window.get(), key.key(), key.keyboardModifiers());
}

void DesktopTest::RunCommand(CommandId id, const std::string& steps) {
  user.Next(steps);
  window->RunCommand(id);
}

QAction* DesktopTest::Entry(const MenuRow& row) {
  QList<QAction*> actions = window->menuBar()->actions();
  for (const char* const text : {row.menu, row.submenu, row.text}) {
    if (*text == '\0') continue;
    actions.removeIf([&](QAction* entry) { return !entry->isVisible() || entry->text() != text; });
    if (actions.isEmpty() || text == row.text) break;
    actions = actions[0]->menu()->actions();
  }
  return actions.value(0);
}

void DesktopTest::Settle() {
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
}

}  // namespace tvx
