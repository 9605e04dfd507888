// What the faces of the dialogs share.
#pragma once

#include <QDialog>
#include <QFormLayout>
#include <functional>
#include <string>
#include <string_view>

#include "platform/user_interface.h"

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;
class QPushButton;

namespace tvx {

class Face : public QDialog {
 public:
  Face(std::string_view title, QWidget* parent);

 protected:
  // Ends the dialog, or not, as an operation of its logic says.
  void End(Closing closing);

  // An edit with a label. `edited` is told of each change that the user makes, as typed; texts that
  // the face sets itself are not reported.
  QLineEdit* AddEdit(QFormLayout* form, std::string_view label, std::string_view text,
                     std::function<void(const std::string& text)> edited = {});

  // A check box that shows a state of the logic: a click calls `toggle` and then shows what
  // `isTicked` says, which need not be the other state.
  QCheckBox* AddCheck(QLayout* layout, std::string_view label, std::function<bool()> isTicked,
                      std::function<void()> toggle);

  QPushButton* AddButton(QLayout* layout, std::string_view text, std::function<void()> clicked);

  // The closing buttons at the foot of the dialog. The accepting one is the default.
  QDialogButtonBox* AddClosingButtons(QLayout* layout, std::string_view accept,
                                      std::function<void()> accepted, std::string_view cancel,
                                      std::function<void()> cancelled);
};

// Shows a text that differs from what the edit holds, without moving the cursor otherwise.
void ShowText(QLineEdit* edit, std::string_view text);

// Shows a text that holds what the user has named, such as a path, on a button. An ampersand in it
// stays one, where Qt would take it for the mark of a key.
void ShowCaption(QPushButton* button, QString text);

// The same for the name of a file, which may be long: its middle gives way, and a tool tip shows it
// whole.
void ShowFileCaption(QPushButton* button, const QString& text);

// Gives a window a size, or as much of it as the screen has room for.
void ResizeOnScreen(QWidget* window, QSize wanted);

}  // namespace tvx
