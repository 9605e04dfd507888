// Texts: from the core's UTF-8 to Qt's strings and back, and in the language of the user. A text
// with values, and a text that other programs or files have, too, is a Message. Any other text of
// the window is written in Korean and has its English in translations/tvx_en.ts.
#pragma once

#include <QString>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/message.h"

namespace tvx {

QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// Sets the language of Translated and InLanguage.
void UseLanguage(Language language);

Language LanguageInUse();

// A Korean text of the program in the language in use; the text itself if it has no translation.
// Not for names and input of the user: a folder "설정" keeps its name in every language.
QString Translated(std::string_view text);

// A message in the language in use.
QString InLanguage(const Message& message, std::initializer_list<NamedValue> values = {});

// A text of a file, which may hold any characters, for the screen.
QString Printable(QString text);

// Sets a font with Hangul for all texts, and Korean texts in the toolkit's own dialogs, as far as
// both are installed. Called once, before the first window.
void SetUpKorean();

}  // namespace tvx
