// The watched file is compared by its stamp: an editor may write a file more than once, or put
// another one in its place.
#include "desktop/window/reload.h"

#include <QSet>
#include <QStatusBar>
#include <QToolButton>
#include <memory>

#include "base/path_text.h"
#include "desktop/language.h"
#include "desktop/window/main_window.h"
#include "model/loader.h"
#include "session/view_operations.h"

namespace tvx {

namespace {

constexpr char kReloadKey[] = "Ctrl+R";
constexpr char kFormats[] = "formats";

bool HasChanged(const CTVXView& view) {
  const ProgramSource& source = view.program.source;
  if (source.path.empty()) return false;
  const Result<std::unique_ptr<InputFile>> file = view.app->files->OpenForReading(source.path);
  return file.ok() && file.value->Stamp() != source.stamp;
}

bool IsOfOtherFormat(const CTVXView& view) {
  const auto check = view.checks().Result();
  return check != nullptr && check->Of(RemarkId::kOtherFormat).count > 0;
}

}  // namespace

Reload::Reload(MainWindow* window, const Drives* drives, const QString& settingsFile)
    : QObject(window),
      window_(window),
      drives_(drives),
      settingsFile_(settingsFile),
      reload_(AddButton("다시 불러오기 (Ctrl+R)", &Reload::Run)),
      otherFormat_(AddButton("다른 형식으로 읽기", &Reload::ReadInOtherFormat)) {
  reload_->setShortcut(QKeySequence(kReloadKey));
  if (!settingsFile_.isEmpty()) {
    QSettings settings(settingsFile_, QSettings::IniFormat);
    settings.beginGroup(kFormats);
    for (const QString& ending : settings.childKeys()) {
      window_->app()->FormatOfEnding[FromQt(ending)] = settings.value(ending).toInt();
    }
  }
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &Reload::ShowOffers);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &Reload::ShowOffers);
}

QToolButton* Reload::AddButton(const char* text, void (Reload::*press)()) {
  auto* const button = new QToolButton(window_->statusBar());
  button->setText(Translated(text));
  button->setFocusPolicy(Qt::NoFocus);
  connect(button, &QToolButton::clicked, this, press);
  window_->statusBar()->addPermanentWidget(button);
  // The picture does not change its size when an offer comes.
  constexpr int kMargin = 4;
  window_->statusBar()->setMinimumHeight(button->sizeHint().height() + kMargin);
  button->hide();
  return button;
}

void Reload::ShowProgram(ViewWidget* active) {
  active_ = active;
  QStringList wanted;
  if (active != nullptr && !active->view().program.source.path.empty()) {
    const std::string& path = active->view().program.source.path;
    for (const std::string& name : {path, PathBeforeName(path, kBackslash)}) {
      if (const auto host = drives_->ToHost(name)) wanted << ToQt(host->string());
    }
  }
  const QStringList watched = watcher_.files() + watcher_.directories();
  if (QSet<QString>(watched.begin(), watched.end()) !=
      QSet<QString>(wanted.begin(), wanted.end())) {
    if (!watched.isEmpty()) watcher_.removePaths(watched);
    if (!wanted.isEmpty()) watcher_.addPaths(wanted);
  }
  ShowOffers();
}

void Reload::ShowOffers() {
  // The program may be there in part; ShowProgram follows the work.
  if (window_->app()->ui->LongWork()->IsUnderWay()) return;
  const bool wasOffered = !reload_->isHidden();
  const bool hasChanged = active_ != nullptr && HasChanged(active_->view());
  reload_->setVisible(hasChanged);
  otherFormat_->setVisible(active_ != nullptr && IsOfOtherFormat(active_->view()));
  if (hasChanged && !wasOffered) {
    window_->ShowStatusText(Translated("화일이 디스크에서 바뀌었습니다."));
  }
}

void Reload::Run() {
  if (active_ == nullptr || active_->view().program.source.path.empty()) return;
  CTVXView& view = active_->view();
  window_->ShowPathInStatusBar();
  static_cast<void>(LoadProgram(&view, std::string(view.program.source.path)));  // shows a failure
}

void Reload::ReadInOtherFormat() {
  if (active_ == nullptr) return;
  CTVXView& view = active_->view();
  const std::string ending = EndingOfPath(view.program.source.path, kAnySlash);
  const int32_t type = OtherFormat(view.job.InputFileType);
  view.job.InputFileType = type;
  Run();
  if (ending.empty() ||
      !view.app->ui->ShowMessage(
          {.text = view.app->ui->Say({"이 확장자의 화일을 항상 이 형식으로 읽겠습니까?",
                                      "Read files with this ending in this format from now on?"}),
           .path = "." + ending,
           .caption = view.app->ui->Say({"불러오기", "Load"}),
           .icon = MessageIcon::kQuestion,
           .buttons = MessageButtons::kYesNo})) {
    return;
  }
  view.app->FormatOfEnding[ending] = type;
  if (settingsFile_.isEmpty()) return;
  QSettings settings(settingsFile_, QSettings::IniFormat);
  settings.setValue(QString(kFormats) + "/" + ToQt(ending), type);
}

}  // namespace tvx
