// What a window without a program shows: the first steps.
#pragma once

class QPainter;
class QRect;

namespace tvx {

// Paints three lines into the lower part of the area, on black: how to open a program, to set its
// options, and to read the guide.
void PaintEmptyPage(const QRect& area, QPainter* painter);

}  // namespace tvx
