// The rows of the legend for a machine: its name, the time that it needs for the program, and
// buttons that choose another one or none.
#pragma once

#include <QObject>
#include <QTimer>
#include <optional>
#include <string>

#include "desktop/docks/docks.h"
#include "insight/machine_profile.h"

class QFormLayout;
class QLabel;
class QToolButton;

namespace tvx {

class MachineRows : public QObject {
  Q_OBJECT

 public:
  // Adds the rows to a form; `body`, the widget of the form, owns them. The file of the machine in
  // use is kept in the settings file, from which it is read at the next start.
  MachineRows(const DockContext& context, QFormLayout* form, QWidget* body);

 private:
  void UseSettings();
  void Choose();
  void Clear();
  bool Use(const std::string& path);
  void ShowName(const QString& name, const QString& toolTip);
  void OnChange(ChangeSet changes);
  // Shows the time of the view in work if it is not up to date: once the program check has found
  // the dwells and tool changes, and the window has been painted, since the walk over a large
  // program takes a while.
  void ShowTimeSoon();
  void ShowTime();

  DockContext context_;
  std::string path_;  // of the machine file, a drive path
  QTimer afterPaint_;
  bool isStale_ = true;
  Subscription subscription_;
  QLabel* time_;
  QLabel* name_;
  QToolButton* clear_;
};

}  // namespace tvx
