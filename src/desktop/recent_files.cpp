#include "desktop/recent_files.h"

#include <QSettings>

namespace tvx {

namespace {

constexpr char kKey[] = "recentFiles";

}  // namespace

RecentFiles::RecentFiles(const QString& path) : file_(path) {
  if (file_.isEmpty()) return;
  paths_ = QSettings(file_, QSettings::IniFormat).value(kKey).toStringList().mid(0, kMost);
}

void RecentFiles::Add(const QString& drivePath) {
  paths_.removeAll(drivePath);
  paths_.prepend(drivePath);
  paths_ = paths_.mid(0, kMost);
  if (!file_.isEmpty()) QSettings(file_, QSettings::IniFormat).setValue(kKey, paths_);
}

}  // namespace tvx
