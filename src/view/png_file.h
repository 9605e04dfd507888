#pragma once

#include "platform/files.h"
#include "view/raster_device.h"

namespace tvx {

// Writes an image as PNG, row by row. Returns false if anything fails, also for an image without
// pixels. The caller commits the file.
bool WritePng(const Image& image, OutputFile* file);

}  // namespace tvx
