// The buttons of the pad in a column, shown at the mouse.
#include "desktop/window/command_pad_face.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/language.h"
#include "desktop/window/main_window.h"

namespace tvx {

namespace {

constexpr int kButtonWidth = 190;  // pixels; room for the title above

// The commands that the buttons lead to; a button that is not here needs none.
constexpr struct {
  CommandId button;
  CommandId command;
} kCommands[] = {{CommandId::kPadJobList, CommandId::kRunJobList},
                 {CommandId::kResultList, CommandId::kResultList}};

bool IsButtonReady(const MainWindow* window, CommandId button) {
  for (const auto& row : kCommands) {
    if (row.button == button) return window != nullptr && window->IsReady(row.command);
  }
  return true;
}

}  // namespace

CommandPadFace::CommandPadFace(CCommandPadDlg* pad, QWidget* parent) : QDialog(parent) {
  auto* const window = qobject_cast<MainWindow*>(parent);
  setWindowTitle("TVX  Dialog");
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  for (const CCommandPadDlg::Button& button : CCommandPadDlg::Buttons()) {
    auto* const face = new QPushButton(Translated(button.text), this);
    face->setMinimumWidth(kButtonWidth);
    face->setAutoDefault(false);
    face->setEnabled(IsButtonReady(window, button.id));
    column->addWidget(face);
    connect(face, &QPushButton::clicked, this, [this, pad, window, &button] {
      if (pad->Press(button)) {
        accept();
      } else if (window != nullptr) {
        window->RunCommand(button.id);
      }
    });
  }
  // At the mouse, and completely on its screen.
  const QPoint mouse = QCursor::pos();
  const QScreen* const screen = QGuiApplication::screenAt(mouse);
  if (screen == nullptr) return;
  const QRect room = screen->availableGeometry();
  const QSize size = sizeHint();
  move(std::clamp(mouse.x(), room.left(), std::max(room.left(), room.right() - size.width())),
       std::clamp(mouse.y(), room.top(), std::max(room.top(), room.bottom() - size.height())));
}

}  // namespace tvx
