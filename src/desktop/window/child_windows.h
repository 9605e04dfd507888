// The arrangements of the child windows in the area of the main window. Minimised ones stay as they
// are, except for ArrangeIcons.
#pragma once

#include <QMdiArea>

namespace tvx {

// One behind the other, none of them larger than the area leaves room for.
void Cascade(QMdiArea* area);

// One below the other (vertical), or side by side.
void Tile(QMdiArea* area, Qt::Orientation direction);

// Lays the minimised windows along the bottom of the area, from the left.
void ArrangeIcons(QMdiArea* area);

}  // namespace tvx
