// The entries of the View menus for language, colours and processor cores. All are kept in the
// window's settings.
#pragma once

#include <QList>
#include <QObject>
#include <cstdint>
#include <optional>

#include "base/message.h"
#include "view/drawing_device.h"

class QAction;
class QWidget;

namespace tvx {

// The pens of the pictures on the screen and of the legend; pictures in files and on paper keep
// the usual ones.
PenStyles ScreenPens();

// The language that the user has chosen in a settings file; none if there is
// no choice.
std::optional<Language> ChosenLanguage(const QString& settingsFile);

class DisplayOptions : public QObject {
  Q_OBJECT

 public:
  // Takes the colours from the settings file; without a file a choice lasts for the run.
  DisplayOptions(const QString& settingsFile, QWidget* parent);

  const QList<QAction*>& MenuEntries() const { return entries_; }

  // The processor cores that an adjustment may use: those the user has chosen, else all.
  unsigned Cores() const { return cores_; }

 signals:
  // The pictures on the screen have to be drawn with other pens.
  void PensChanged();
  // The language of the next start has been chosen.
  void LanguageChosen();
  // The user has chosen another number of cores.
  void CoresChosen(unsigned cores);

 private:
  void AddLanguages(QWidget* parent);
  void AddColours();
  void AddCores(QWidget* parent);

  QString settingsFile_;
  unsigned cores_;
  QList<QAction*> entries_;
};

}  // namespace tvx
