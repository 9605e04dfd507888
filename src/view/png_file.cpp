// libpng reports errors by longjmp; the functions here keep that inside this file.
#include "view/png_file.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <vector>

namespace tvx {
namespace {

// Where the library writes to.
struct Target {
  OutputFile* file;
  Status status;  // of the last write
};

void WriteBytes(png_structp png, png_bytep bytes, size_t size) {
  auto* target = static_cast<Target*>(png_get_io_ptr(png));
  target->status = target->file->Write({reinterpret_cast<const char*>(bytes), size});
  if (!target->status.ok()) png_error(png, "write failed");  // does not return
}

void FlushNothing(png_structp) {}

// Prints nothing: the caller gets the failure as the result.
void FailQuietly(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}
void IgnoreWarning(png_structp, png_const_charp) {}

void ToRgb(const uint32_t* pixels, int32_t width, uint8_t* row) {
  for (int32_t x = 0; x < width; ++x) {
    *row++ = static_cast<uint8_t>(pixels[x] >> 16);
    *row++ = static_cast<uint8_t>(pixels[x] >> 8);
    *row++ = static_cast<uint8_t>(pixels[x]);
  }
}

// The colours of an image and their order.
struct Palette {
  std::array<uint32_t, kPaletteColours> colours{};
  size_t count = 0;

  size_t Find(uint32_t colour) const {
    size_t i = 0;
    while (i < count && colours[i] != colour) ++i;
    return i;
  }
};

// False for too many colours.
bool CollectColours(const Image& image, Palette* palette) {
  for (int32_t y = 0; y < image.height; ++y) {
    const uint32_t* const row = image.pixels + y * image.stride;
    uint32_t last = ~row[0];
    for (int32_t x = 0; x < image.width; ++x) {
      if (row[x] == last) continue;
      last = row[x];
      if (palette->Find(last) < palette->count) continue;
      if (palette->count == kPaletteColours) return false;
      palette->colours[palette->count++] = last;
    }
  }
  return true;
}

// One byte for each pixel; the library packs them.
void ToIndexes(const Palette& palette, const uint32_t* pixels, int32_t width, uint8_t* row) {
  uint32_t last = pixels[0];
  auto index = static_cast<uint8_t>(palette.Find(last));
  for (int32_t x = 0; x < width; ++x) {
    if (pixels[x] != last) index = static_cast<uint8_t>(palette.Find(last = pixels[x]));
    row[x] = index;
  }
}

// On an error the library jumps to the setjmp, so there must be no object with a destructor in
// these two.
bool WriteRows(png_structp png, png_infop info, const Image& image, uint8_t* row) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  png_set_IHDR(png, info, static_cast<uint32_t>(image.width), static_cast<uint32_t>(image.height),
               8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  for (int32_t y = 0; y < image.height; ++y) {
    ToRgb(image.pixels + y * image.stride, image.width, row);
    png_write_row(png, row);
  }
  png_write_end(png, info);
  return true;
}

bool WriteIndexedRows(png_structp png, png_infop info, const Image& image, const Palette& palette,
                      uint8_t* row) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  constexpr int kBitsPerPixel = 4;
  constexpr int kFastCompression = 3;
  png_set_compression_level(png, kFastCompression);
  png_set_filter(png, 0, PNG_FILTER_NONE);
  png_set_IHDR(png, info, static_cast<uint32_t>(image.width), static_cast<uint32_t>(image.height),
               kBitsPerPixel, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_color colours[kPaletteColours];
  for (size_t i = 0; i < palette.count; ++i) {
    const uint32_t c = palette.colours[i];
    colours[i] = {static_cast<uint8_t>(c >> 16), static_cast<uint8_t>(c >> 8),
                  static_cast<uint8_t>(c)};
  }
  png_set_PLTE(png, info, colours, static_cast<int>(palette.count));
  png_write_info(png, info);
  png_set_packing(png);
  for (int32_t y = 0; y < image.height; ++y) {
    ToIndexes(palette, image.pixels + y * image.stride, image.width, row);
    png_write_row(png, row);
  }
  png_write_end(png, info);
  return true;
}

// `palette` is null for an image in full colours.
Status Write(const Image& image, const Palette* palette, OutputFile* file) {
  png_structp png =
      png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, FailQuietly, IgnoreWarning);
  if (png == nullptr) return StatusKind::kWriteFailed;
  png_infop info = png_create_info_struct(png);
  Target target{file, {}};
  bool done = false;
  if (info != nullptr) {
    std::vector<uint8_t> row(static_cast<size_t>(image.width) * 3);
    png_set_write_fn(png, &target, WriteBytes, FlushNothing);
    done = palette != nullptr ? WriteIndexedRows(png, info, image, *palette, row.data())
                              : WriteRows(png, info, image, row.data());
  }
  png_destroy_write_struct(&png, &info);
  return done || !target.status.ok() ? target.status : StatusKind::kWriteFailed;
}

}  // namespace

Status WritePng(const Image& image, OutputFile* file) {
  if (image.width <= 0 || image.height <= 0) return StatusKind::kWriteFailed;
  return Write(image, nullptr, file);
}

Status WritePalettePng(const Image& image, OutputFile* file) {
  if (image.width <= 0 || image.height <= 0) return StatusKind::kWriteFailed;
  Palette palette;
  return Write(image, CollectColours(image, &palette) ? &palette : nullptr, file);
}

}  // namespace tvx
