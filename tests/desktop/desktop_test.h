// A main window with a first view, on a home folder of its own, and a user who works its dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QMdiSubWindow>
#include <QTest>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/language.h"
#include "desktop/window/main_window.h"
#include "platform/files/files.h"
#include "session/application.h"
#include "support/temp_dir.h"

namespace tvx {

// A user of windows, who follows steps separated by " | ":
//   BUTTON       clicks the button or box of that text, else the first whose text begins so
//   FIELD=TEXT   types into an edit, or chooses from a list
//   LIST#ROW     clicks the row of that text, ##ROW double-clicks it
//   FIELD<Up X   presses keys
//   FIELD?TEXT   expects what is shown: the text of an edit (with " (fixed)" if it is read-only) or
//                of a button, the chosen entry, the rows of a list joined by ", "
//   FIELD~TEXT   expects that this is a part of it
//   BOX?on       expects a box that is ticked, ?off one that is not
//   FIELD!       expects the focus
//   ?TEXT        expects a title, label, row or other text in the window
//   Esc          presses Escape
// FIELD and LIST are labels or their beginnings; a number means that edit, "list", "tree" and "box"
// the first of them. " > " is followed by the steps in the window that opens then, separated by " &
// "; in a file chooser by the path to type, on the drive c:.
//
// Steps for modal windows wait until a window opens. A window without steps, and steps without
// their window, are failures; so is a Korean text in a window of the English program.
class User {
 public:
  // The home folder has the drive.
  explicit User(std::filesystem::path home) : home_(std::move(home)) { Poll(); }
  ~User() { EXPECT_EQ(waiting.size(), 0U) << "windows did not open"; }

  // Follows steps in a window that is open.
  void Do(QWidget* window, const QString& steps);
  // The next modal window: its steps, or what else to do in it. It may be left open for the next.
  void Next(const std::string& steps);
  void Next(std::function<void(QDialog*)> act) { waiting.push_back(std::move(act)); }

  std::deque<std::function<void(QDialog*)>> waiting;
  int koreanTexts = 0;  // of the user's own that an English window shows

 private:
  void Poll();

  std::filesystem::path home_;
  int idlePolls_ = 0;
  QObject context_;  // ends the polling
};

// All texts that can be read in a window, but for those in edits; "[picture]" for a picture.
QStringList TextsIn(const QWidget* window);

class DesktopTest : public testing::Test {
 protected:
  explicit DesktopTest(Language language = Language::kKorean);

  // A new window without a view in place of the first.
  void OpenWindow(const QString& settingsFile = {});
  // Writes a file into the folder of NC programs and loads it as the command line does.
  void Load(const std::string& name, std::string_view text);
  CTVXView& View() { return window->ActiveView()->view(); }
  QList<QMdiSubWindow*> Children() { return window->findChild<QMdiArea*>()->subWindowList(); }
  // Presses a key in the main window, after bringing it to the front.
  void Press(QKeyCombination key);
  // Runs a command with a user's steps in the window that it opens.
  void RunCommand(CommandId id, const std::string& steps);
  // The entry of a menu row among the menus that are shown, or null.
  QAction* Entry(const MenuRow& row);
  // Lets the windows paint and handle what is pending.
  static void Settle();

  TempDir home;
  const std::filesystem::path programs = home / "drive_c/marlo/ncdata";
  Drives drives{home.Path()};
  std::unique_ptr<Files> files = MakeHostFiles(&drives);
  QtUserInterface ui{&drives, files.get()};
  CTVXApp app{files.get(), &ui};
  std::unique_ptr<MainWindow> window;
  User user{home.Path()};
};

}  // namespace tvx
