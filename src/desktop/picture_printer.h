// The picture of a view on paper: the drawing of the screen, pixel for pixel the same, enlarged or
// reduced to the page.
#pragma once

#include <QPainter>

#include "view/path_drawing.h"

namespace tvx {

// Draws the scene as large as the page has room for, centred on it. Nothing is drawn for a view
// that has no size yet.
void PaintOnPage(const Scene& scene, const QRectF& page, QPainter* painter);

}  // namespace tvx
