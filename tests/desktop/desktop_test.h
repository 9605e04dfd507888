// A main window with a first view, on a home folder of its own, and a user who works its dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QPointer>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "desktop/language.h"
#include "desktop/main_window.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "shell/application.h"
#include "support/temp_dir.h"

class QAbstractButton;
class QComboBox;
class QLineEdit;
class QMdiSubWindow;
class QListWidget;
class QSlider;

namespace tvx {

// What a user does in a window: types into the edit behind a label, chooses from the list behind
// it, or, without a text, clicks a button. The label "" means the first edit.
struct Deed {
  std::string on;
  std::optional<std::string> text = std::nullopt;
};
void Do(QWidget* window, const std::vector<Deed>& deeds);

// A user behind modal windows: each step waits for a window of its class, works on it and leaves it
// closed, and steps for windows that open meanwhile follow it. A window that no step waits for, and
// a step whose window never comes, are test failures.
class ModalScript {
 public:
  ModalScript();
  ~ModalScript();

  template <typename Window>
  void On(std::function<void(Window*)> act) {
    steps_.push_back([act = std::move(act)](QWidget* window) {
      auto* const expected = dynamic_cast<Window*>(window);
      if (expected == nullptr) return false;
      act(expected);
      return true;
    });
  }

  template <typename Window>
  void Does(std::vector<Deed> deeds) {
    On<Window>([deeds = std::move(deeds)](Window* window) { Do(window, deeds); });
  }
  template <typename Window>
  void Rejects() {
    On<Window>([](Window* window) { window->reject(); });
  }

  // A file chooser: this host path is typed and accepted.
  void OnFile(const std::filesystem::path& path);

  bool Done() const { return steps_.empty(); }

 private:
  void Poll();
  void Plan();

  std::deque<std::function<bool(QWidget*)>> steps_;
  int idlePolls_ = 0;
  QObject context_;  // ends the polling
};

class DesktopTest : public testing::Test {
 protected:
  explicit DesktopTest(int32_t language = kKoreanLabels);
  ~DesktopTest() override;

  // A window that is not the first, without a view.
  void OpenWindow(const QString& settingsFile = {});
  // Writes a file into the folder of NC programs. Returns its host path.
  std::filesystem::path PutProgram(const std::string& name, std::string_view text);
  CTVXView& View() { return window->ActiveView()->view(); }
  // A key in the main window, which is brought to the front: after a dialog nobody else does it
  // here.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  // The entry of a menu row among the menus that are shown, or null.
  QAction* Entry(const MenuRow& row);
  QList<QMdiSubWindow*> Children();
  // Lets the windows paint and handle what is pending.
  static void Settle();

  TempDir home;
  Drives drives{home.Path()};
  std::unique_ptr<Files> files = MakeHostFiles(&drives);
  QtUserInterface ui{&drives, files.get()};
  CTVXApp app{files.get(), &ui};
  std::unique_ptr<MainWindow> window;
  ModalScript user;
};

// The edit of a form behind its label, and a button or check box by its text. A window without one
// fails the test and gives null, with which the operations below do nothing.
QLineEdit* EditOf(QWidget* window, std::string_view label);
QAbstractButton* ButtonOf(QWidget* window, std::string_view text);
QComboBox* ListOf(QWidget* window, std::string_view label);
QListWidget* RowsOf(QWidget* window, std::string_view label);
// The button whose text begins so, or null.
QAbstractButton* ButtonFrom(QWidget* window, std::string_view start);

// The action of this text that is shown, or null.
QAction* ShownAction(const QList<QAction*>& actions, const char* text);

// The texts of a list's rows.
std::vector<std::string> Texts(const QListWidget& list);
QPoint CentreOf(QListWidget* list, int row);

// What a user does with them.
void ClickRow(QListWidget* list, int row);
void Type(QLineEdit* edit, std::string_view text);
void Type(QWidget* window, std::string_view label, std::string_view text);
void Click(QWidget* window, std::string_view text);
void Choose(QWidget* window, std::string_view label, std::string_view entry);
void Drag(QSlider* slider, int position);

}  // namespace tvx
