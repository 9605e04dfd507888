// Texts of the core, UTF-8, as the strings of Qt and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tvx {

QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// A filter of the form "Nc file (*.nc, *.tap)|*.nc;*.tap|모든 화일(*.*)|*.*||" as Qt spells it:
// "Nc file (*.nc *.tap);;모든 화일 (*)".
QString ToQtFilter(std::string_view filter);

}  // namespace tvx
