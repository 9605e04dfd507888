#include "desktop/qt_text.h"

#include <QStringList>

#include "desktop/language.h"

namespace tvx {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FromQt(const QString& text) {
  return text.toStdString();
}

QString ToQtFilter(std::string_view filter) {
  // Here blanks, not semicolons, stand between the masks of a filter.
  const QStringList parts = ToQt(filter).replace(';', ' ').split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
    const qsizetype bracket = parts[i].indexOf('(');
    const QString label = Translated(FromQt(parts[i].left(bracket).trimmed()));
    // "*.*" means every file, also one without an ending.
    const QString mask = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
    filters << label + " (" + mask.trimmed() + ")";
  }
  return filters.join(";;");
}

}  // namespace tvx
