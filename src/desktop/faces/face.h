// The common parts of the dialog faces.
#pragma once

#include <QDialog>
#include <QFormLayout>
#include <functional>
#include <string>
#include <string_view>

#include "base/message.h"
#include "platform/user_interface.h"

class QCheckBox;
class QDialogButtonBox;
class QLineEdit;
class QMessageBox;
class QPushButton;

namespace tvx {

class Face : public QDialog {
 public:
  Face(std::string_view title, QWidget* parent);

 protected:
  // The text of the first field is selected, so that typing replaces it.
  void showEvent(QShowEvent* event) override;

  // Ends the dialog, or not, as an operation of its logic says.
  void End(Closing closing);

  // An edit with a label. `edited` is called with the text after each change by the user, not after
  // ShowText.
  QLineEdit* AddEdit(QFormLayout* form, std::string_view label, std::string_view text,
                     std::function<void(const std::string& text)> edited = {});

  QLineEdit* AddEdit(QFormLayout* form, const Message& label, std::string_view text,
                     std::function<void(const std::string& text)> edited = {});

  // A check box that shows a state of the logic. A click calls `toggle` and then shows isTicked(),
  // which may be unchanged.
  QCheckBox* AddCheck(QLayout* layout, std::string_view label, std::function<bool()> isTicked,
                      std::function<void()> toggle);

  QCheckBox* AddCheck(QLayout* layout, const Message& label, std::function<bool()> isTicked,
                      std::function<void()> toggle);

  QPushButton* AddButton(QLayout* layout, std::string_view text, std::function<void()> clicked);
  QPushButton* AddButton(QLayout* layout, const Message& text, std::function<void()> clicked);

  // The closing buttons at the bottom of the dialog. The accepting one is the default.
  QDialogButtonBox* AddClosingButtons(QLayout* layout, std::string_view accept,
                                      std::function<void()> accepted, std::string_view cancel,
                                      std::function<void()> cancelled);

 private:
  QLineEdit* AddLabelledEdit(QFormLayout* form, const QString& label, std::string_view text,
                             std::function<void(const std::string& text)> edited);
  QCheckBox* AddLabelledCheck(QLayout* layout, const QString& label, std::function<bool()> isTicked,
                              std::function<void()> toggle);
  QPushButton* AddLabelledButton(QLayout* layout, const QString& text,
                                 std::function<void()> clicked);
};

// Shows a text that differs from what the edit holds, without moving the cursor otherwise.
void ShowText(QLineEdit* edit, std::string_view text);

// Shows a text on a button that can contain a name of the user's, such as a path. An ampersand is
// shown as it is; Qt would use it as the mark of an access key.
void ShowCaption(QPushButton* button, QString text);

// The same for a text with a file name. A long text is shortened in the middle, and a tool tip
// shows all of it.
void ShowFileCaption(QPushButton* button, const QString& text);

// Gives a button of several lines an edge, a colour of its own and an icon: it would look like a
// text otherwise.
void ShowAsBigButton(QPushButton* button);

// Names the buttons of a message in the language of its text, also where the toolkit has no texts
// in that language.
void NameButtons(QMessageBox* box);

// Resizes a window, at most to the size of the screen.
void ResizeOnScreen(QWidget* window, QSize wanted);

}  // namespace tvx
