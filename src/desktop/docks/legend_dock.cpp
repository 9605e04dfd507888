// Shows the feed bands with their pens, and the figures of the program in the store.
#include "desktop/docks/legend_dock.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "base/format.h"
#include "desktop/display_options.h"
#include "desktop/docks/check_dock.h"
#include "desktop/docks/machine_rows.h"
#include "desktop/language.h"
#include "desktop/time_text.h"
#include "model/walks.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

// In pixels; narrow, since the legend shares a small screen with the docks below it.
constexpr int kRowSpacing = 2;

// A line of the pen on black, as in the picture, so that white is visible on a light desktop.
class Swatch : public QWidget {
 public:
  Swatch(Pen pen, QWidget* parent) : QWidget(parent), pen_(pen) { setFixedSize(44, 16); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const PenStyle& style = ScreenPens()[pen_];
    painter.setPen(
        QPen(QColor::fromRgb(style.colour), 3, style.dashed ? Qt::DashLine : Qt::SolidLine));
    painter.drawLine(QPointF(4, height() / 2.0), QPointF(width() - 4, height() / 2.0));
  }

 private:
  Pen pen_;
};

QString ExtentText(const Vec3& low, const Vec3& high) {
  if (low.x > high.x) return "-";
  return ToQt(Format("X %.2f ~ %.2f\nY %.2f ~ %.2f\nZ %.2f ~ %.2f", low.x, high.x, low.y, high.y,
                     low.z, high.z));
}

}  // namespace

QString FeedRangeText(size_t i, int32_t FeedBase) {
  if (FeedBase <= 0) return "-";
  const FeedRange feeds = FeedsOfBand(i, FeedBase);
  if (i == 0) return QString("%1 -").arg(feeds.first);
  return feeds.first > feeds.last ? "-" : QString("%1 - %2").arg(feeds.first).arg(feeds.last);
}

LegendDock::LegendDock(const DockContext& context, QWidget* parent)
    : ViewDock(Translated("범례"), context, parent) {
  setObjectName("legend");
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
  auto* const body = new QWidget(this);
  auto* const column = new QVBoxLayout(body);

  auto* const colours = new QGridLayout;
  colours->setColumnStretch(1, 1);
  colours->setVerticalSpacing(kRowSpacing);
  colours->addWidget(new QLabel(Translated("피드 (mm/min)"), body), 0, 0, 1, 2);
  for (int i = 0; i < kFeedBands; ++i) {
    ranges_[static_cast<size_t>(i)] = new QLabel("-", body);
    colours->addWidget(new Swatch(kScreenPalette.band[static_cast<size_t>(i)], body), i + 1, 0);
    colours->addWidget(ranges_[static_cast<size_t>(i)], i + 1, 1);
  }
  colours->addWidget(new Swatch(penRapid, body), kFeedBands + 1, 0);
  colours->addWidget(new QLabel(Translated("급속이송"), body), kFeedBands + 1, 1);
  column->addLayout(colours);

  auto* const figures = new QFormLayout;
  figures->setVerticalSpacing(kRowSpacing);
  const auto figure = [&](const char* label) {
    auto* const value = new QLabel("-", body);
    MakeSelectable(value);
    figures->addRow(Translated(label), value);
    return value;
  };
  base_ = figure("기준피드");
  blocks_ = figure("블록");
  extents_ = figure("범위 (mm)");
  cutTime_ = figure("절삭시간");
  totalTime_ = figure("소요시간");
  timeBefore_ = figure("조정 전");
  saved_ = figure("절약");
  new MachineRows(context, figures, body);
  check_ = figure("검사");
  column->addLayout(figures);
  column->addStretch(1);
  // With room for the warning, so that an adjustment does not change the size of the picture.
  saved_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  saved_->setMinimumWidth(
      fontMetrics().horizontalAdvance(Translated("조정 후의 시간이 더 깁니다.")));
  // Wide enough for any figures, so that a load does not change the width of the picture.
  body->setMinimumWidth(
      fontMetrics().horizontalAdvance(Translated("범위 (mm)") + "  X -10000.00 ~ 10000.00  ") + 24);
  setWidget(body);
  Listen(
      Change::kFeeds, [this] { ShowColours(); }, Timing::kAtOnce);
  Listen(Change::kFeeds | Change::kOptions, [this] { ShowFigures(); });
  Listen(Change::kCheck, [this] { ShowCheck(); });
}

// As they are drawn now.
void LegendDock::ShowColours() {
  const int32_t base = view() == nullptr ? 0 : view()->program.FeedBase;
  for (size_t i = 0; i < ranges_.size(); ++i) ranges_[i]->setText(FeedRangeText(i, base));
  base_->setText(base > 0 ? ToQt(Format("%d", base)) : "-");
}

void LegendDock::ShowFigures() {
  CTVXView* const view = this->view();
  const bool empty = view == nullptr || view->program.store.blockCount == 0;
  for (QLabel* const label : {blocks_, extents_, cutTime_, totalTime_, timeBefore_, saved_})
    label->setText("-");
  if (empty) return;

  BlockStore* const store = &view->program.store;
  const MotionBlock kept = store->CurrentBlock;
  Vec3 low, high;
  PathExtents(store, &low, &high);
  ProgramWork work = view->Work();
  work.progress = NoProgress();  // figures are shown even if other work is being stopped
  const ProgramResult result = *Evaluate(work, {});
  store->CurrentBlock = kept;  // the next command finds the register as it was
  blocks_->setText(ToQt(Format("%u", store->blockCount)));
  extents_->setText(ExtentText(low, high));
  cutTime_->setText(ToQt(Format("%.1f min", result.entry.cutMinutes)));
  totalTime_->setText(MinutesText(result.entry.totalMinutes));
  const auto before = MinutesBefore(result);
  if (!before) return;
  timeBefore_->setText(MinutesText(*before));
  saved_->setText(SavedText(*before, result.entry.totalMinutes));
}

void LegendDock::ShowCheck() {
  const auto check = view() == nullptr ? nullptr : view()->checks().Result();
  check_->setText(check != nullptr ? CountsText(*check) : "-");
}

}  // namespace tvx
