// The interface to the user: dialogs, messages, file choosers, status line.
#pragma once

#include <string>

#include "base/message.h"
#include "platform/progress.h"

namespace tvx {

// The logic of a dialog: a plain class with the dialog's fields and operations. The front end finds
// the face by the dialog's own class.
class Dialog {
 public:
  virtual ~Dialog() = default;
};

// How a button that may close a dialog ends. The front end keeps the face open or closes it
// accordingly; RunModal then tells the caller whether it was accepted.
enum class Closing { kStaysOpen, kAccepted, kCancelled };

enum class MessageIcon { kNone, kInformation, kQuestion, kExclamation, kStop };
enum class MessageButtons { kOk, kOkCancel, kYesNo };

struct MessageBox {
  std::string text = {};
  std::string path = {};  // the file it is about, shown above the text; empty for none
  std::string caption = "Error message";
  MessageIcon icon = MessageIcon::kInformation;
  MessageButtons buttons = MessageButtons::kOk;
};

struct FileQuestion {
  bool save = false;                  // the save form: a name that does not exist can be typed
  bool mustExist = false;             // the save form, but only for a file that exists
  bool confirmsOverwrite = false;     // the user is asked before an existing file is taken
  std::string defaultExtension = {};  // without a dot; empty for none
  std::string fileName = {};     // preset; may hold a directory to start in, and a mask ("*.afa")
  std::string filter = {};       // "Nc file (*.nc)|*.nc|...||"; empty for none
  std::string directory = {};    // drive path to start in; empty for the current directory
  std::string title = {};        // of the window; empty for the chooser's own words of the form
  std::string acceptLabel = {};  // of the accepting button; empty as above
  bool opens = false;            // shows itself as the open form all the same
};

// How the program reaches its user. The desktop shows windows, the command-line tool prints
// messages and refuses dialogs, and the tests play prepared answers.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  // The language of the texts that it shows.
  virtual Language language() const { return Language::kKorean; }

  // A message in it, for the text of a MessageBox and of ShowStatus.
  std::string Say(const Message& message, std::initializer_list<NamedValue> values = {}) const {
    return tvx::Say(message, language(), values);
  }

  // Shows a message and waits. True for OK and Yes.
  virtual bool ShowMessage(const MessageBox& message) = 0;

  // Shows the face of a dialog until the user closes it. True if it was accepted. The dialog's
  // fields and operations are used meanwhile; what they changed stays in either case.
  virtual bool RunModal(Dialog* dialog) = 0;

  // Asks for one file. Returns true and sets *path, a drive path, on acceptance; returns false and
  // leaves *path alone when the user cancels.
  virtual bool ChooseFile(const FileQuestion& question, std::string* path) = 0;

  // Shows a text in the status line until the next one, after the path of the file it is about.
  virtual void ShowStatus(const std::string& text, const std::string& path = {}) = 0;

  // Shows long work and lets the user stop it. The same object at each call.
  virtual Progress* LongWork() { return NoProgress(); }

  // Offers beside the text of the status line to open the file, a drive path, in the program that
  // the system has for it. The offer ends with the next text.
  virtual void OfferToOpen(const std::string& /*path*/) {}
};

}  // namespace tvx
