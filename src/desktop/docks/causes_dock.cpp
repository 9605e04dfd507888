// Counts only while the dock is shown, after the paint of the window: it walks the whole program.
#include "desktop/docks/causes_dock.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <string>
#include <utility>
#include <vector>

#include "base/format.h"
#include "desktop/display_options.h"
#include "desktop/docks/bar_list.h"
#include "desktop/docks/legend_dock.h"
#include "desktop/language.h"
#include "insight/feed_causes.h"
#include "session/tvx_view.h"
#include "view/path_drawing.h"

namespace tvx {

namespace {

constexpr size_t kPlaces = 100;
constexpr int kLineRole = Qt::UserRole;  // of a place: the line of its costliest move

enum Column { kMinutes, kRule, kLines, kColumns };

// As the command-line tool prints them: in short programs a place costs less than 0.01 min.
QString MinutesText(double minutes) {
  return ToQt(Format("%.3f", minutes));
}

QString TextOfRule(FeedRule rule) {
  QString text = InLanguage(TextOf(rule));
  text[0] = text[0].toUpper();
  return text;
}

bool HasCauses(const CTVXView* view) {
  return view != nullptr && view->causes() != nullptr && view->program.store.blockCount > 0 &&
         view->causes()->Knows(view->program.store.blockCount);
}

}  // namespace

CausesDock::CausesDock(const DockContext& context, QWidget* parent)
    : ViewDock(Translated("감속 원인"), context, parent) {
  setObjectName("causes");
  auto* const body = new QWidget(this);
  auto* const column = new QVBoxLayout(body);
  state_ = new QLabel(Translated("피드 자동조절을 하면 감속 원인이 여기에 나옵니다."), body);
  state_->setWordWrap(true);
  state_->setAlignment(Qt::AlignTop);
  column->addWidget(state_);

  figures_ = new QWidget(body);
  auto* const parts = new QVBoxLayout(figures_);
  parts->setContentsMargins({});
  const auto heading = [&](const char* text) {
    parts->addWidget(new QLabel("<b>" + Translated(text) + "</b>", figures_));
  };
  heading("원인별 시간 (min)");
  parts->addWidget(rules_ = new BarList(figures_));
  heading("피드별 시간 (min)");
  parts->addWidget(bands_ = new BarList(figures_));
  heading("시간이 많이 걸리는 곳");
  places_ = new QTreeWidget(figures_);
  places_->setColumnCount(kColumns);
  places_->setHeaderLabels({"min", Translated("원인"), Translated("줄")});
  places_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  places_->setRootIsDecorated(false);
  places_->setUniformRowHeights(true);
  places_->setMinimumHeight(fontMetrics().height() * 3);  // the window has to fit a small screen
  parts->addWidget(places_, 1);
  column->addWidget(figures_, 1);
  setWidget(body);

  const auto goToPlace = [this](const QTreeWidgetItem* place) {
    if (place == nullptr) return;
    GoToLine(place->data(kMinutes, kLineRole).toULongLong(), Centring::kAlways);
  };
  connect(places_, &QTreeWidget::itemClicked, this, goToPlace);
  connect(places_, &QTreeWidget::currentItemChanged, this, goToPlace);
  afterPaint_.setSingleShot(true);
  connect(&afterPaint_, &QTimer::timeout, this, &CausesDock::Count);
  Listen(Change::kFeeds, [this] { ShowState(); });
}

void CausesDock::ShowState() {
  isStale_ = true;
  state_->setVisible(!HasCauses(view()));
  figures_->setVisible(HasCauses(view()));
  if (isVisible()) afterPaint_.start(0);
}

void CausesDock::showEvent(QShowEvent* event) {
  if (isStale_) afterPaint_.start(0);
  ViewDock::showEvent(event);
}

void CausesDock::Count() {
  CTVXView* const view = this->view();
  if (!isStale_) return;
  isStale_ = false;
  const QSignalBlocker noClicks(places_);
  places_->clear();
  if (!HasCauses(view)) return;
  ShowMinutes(view);
  ShowPlaces(view);
}

void CausesDock::ShowMinutes(CTVXView* view) {
  BlockStore* const store = &view->program.store;
  const int32_t base = view->program.FeedBase;
  const CauseMinutes minutes = CountCauses(store, base, *view->causes());
  const auto row = [](const QString& name, double value, std::optional<QColor> colour = {}) {
    return BarRow{name, value, MinutesText(value), colour};
  };
  std::vector<BarRow> rules;
  for (size_t i = 0; i < kFeedRules; ++i) {
    const auto rule = static_cast<FeedRule>(i);
    if (rule != FeedRule::kArc) rules.push_back(row(TextOfRule(rule), minutes.Of(rule)));
  }
  rules.push_back(row(Translated("그 밖"), minutes.unexplained));
  rules.push_back(row(Translated("최대 피드"), minutes.atHighestFeed));
  rules_->SetRows(std::move(rules));

  const std::vector<double> byBand =
      MinutesByFeed(store, kFeedBands, [base](int32_t feed) { return BandOfFeed(feed, base); });
  std::vector<BarRow> bands;
  for (size_t i = 0; i < kFeedBands; ++i) {
    const Pen pen = kScreenPalette.band[i];
    bands.push_back(
        row(FeedRangeText(i, base), byBand[i], QColor::fromRgb(ScreenPens()[pen].colour)));
  }
  bands_->SetRows(std::move(bands));
}

void CausesDock::ShowPlaces(CTVXView* view) {
  const LineMap& lines = view->program.source.lines;
  QList<QTreeWidgetItem*> rows;
  for (const SlowPlace& place :
       CostliestPlaces(&view->program.store, view->program.FeedBase, *view->causes(), kPlaces)) {
    const uint32_t first = lines.LineOf(place.firstBlock);
    const uint32_t last = lines.LineOf(place.lastBlock);
    QString range = QString::number(first);
    if (last != first) range += " - " + QString::number(last);
    auto* const row =
        new QTreeWidgetItem({MinutesText(place.minutes), TextOfRule(place.rule), range});
    row->setTextAlignment(kMinutes, Qt::AlignRight | Qt::AlignVCenter);
    row->setData(kMinutes, kLineRole, lines.LineOf(place.costliestBlock));
    rows << row;
  }
  places_->addTopLevelItems(rows);
}

}  // namespace tvx
