// The image of a page, and the dialogs of the printer.
#include "desktop/window/printing.h"

#include <QFile>
#include <QImage>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "desktop/language.h"
#include "platform/files/user_files.h"
#include "view/drawing_device.h"
#include "view/raster_device.h"
#include "view/view_transform.h"

namespace tvx {

namespace {

// Of the image that a page gets; 24 MB. A4 has some 250 dots an inch then.
constexpr double kMostPixels = 6e6;

// Passes a drawing on, with all coordinates multiplied by a factor.
class ScaledDevice final : public DrawingDevice {
 public:
  ScaledDevice(double factor, DrawingDevice* device) : factor_(factor), device_(device) {}

  void FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                     Colour colour) override {
    const Pixel topLeft = Scaled({left, top});
    const Pixel bottomRight = Scaled({right, bottom});
    device_->FillRectangle(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y, colour);
  }
  Pen SelectPen(Pen pen) override { return device_->SelectPen(pen); }
  void MoveTo(Pixel point) override { device_->MoveTo(Scaled(point)); }
  void LineTo(Pixel point) override { device_->LineTo(Scaled(point)); }
  void Text(Pixel point, std::string_view text) override { device_->Text(Scaled(point), text); }

 private:
  Pixel Scaled(Pixel point) const {
    return {TruncateToInt(std::round(point.x * factor_)),
            TruncateToInt(std::round(point.y * factor_))};
  }

  double factor_;
  DrawingDevice* device_;
};

// A file that was cut short, by a full disk for example, misses its last line. The toolkit reports
// no error for it.
bool IsCompletePdf(const QString& path) {
  constexpr qint64 kTail = 16;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - kTail))) {
    return false;
  }
  return file.readAll().contains("%%EOF");
}

}  // namespace

void PaintOnPage(const Scene& scene, const QRectF& page, QPainter* painter) {
  const DevicePreparation preparation = PrepareDevice(&scene.view->transform);
  const double width = scene.view->transform.clientWidth;
  const double height = scene.view->transform.clientHeight;
  if (width <= 0 || height <= 0) return;
  const double fit = std::min(page.width() / width, page.height() / height);
  const double factor = std::min(fit, std::sqrt(kMostPixels / (width * height)));
  QImage image(std::max(1, static_cast<int>(width * factor)),
               std::max(1, static_cast<int>(height * factor)), QImage::Format_RGB32);
  if (image.isNull()) return;
  RasterDevice raster({reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(),
                       image.bytesPerLine() / 4},
                      {static_cast<int32_t>(std::floor(preparation.origin.x * factor)),
                       static_cast<int32_t>(std::floor(preparation.origin.y * factor))});
  ScaledDevice device(factor, &raster);
  Paint(scene, &device);

  QRectF target(QPointF(0, 0), QSizeF(width, height) * fit);
  target.moveCenter(page.center());
  painter->drawImage(target, image);
  QFont font = painter->font();
  constexpr double kLetterHeight = 13;  // pixels of the screen
  font.setPixelSize(std::max(1, static_cast<int>(kLetterHeight * fit)));
  painter->setFont(font);
  painter->setPen(QColor::fromRgb(preparation.textColour));
  painter->setClipRect(target);
  for (const RasterDevice::PlacedText& text : raster.texts()) {
    const QPointF corner(text.point.x / factor - preparation.origin.x,
                         text.point.y / factor - preparation.origin.y);
    painter->drawText(target.topLeft() + corner * fit + QPointF(0, painter->fontMetrics().ascent()),
                      ToQt(text.text));
  }
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
  const QString name = ToQt(view.fileName());
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
  const QString file = printer->outputFileName();
  if (!painter.begin(printer)) {
    if (!file.isEmpty()) ShowWritten(StatusKind::kWriteFailed, FromQt(file), ui_);
    ui_->ShowMessage({.text = ui_->Say({"인쇄할 수 없습니다.", "Printing is not possible."})});
    return false;
  }
  PaintOnPage({&view->program, &view->job, &view->view},
              QRectF(QPointF(0, 0), printer->pageRect(QPrinter::DevicePixel).size()), &painter);
  const bool hasEnded = painter.end();
  if (file.isEmpty() || printer->outputFormat() != QPrinter::PdfFormat) return hasEnded;
  const bool isWritten = hasEnded && IsCompletePdf(file);
  ShowWritten(isWritten ? StatusKind::kOk : StatusKind::kWriteFailed, FromQt(file), ui_);
  if (!isWritten)
    ui_->ShowMessage({.text = ui_->Say({"디스크가 가득 찼거나 쓸 수 없습니다.",
                                        "The disk is full or cannot be written."})});
  return isWritten;
}

}  // namespace tvx
