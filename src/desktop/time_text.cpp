#include "desktop/time_text.h"

#include "base/format.h"
#include "desktop/language.h"

namespace tvx {

QString MinutesText(double minutes) {
  return ToQt(Format("%.1f min (%s)", minutes, ClockText(minutes).c_str()));
}

QString SavedText(double before, double after) {
  const QString text = MinutesText(before - after);
  return after > before ? text + "\n" + Translated("조정 후의 시간이 더 깁니다.") : text;
}

}  // namespace tvx
