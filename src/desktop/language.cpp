// Translation by the file in the program, and the setup of a Korean desktop.
#include "desktop/language.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QTranslator>
#include <algorithm>

namespace tvx {

namespace {

Language languageInUse = Language::kKorean;

// Finds nothing before a file is loaded: every text stays Korean.
QTranslator& Translations() {
  static QTranslator translations;
  return translations;
}

// With a font without Hangul, the letters of one line come from two fonts of different weight.
// NanumGothic is the last choice: its point is so low that small numbers seem to have a comma.
void ChooseFont() {
  QFont font = QApplication::font();
  const QString family = QFontInfo(font).family();
  if (QFontDatabase::writingSystems(family).contains(QFontDatabase::Korean)) return;
  for (const char* const candidate : {"Noto Sans CJK KR", "NanumBarunGothic", "NanumGothic"}) {
    if (!QFontDatabase::hasFamily(candidate)) continue;
    font.setFamily(candidate);
    QApplication::setFont(font);
    return;
  }
}

void TranslateToolkit() {
  auto* const texts = new QTranslator(qApp);
  if (texts->load("qtbase_ko", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(texts);
  }
}

}  // namespace

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FromQt(const QString& text) {
  return text.toStdString();
}

void UseLanguage(Language language) {
  languageInUse = language;
  const bool english = language == Language::kEnglish;
  if (!Translations().load(english ? ":/translations/tvx_en.qm" : "") && english) {
    qWarning("the English texts are missing");
  }
}

Language LanguageInUse() {
  return languageInUse;
}

QString Translated(std::string_view text) {
  const QString source = ToQt(text);
  const QString translation = Translations().translate("tvx", source.toUtf8().constData());
  return translation.isEmpty() ? source : translation;
}

QString InLanguage(const Message& message, std::initializer_list<NamedValue> values) {
  return ToQt(Say(message, languageInUse, values));
}

QString Printable(QString text) {
  std::ranges::replace_if(
      text, [](QChar c) { return c < ' ' && c != '\t'; }, '?');
  return text;
}

void SetUpKorean() {
  ChooseFont();
  TranslateToolkit();
}

}  // namespace tvx
