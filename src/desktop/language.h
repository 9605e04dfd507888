// Texts: from the core's UTF-8 to Qt's strings and back, and in the language of the user, which is
// Korean, in which the texts are written, or English, by the translations in the program.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/message.h"

namespace tvx {

QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// Sets the language of Translated and TranslatedLabels, one of jobs/labels.h.
void UseLanguage(int32_t language);

int32_t LanguageInUse();

// A text of the program's own, in the language in use. Its numbers may be any: the translation of
// "소요시간 %1 min" serves for "소요시간 1.5 min". A text without a translation comes back as it
// is. Not for names and input of the user: a folder "설정" keeps its name in every language.
QString Translated(std::string_view text);

// A text that has both languages, in the language in use.
QString Translated(const Message& text);

// The text in the language in use, of a table that has both.
QString InLanguage(std::string_view korean, std::string_view english);

// A text of a file, which may hold any characters, for the screen.
QString Printable(QString text);

// The same as Translated for a text with labels of jobs/labels.h or a line of figures.
QString TranslatedLabels(const std::string& text);

// Sets a font with Hangul for all texts, and Korean texts in the toolkit's own dialogs, as far as
// both are installed. Called once, before the first window.
void SetUpKorean();

}  // namespace tvx
