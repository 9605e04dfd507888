// PNG output by libpng.
#pragma once

#include "platform/files/files.h"
#include "view/raster_device.h"

namespace tvx {

// Writes an image as PNG, row by row. Fails for an image without pixels or if a write fails. The
// caller commits the file.
Status WritePng(const Image& image, OutputFile* file);

// The same for a drawing in few colours, several times faster and smaller: writes the image with a
// palette. With more than kPaletteColours colours it is written as above.
inline constexpr size_t kPaletteColours = 16;
Status WritePalettePng(const Image& image, OutputFile* file);

}  // namespace tvx
