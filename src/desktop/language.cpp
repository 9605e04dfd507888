#include "desktop/language.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTranslator>

#include "desktop/qt_text.h"
#include "model/labels.h"

namespace tvx {

namespace {

// Without a file it finds nothing, and every text stays Korean.
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

}  // namespace

void UseLanguage(int32_t language) {
  const bool english = language == kEnglishLabels;
  if (!Translations().load(english ? ":/translations/tvx_en.qm" : "") && english) {
    qWarning("the English texts are missing");
  }
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

}  // namespace tvx
