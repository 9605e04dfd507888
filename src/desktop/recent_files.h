// The files opened last, the latest first, kept from one run of the program to the next.
#pragma once

#include <QString>
#include <QStringList>

namespace tvx {

class RecentFiles {
 public:
  static constexpr qsizetype kMost = 4;

  // Kept in this file of the host; an empty path keeps them for the run of the program only.
  explicit RecentFiles(const QString& path);

  // Drive paths.
  const QStringList& Paths() const { return paths_; }

  // Puts a file first and saves the list. One that cannot be saved is no reason to stop anybody.
  void Add(const QString& drivePath);

 private:
  QString file_;
  QStringList paths_;
};

}  // namespace tvx
