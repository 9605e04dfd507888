// Keeps the machine of the window, and computes its time after the paint of the window.
#include "desktop/docks/machine_rows.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSettings>
#include <QToolButton>
#include <utility>

#include "base/format.h"
#include "base/path_text.h"
#include "desktop/elided_label.h"
#include "desktop/language.h"
#include "insight/machine_time.h"
#include "session/tvx_view.h"

namespace tvx {

namespace {

constexpr char kKey[] = "machineFile";
constexpr char kNone[] = "-";

// A tool tip is plain text: a name in it may look like a tag.
void SetPlainToolTip(QWidget* widget, const QString& text) {
  widget->setToolTip(text.isEmpty() ? text : Qt::convertFromPlainText(text));
}

bool IsUnderCheck(const CTVXView* view) {
  return view != nullptr && view->checks().State() == CheckState::kUnderWay;
}

constexpr Message kParts{"절삭 {cuts}, 급속이송 {rapids}, 드웰 {dwells}, 공구교환 {tools} min",
                         "Cuts {cuts}, rapids {rapids}, dwells {dwells}, tool changes {tools} min"};
constexpr Message kWithoutFeed{"피드가 없는 이동 {count}개는 제외",
                               "Without {count} moves that have no feed"};

QString PartsText(const MachineTime& time, bool isChecked) {
  const auto minutes = [](double value) { return Format("%.1f", value); };
  QString text = InLanguage(kParts, {{"cuts", minutes(time.cutMinutes)},
                                     {"rapids", minutes(time.rapidMinutes)},
                                     {"dwells", minutes(time.dwellMinutes)},
                                     {"tools", minutes(time.toolMinutes)}});
  if (!isChecked) text += "\n" + Translated("드웰과 공구교환은 알 수 없습니다.");
  if (time.movesWithoutFeed > 0) {
    text += "\n" + InLanguage(kWithoutFeed, {{"count", time.movesWithoutFeed}});
  }
  return text;
}

}  // namespace

MachineRows::MachineRows(const DockContext& context, QFormLayout* form, QWidget* body)
    : QObject(body), context_(context) {
  context_.app->machine.reset();
  auto* const row = new QHBoxLayout;
  row->setSpacing(2);
  time_ = new QLabel(kNone, body);
  MakeSelectable(time_);
  row->addWidget(time_, 1);
  const auto button = [&](const char* text, const char* toolTip, void (MachineRows::*act)()) {
    auto* const added = new QToolButton(body);
    added->setText(text);
    added->setToolTip(Translated(toolTip));
    // A click leaves the focus in the picture, whose keys move it.
    added->setFocusPolicy(Qt::TabFocus);
    connect(added, &QToolButton::clicked, this, act);
    row->addWidget(added);
    return added;
  };
  button("...", "기계 화일 선택", &MachineRows::Choose);
  clear_ = button("\u00d7", "기계 지우기", &MachineRows::Clear);
  clear_->setEnabled(false);
  form->addRow(Translated("기계시간"), row);

  name_ = new ElidedLabel(kNone, body);
  // A long name does not change the width of the picture.
  name_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(Translated("기계"), name_);

  afterPaint_.setSingleShot(true);
  connect(&afterPaint_, &QTimer::timeout, this, &MachineRows::ShowTime);
  subscription_ = context_.changes->Subscribe(
      Change::kProgram | Change::kFeeds | Change::kCheck, Timing::kSettled,
      [this](ChangeSet changes, Timing) { OnChange(changes); });
  // Only then does the window exist in which the user reads of a file that cannot be used.
  QTimer::singleShot(0, this, &MachineRows::UseSettings);
}

void MachineRows::UseSettings() {
  if (context_.settingsFile.isEmpty() || context_.app->machine) return;
  const QSettings settings(context_.settingsFile, QSettings::IniFormat);
  const std::string path = FromQt(settings.value(kKey).toString());
  if (!path.empty()) Use(path);
}

// The chooser would leave the current directory at the machine, but reports are written beside the
// program.
void MachineRows::Choose() {
  const std::string directory = context_.app->files->CurrentDirectory();
  std::string path;
  const FileQuestion question{.save = false,
                              .defaultExtension = "machine",
                              .fileName = path_,
                              .filter = "기계 화일 (*.machine)|*.machine|모든 화일(*.*)|*.*||",
                              .directory = ""};
  const bool isChosen = context_.app->ui->ChooseFile(question, &path);
  static_cast<void>(context_.app->files->SetCurrentDirectory(directory));
  if (!isChosen || !Use(path) || context_.settingsFile.isEmpty()) return;
  QSettings(context_.settingsFile, QSettings::IniFormat).setValue(kKey, ToQt(path));
}

void MachineRows::Clear() {
  context_.app->machine.reset();
  path_.clear();
  ShowName(kNone, {});
  ShowTime();
  if (context_.settingsFile.isEmpty()) return;
  QSettings(context_.settingsFile, QSettings::IniFormat).remove(kKey);
}

// False, with a text in the status bar and the machine as it was, if the file cannot be used.
bool MachineRows::Use(const std::string& path) {
  MachineProfile read;
  if (const auto fault = ReadMachineProfile(path, context_.app->files, &read)) {
    const std::string text =
        NameOfPath(path, kAnySlash) + ": " + FaultText(*fault, LanguageInUse());
    const QString message = Translated("기계 화일을 사용할 수 없습니다: ") + ToQt(text);
    context_.app->ui->ShowStatus(FromQt(message));
    // The load of a program at the start takes the place of the text in the status bar.
    if (!context_.app->machine) ShowName(ToQt(text), message);
    return false;
  }
  ShowName(ToQt(read.Name), ToQt(read.Name + "\n" + path));
  context_.app->machine = std::move(read);
  path_ = path;
  isStale_ = true;
  ShowTimeSoon();
  return true;
}

void MachineRows::ShowName(const QString& name, const QString& toolTip) {
  name_->setText(name);
  SetPlainToolTip(name_, toolTip);
  clear_->setEnabled(!toolTip.isEmpty());
}

void MachineRows::OnChange(ChangeSet changes) {
  // Not the time of another program meanwhile; but after a command, no flicker.
  if (changes.HasAny(Change::kProgram)) time_->setText(kNone);
  if (changes.HasAny(Change::kFeeds)) isStale_ = true;
  ShowTimeSoon();
}

void MachineRows::ShowTimeSoon() {
  if (isStale_ && !IsUnderCheck(context_.activeView())) afterPaint_.start(0);
}

void MachineRows::ShowTime() {
  CTVXView* const view = context_.activeView();
  if (IsUnderCheck(view)) return;  // another program has been loaded meanwhile
  isStale_ = false;
  time_->setText(kNone);
  SetPlainToolTip(time_, {});
  if (!context_.app->machine || view == nullptr || view->program.store.blockCount == 0) return;
  const MachineTime time = ComputeMachineTime(&view->program.store, *context_.app->machine,
                                              PausesOf(view->checks().Loaded().get()));
  time_->setText(ToQt(Format("%.1f min", time.totalMinutes)));
  SetPlainToolTip(time_, PartsText(time, view->checks().Result() != nullptr));
}

}  // namespace tvx
