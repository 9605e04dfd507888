#include "desktop/korean.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLibraryInfo>
#include <QTranslator>

namespace tvx {

namespace {

// With a font that lacks Hangul, the letters of one line come from two fonts of different weight.
// The point of NanumGothic lies so low that small numbers seem to have a comma.
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

void SetUpKorean() {
  ChooseFont();
  TranslateToolkit();
}

}  // namespace tvx
