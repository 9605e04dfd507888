// The controls that all faces use, in the language of the user.
#include "desktop/faces/face.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QStyle>
#include <utility>

#include "desktop/language.h"

namespace tvx {

Face::Face(std::string_view title, QWidget* parent) : QDialog(parent) {
  setWindowTitle(Translated(title));
}

void Face::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  if (focusWidget() == nullptr) focusNextChild();
  if (auto* const edit = qobject_cast<QLineEdit*>(focusWidget())) edit->selectAll();
}

void Face::End(Closing closing) {
  if (closing == Closing::kAccepted) done(QDialog::Accepted);
  if (closing == Closing::kCancelled) done(QDialog::Rejected);
}

QLineEdit* Face::AddLabelledEdit(QFormLayout* form, const QString& label, std::string_view text,
                                 std::function<void(const std::string& text)> edited) {
  auto* const edit = new QLineEdit(ToQt(text), this);
  form->addRow(label, edit);
  if (edited) {
    connect(edit, &QLineEdit::textEdited, this,
            [edited = std::move(edited)](const QString& typed) { edited(FromQt(typed)); });
  }
  return edit;
}

QCheckBox* Face::AddLabelledCheck(QLayout* layout, const QString& label,
                                  std::function<bool()> isTicked, std::function<void()> toggle) {
  auto* const check = new QCheckBox(label, this);
  check->setChecked(isTicked());
  layout->addWidget(check);
  connect(check, &QCheckBox::clicked, this,
          [check, isTicked = std::move(isTicked), toggle = std::move(toggle)] {
            toggle();
            check->setChecked(isTicked());
          });
  return check;
}

QLineEdit* Face::AddEdit(QFormLayout* form, std::string_view label, std::string_view text,
                         std::function<void(const std::string& text)> edited) {
  return AddLabelledEdit(form, Translated(label), text, std::move(edited));
}

QLineEdit* Face::AddEdit(QFormLayout* form, const Message& label, std::string_view text,
                         std::function<void(const std::string& text)> edited) {
  return AddLabelledEdit(form, InLanguage(label), text, std::move(edited));
}

QCheckBox* Face::AddCheck(QLayout* layout, std::string_view label, std::function<bool()> isTicked,
                          std::function<void()> toggle) {
  return AddLabelledCheck(layout, Translated(label), std::move(isTicked), std::move(toggle));
}

QCheckBox* Face::AddCheck(QLayout* layout, const Message& label, std::function<bool()> isTicked,
                          std::function<void()> toggle) {
  return AddLabelledCheck(layout, InLanguage(label), std::move(isTicked), std::move(toggle));
}

QPushButton* Face::AddButton(QLayout* layout, std::string_view text,
                             std::function<void()> clicked) {
  return AddLabelledButton(layout, Translated(text), std::move(clicked));
}

QPushButton* Face::AddButton(QLayout* layout, const Message& text, std::function<void()> clicked) {
  return AddLabelledButton(layout, InLanguage(text), std::move(clicked));
}

QPushButton* Face::AddLabelledButton(QLayout* layout, const QString& text,
                                     std::function<void()> clicked) {
  auto* const button = new QPushButton(text, this);
  button->setAutoDefault(false);
  layout->addWidget(button);
  connect(button, &QPushButton::clicked, this, std::move(clicked));
  return button;
}

QDialogButtonBox* Face::AddClosingButtons(QLayout* layout, std::string_view accept,
                                          std::function<void()> accepted, std::string_view cancel,
                                          std::function<void()> cancelled) {
  auto* const buttons = new QDialogButtonBox(this);
  buttons->addButton(Translated(accept), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(Translated(cancel), QDialogButtonBox::RejectRole)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, std::move(accepted));
  connect(buttons, &QDialogButtonBox::rejected, this, std::move(cancelled));
  layout->addWidget(buttons);
  return buttons;
}

void ShowText(QLineEdit* edit, std::string_view text) {
  if (edit->text() != ToQt(text)) edit->setText(ToQt(text));
}

void ShowCaption(QPushButton* button, QString text) {
  button->setText(text.replace('&', "&&").replace("\r\n", "\n"));
}

void ShowFileCaption(QPushButton* button, const QString& text) {
  constexpr int kWidth = 320;  // pixels
  const QString shown = button->fontMetrics().elidedText(text, Qt::ElideMiddle, kWidth);
  ShowCaption(button, shown);
  button->setToolTip(shown == text ? QString() : text.toHtmlEscaped());
}

void ShowAsBigButton(QPushButton* button) {
  button->setIcon(button->style()->standardIcon(QStyle::SP_FileDialogDetailedView));
  button->setStyleSheet(
      "QPushButton { text-align: left; padding: 6px; border: 1px solid palette(mid);"
      " border-bottom: 3px solid palette(mid); border-radius: 4px; background: palette(button); }"
      "QPushButton:hover { background: palette(light); }"
      "QPushButton:focus { border-color: palette(highlight); }"
      "QPushButton:pressed { background: palette(mid); }");
}

void NameButtons(QMessageBox* box) {
  constexpr std::pair<QMessageBox::StandardButton, const char*> kNames[] = {
      {QMessageBox::Ok, "확인"},
      {QMessageBox::Cancel, "취소"},
      {QMessageBox::Yes, "예(&Y)"},
      {QMessageBox::No, "아니오(&N)"}};
  for (const auto& [button, name] : kNames) {
    if (box->button(button) != nullptr) box->button(button)->setText(Translated(name));
  }
}

void ResizeOnScreen(QWidget* window, QSize wanted) {
  constexpr QSize kFrame(16, 48);  // approximately the frame of the window manager
  window->resize(wanted.boundedTo(window->screen()->availableSize() - kFrame));
}

}  // namespace tvx
