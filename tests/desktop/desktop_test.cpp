#include "desktop_test.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMenuBar>
#include <QSlider>
#include <QTimer>

namespace tvx {

namespace {

constexpr int kPollMilliseconds = 5;
constexpr int kMostIdlePolls = 600;

}  // namespace

ModalScript::ModalScript() {
  Plan();
}

ModalScript::~ModalScript() {
  EXPECT_TRUE(Done()) << steps_.size() << " steps without their window";
}

void ModalScript::Plan() {
  QTimer::singleShot(kPollMilliseconds, &context_, [this] { Poll(); });
}

void ModalScript::Poll() {
  // Planned before the step acts: the windows that it opens have event loops of their own.
  Plan();
  QWidget* const window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible()) {
    idlePolls_ = 0;
    return;
  }
  if (!steps_.empty()) {
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    if (step(window)) {
      idlePolls_ = 0;
      return;
    }
    steps_.push_front(step);
  }
  if (++idlePolls_ < kMostIdlePolls) return;
  ADD_FAILURE() << "a window that no step waits for: " << window->metaObject()->className() << " \""
                << FromQt(window->windowTitle()) << "\"";
  idlePolls_ = 0;
  qobject_cast<QDialog*>(window)->reject();
}

void ModalScript::OnFile(const std::filesystem::path& path) {
  On<QFileDialog>([path](QFileDialog* chooser) {
    chooser->findChild<QLineEdit*>("fileNameEdit")->setText(ToQt(path.string()));
    QMetaObject::invokeMethod(chooser, "accept");
  });
}

DesktopTest::DesktopTest(int32_t language) {
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

DesktopTest::~DesktopTest() {
  UseLanguage(kKoreanLabels);
}

void DesktopTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QApplication::setActiveWindow(window.get());
  QTest::keyClick(window.get(), key, modifiers);
}

QAction* ShownAction(const QList<QAction*>& actions, const char* text) {
  for (QAction* const action : actions) {
    if (action->isVisible() && action->text() == ToQt(text)) return action;
  }
  return nullptr;
}

QAction* DesktopTest::Entry(const MenuRow& row) {
  const QAction* menu = ShownAction(window->menuBar()->actions(), row.menu);
  if (menu != nullptr && *row.submenu != '\0') {
    menu = ShownAction(menu->menu()->actions(), row.submenu);
  }
  return menu == nullptr ? nullptr : ShownAction(menu->menu()->actions(), row.text);
}

QList<QMdiSubWindow*> DesktopTest::Children() {
  return window->findChild<QMdiArea*>()->subWindowList();
}

void DesktopTest::Settle() {
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
}

std::filesystem::path DesktopTest::PutProgram(const std::string& name, std::string_view text) {
  return home.Put("drive_c/marlo/ncdata/" + name, text);
}

namespace {

QWidget* BuddyOf(QWidget* window, std::string_view label) {
  for (const QLabel* const candidate : window->findChildren<QLabel*>()) {
    if (candidate->buddy() != nullptr && candidate->text() == ToQt(label)) {
      return candidate->buddy();
    }
  }
  ADD_FAILURE() << "no field " << label;
  return nullptr;
}

}  // namespace

QLineEdit* EditOf(QWidget* window, std::string_view label) {
  return qobject_cast<QLineEdit*>(BuddyOf(window, label));
}

QComboBox* ListOf(QWidget* window, std::string_view label) {
  return qobject_cast<QComboBox*>(BuddyOf(window, label));
}

QListWidget* RowsOf(QWidget* window, std::string_view label) {
  return qobject_cast<QListWidget*>(BuddyOf(window, label));
}

QAbstractButton* ButtonFrom(QWidget* window, std::string_view start) {
  for (QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
    if (button->text().startsWith(ToQt(start))) return button;
  }
  ADD_FAILURE() << "no button " << start;
  return nullptr;
}

QAbstractButton* ButtonOf(QWidget* window, std::string_view text) {
  for (QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
    if (QString(button->text()).remove('&') == ToQt(text)) return button;
  }
  ADD_FAILURE() << "no button " << text;
  return nullptr;
}

std::vector<std::string> Texts(const QListWidget& list) {
  std::vector<std::string> texts;
  for (int i = 0; i < list.count(); ++i) texts.push_back(FromQt(list.item(i)->text()));
  return texts;
}

QPoint CentreOf(QListWidget* list, int row) {
  return list->visualItemRect(list->item(row)).center();
}

void ClickRow(QListWidget* list, int row) {
  ASSERT_LT(row, list->count());
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, CentreOf(list, row));
}

// As the input method of Korean text does it, which suits digits as well.
void Type(QLineEdit* edit, std::string_view text) {
  if (edit == nullptr || edit->isReadOnly()) return;
  edit->selectAll();
  QInputMethodEvent event;
  event.setCommitString(ToQt(text));
  QApplication::sendEvent(edit, &event);
  EXPECT_EQ(FromQt(edit->text()), text);
}

void Type(QWidget* window, std::string_view label, std::string_view text) {
  Type(EditOf(window, label), text);
}

void Click(QWidget* window, std::string_view text) {
  QAbstractButton* const button = ButtonOf(window, text);
  if (button != nullptr) QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, 8));
}

void Choose(QWidget* window, std::string_view label, std::string_view entry) {
  QComboBox* const list = ListOf(window, label);
  if (list == nullptr) return;
  QTest::keyClick(list, Qt::Key_Home);
  for (int i = 0; i < list->count() && list->currentText() != ToQt(entry); ++i) {
    QTest::keyClick(list, Qt::Key_Down);
  }
  EXPECT_EQ(FromQt(list->currentText()), entry);
}

void Do(QWidget* window, const std::vector<Deed>& deeds) {
  for (const Deed& deed : deeds) {
    if (!deed.text) {
      Click(window, deed.on);
    } else if (deed.on.empty()) {
      Type(window->findChild<QLineEdit*>(), *deed.text);
    } else if (qobject_cast<QComboBox*>(BuddyOf(window, deed.on)) != nullptr) {
      Choose(window, deed.on, *deed.text);
    } else {
      Type(window, deed.on, *deed.text);
    }
  }
}

void Drag(QSlider* slider, int position) {
  slider->setSliderDown(true);
  slider->setSliderPosition(position);
  slider->setSliderDown(false);
}

}  // namespace tvx
