// Translation by the file in the program, with numbers as places, and the setup of a Korean
// desktop.
#include "desktop/language.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QStringList>
#include <QTranslator>
#include <algorithm>

#include "jobs/labels.h"
#include "stats/entry_lines.h"

namespace tvx {

namespace {

int32_t languageInUse = kKoreanLabels;

// Finds nothing before a file is loaded: every text stays Korean.
QTranslator& Translations() {
  static QTranslator translations;
  return translations;
}

// Empty if there is none.
QString TranslationOf(const QString& text) {
  return Translations().translate("tvx", text.toUtf8().constData());
}

// Replaces the numbers of a text by %1, %2 and so on, as its translation has them.
QString TakeNumbers(QString text, QStringList* numbers) {
  static const QRegularExpression kNumber("[-+]?\\d+(\\.\\d+)?(e[-+]?\\d+)?");
  qsizetype from = 0;
  for (;;) {
    const QRegularExpressionMatch match = kNumber.match(text, from);
    if (!match.hasMatch()) return text;
    numbers->append(match.captured());
    const QString place = "%" + QString::number(numbers->size());
    text.replace(match.capturedStart(), match.capturedLength(), place);
    from = match.capturedStart() + place.size();
  }
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

void UseLanguage(int32_t language) {
  languageInUse = language;
  const bool english = language == kEnglishLabels;
  if (!Translations().load(english ? ":/translations/tvx_en.qm" : "") && english) {
    qWarning("the English texts are missing");
  }
}

int32_t LanguageInUse() {
  return languageInUse;
}

QString Translated(std::string_view text) {
  QString source = ToQt(text);
  if (Translations().isEmpty()) return source;
  if (QString whole = TranslationOf(source); !whole.isEmpty()) return whole;
  QStringList numbers;
  QString translation = TranslationOf(TakeNumbers(source, &numbers));
  if (translation.isEmpty()) return source;
  for (const QString& number : numbers) translation = translation.arg(number);
  return translation;
}

QString Translated(const Message& text) {
  return ToQt(text.In(LanguageOf(languageInUse)));
}

QString InLanguage(std::string_view korean, std::string_view english) {
  return ToQt(languageInUse == kEnglishLabels ? english : korean);
}

QString Printable(QString text) {
  std::ranges::replace_if(
      text, [](QChar c) { return c < ' ' && c != '\t'; }, '?');
  return text;
}

QString TranslatedLabels(const std::string& text) {
  const std::string labelled = ReplaceLabels(text, languageInUse);
  return languageInUse == kEnglishLabels ? Translated(EnglishFigure(labelled)) : ToQt(labelled);
}

void SetUpKorean() {
  ChooseFont();
  TranslateToolkit();
}

}  // namespace tvx
