// Times before and after the feed adjustment as the window shows them.
#pragma once

#include <QString>

namespace tvx {

// "26.9 min (0:26:52)"
QString MinutesText(double minutes);

// What the adjustment saves, in minutes; with a second line of warning if it takes longer.
QString SavedText(double before, double after);

}  // namespace tvx
