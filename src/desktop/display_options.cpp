// Builds the entries, and keeps what the user chooses.
#include "desktop/display_options.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QSettings>
#include <QVariant>
#include <QWidget>
#include <iterator>

#include "base/message.h"
#include "desktop/language.h"
#include "platform/workers.h"

namespace tvx {

namespace {

constexpr char kLanguageKey[] = "language";
constexpr char kColoursKey[] = "highContrast";
constexpr char kCoresKey[] = "cores";  // 0: all

bool highContrast = false;

// Each in its own language, for a user who does not read the one in use.
constexpr struct {
  const char* code;
  Language language;
  const char* name;
} kLanguages[] = {{"ko", Language::kKorean, "한국어"}, {"en", Language::kEnglish, "English"}};

void Keep(const QString& settingsFile, const char* key, const QVariant& value) {
  if (!settingsFile.isEmpty()) QSettings(settingsFile, QSettings::IniFormat).setValue(key, value);
}

}  // namespace

PenStyles ScreenPens() {
  return highContrast ? PenStyles(kHighContrastPenStyles) : PenStyles(kPenStyles);
}

std::optional<Language> ChosenLanguage(const QString& settingsFile) {
  const QString code = QSettings(settingsFile, QSettings::IniFormat).value(kLanguageKey).toString();
  for (const auto& row : kLanguages) {
    if (code == row.code) return row.language;
  }
  return std::nullopt;
}

DisplayOptions::DisplayOptions(const QString& settingsFile, QWidget* parent)
    : QObject(parent), settingsFile_(settingsFile), cores_(CoreCount()) {
  AddLanguages(parent);
  AddColours();
  AddCores(parent);
}

void DisplayOptions::AddLanguages(QWidget* parent) {
  auto* const menu = new QMenu("언어 / Language", parent);
  auto* const group = new QActionGroup(menu);
  for (const auto& row : kLanguages) {
    QAction* const entry = menu->addAction(ToQt(row.name));
    entry->setCheckable(true);
    entry->setChecked(row.language == LanguageInUse());
    group->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, code = row.code] {
      Keep(settingsFile_, kLanguageKey, code);
      emit LanguageChosen();
    });
  }
  entries_ << menu->menuAction();
}

void DisplayOptions::AddColours() {
  if (!settingsFile_.isEmpty()) {
    highContrast =
        QSettings(settingsFile_, QSettings::IniFormat).value(kColoursKey, false).toBool();
  }
  auto* const entry = new QAction(Translated("잘 보이는 색"), this);
  entry->setCheckable(true);
  entry->setChecked(highContrast);
  connect(entry, &QAction::toggled, this, [this](bool isOn) {
    highContrast = isOn;
    Keep(settingsFile_, kColoursKey, isOn);
    emit PensChanged();
  });
  entries_ << entry;
}

// All cores, and each power of two below that.
void DisplayOptions::AddCores(QWidget* parent) {
  unsigned chosen = 0;
  if (!settingsFile_.isEmpty()) {
    chosen = QSettings(settingsFile_, QSettings::IniFormat).value(kCoresKey, 0).toUInt();
  }
  if (chosen >= CoreCount()) chosen = 0;
  if (chosen > 0) cores_ = chosen;
  auto* const menu = new QMenu(Translated("피드 조정에 쓸 코어"), parent);
  auto* const group = new QActionGroup(menu);
  const auto add = [&](const QString& text, unsigned cores) {
    QAction* const entry = menu->addAction(text);
    entry->setCheckable(true);
    entry->setChecked(cores == chosen);
    group->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, cores] {
      Keep(settingsFile_, kCoresKey, cores);
      cores_ = cores > 0 ? cores : CoreCount();
      emit CoresChosen(cores_);
    });
  };
  add(Translated("모두"), 0);
  for (unsigned cores = 1; cores < CoreCount(); cores *= 2) add(QString::number(cores), cores);
  entries_ << menu->menuAction();
}

}  // namespace tvx
