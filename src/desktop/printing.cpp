// A drawing device on a painter, and the dialogs of the printer.
#include "desktop/printing.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <algorithm>

#include "desktop/language.h"
#include "view/drawing_device.h"
#include "view/view_transform.h"

namespace tvx {

namespace {

// Draws through a painter, whose coordinates are the logical ones.
class PainterDevice final : public DrawingDevice {
 public:
  explicit PainterDevice(QPainter* painter) : painter_(painter) { Take(penDefault); }

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override {
    painter_->fillRect(QRect(left, top, right - left, bottom - top), QColor::fromRgb(colour));
  }

  Pen SelectPen(Pen pen) override {
    const Pen before = pen_;
    Take(pen);
    return before;
  }

  void MoveTo(Pixel point) override { position_ = point; }

  void LineTo(Pixel point) override {
    painter_->drawLine(position_.x, position_.y, point.x, point.y);
    position_ = point;
  }

  void Text(Pixel point, std::string_view text) override {
    painter_->setPen(QColor(0, 255, 0));
    painter_->drawText(QPointF(point.x, point.y + painter_->fontMetrics().ascent()), ToQt(text));
    Take(pen_);
  }

 private:
  void Take(Pen pen) {
    pen_ = pen;
    const PenStyle& style = StyleOf(pen);
    QPen line(QColor::fromRgb(style.colour), 1);
    if (style.dashed) line.setDashPattern({kDashPixels, kGapPixels});
    painter_->setPen(line);
  }

  QPainter* painter_;
  Pen pen_ = penDefault;
  Pixel position_;
};

}  // namespace

void PaintOnPage(const Scene& scene, const QRectF& page, QPainter* painter) {
  const DevicePreparation preparation = PrepareDevice(&scene.view->transform);
  const int width = scene.view->transform.clientWidth;
  const int height = scene.view->transform.clientHeight;
  if (width <= 0 || height <= 0) return;
  const double scale = std::min(page.width() / width, page.height() / height);
  painter->save();
  painter->translate(page.center());
  painter->scale(scale, scale);
  painter->translate(-width / 2.0, -height / 2.0);
  painter->setClipRect(0, 0, width, height);
  painter->translate(-preparation.origin.x, -preparation.origin.y);
  QFont font = painter->font();
  font.setPixelSize(13);
  painter->setFont(font);
  PainterDevice device(painter);
  Paint(scene, &device);
  painter->restore();
}

QPrinter* Printing::Printer() {
  if (printer_ == nullptr) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setPageOrientation(QPageLayout::Landscape);
  }
  return printer_.get();
}

void Printing::SetUp() {
  QPageSetupDialog(Printer(), window_).exec();
}

// A file that the last program was printed to is not offered for another one.
void Printing::NameDocument(const CTVXView& view) {
  const QString name = ToQt(view.fileName);
  if (name == Printer()->docName()) return;
  Printer()->setDocName(name);
  Printer()->setOutputFileName({});
}

void Printing::Print(CTVXView* view) {
  NameDocument(*view);
  if (QPrintDialog(Printer(), window_).exec() == QDialog::Accepted) PrintTo(Printer(), view);
}

void Printing::Preview(CTVXView* view) {
  NameDocument(*view);
  QPrintPreviewDialog preview(Printer(), window_);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                   [this, view](QPrinter* printer) { PrintTo(printer, view); });
  preview.exec();
}

bool Printing::PrintTo(QPrinter* printer, CTVXView* view) {
  QPainter painter;
  if (!painter.begin(printer)) {
    ui_->ShowMessage({.text = "인쇄할 수 없습니다."});
    return false;
  }
  PaintOnPage({&view->program, &view->job, &view->view},
              QRectF(QPointF(0, 0), printer->pageRect(QPrinter::DevicePixel).size()), &painter);
  return painter.end();
}

}  // namespace tvx
