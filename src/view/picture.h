// Writes the picture of the view to a file: an enhanced metafile for each result, SVG and PNG for
// other uses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files/files.h"
#include "view/path_drawing.h"

namespace tvx {

// kPalettePng: the same pixels as kPng in a smaller file; no extension selects it.
enum class PictureFormat { kMetafile, kSvg, kPng, kPalettePng };

// The format by the extension of a file name (".emf", ".svg" or ".png", in upper or lower case);
// nullopt for any other extension.
std::optional<PictureFormat> PictureFormatOf(std::string_view path);

// True for the first bytes of an enhanced metafile.
bool IsMetafile(std::string_view start);

// Draws the scene into a file with the current angles, pan and scale of the view. With a null file
// only the state that a drawing changes in the scene is changed. The caller commits the file.
Status DrawPictureFile(PictureFormat format, const Scene& scene, OutputFile* file);

// A picture that would be larger, in bytes, is not written: a million circles make 13 GB.
inline constexpr uint64_t kLargestPicture = uint64_t{1} << 30;

// Creates or replaces the file and draws the scene into it with the current angles, pan and scale
// of the view. SVG and PNG have a white page of the drawing area's size. Fails if the file cannot
// be written or the drawing is stopped; an existing file is then unchanged. `isSynced`: see
// OutputFile. The state that a drawing changes in the scene is changed in either case.
Status WritePictureFile(PictureFormat format, const std::string& path, const Scene& scene,
                        Files* files, bool isSynced = true);

// Writes the picture of a result, a metafile. Returns 1 even if the file could not be written: a
// run does not stop because of a picture.
int WritePicture(const std::string& path, const Scene& scene, Files* files);

}  // namespace tvx
