// The picture of a view on paper: the printer's dialogs, and the drawing of the screen, pixel for
// pixel the same, enlarged or reduced to the page.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include "platform/user_interface.h"
#include "session/tvx_view.h"
#include "view/path_drawing.h"

namespace tvx {

// Draws the scene as large as the page has room for, centred on it: through an image of the page's
// own resolution, so that a program of millions of moves takes no more room than a small one.
// Nothing is drawn for a view that has no size yet.
void PaintOnPage(const Scene& scene, const QRectF& page, QPainter* painter);

// One printer with its settings for the run of the program.
class Printing {
 public:
  // Both outlive the object; the window is the parent of the dialogs.
  Printing(QWidget* window, UserInterface* ui) : window_(window), ui_(ui) {}

  void SetUp();
  void Print(CTVXView* view);
  void Preview(CTVXView* view);

  // Prints on one page. False, with a message, if the printer cannot be used or a file cannot be
  // written.
  bool PrintTo(QPrinter* printer, CTVXView* view);

 private:
  QPrinter* Printer();
  void NameDocument(const CTVXView& view);

  QWidget* window_;
  UserInterface* ui_;
  std::unique_ptr<QPrinter> printer_;  // made at its first use, which is slow
};

}  // namespace tvx
