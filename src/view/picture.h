// The picture of the view as a file: an enhanced metafile beside each result, and for other uses
// SVG and PNG.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "view/path_drawing.h"

namespace tvx {

enum class PictureFormat { kMetafile, kSvg, kPng };

// The format of a file name's ending (".emf", ".svg", ".png", in any case of letters), if it is one
// of them.
std::optional<PictureFormat> PictureFormatOf(std::string_view path);

// Creates or replaces the file and draws the scene into it, with the angles, pan and scale of the
// view at this moment. SVG and PNG have a white page of the drawing area's size. Returns false if
// the file cannot be written, in which case an older one stays; the scene is then drawn nowhere,
// but changes all the same.
bool WritePictureFile(PictureFormat format, const std::string& path, const Scene& scene,
                      Files* files);

// The picture of a result, a metafile. Returns 1, also when the file could not be written: a run
// does not stop for a picture.
int WritePicture(const std::string& path, const Scene& scene, Files* files);

}  // namespace tvx
