// libpng reports errors by longjmp; the functions here keep that inside this file.
#include "view/png_file.h"

#include <png.h>

#include <vector>

namespace tvx {
namespace {

void WriteBytes(png_structp png, png_bytep bytes, size_t size) {
  auto* file = static_cast<OutputFile*>(png_get_io_ptr(png));
  if (!file->Write({reinterpret_cast<const char*>(bytes), size})) {
    png_error(png, "write failed");  // does not return
  }
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

// On an error the library jumps to the setjmp, so there must be no object with a destructor here.
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

}  // namespace

bool WritePng(const Image& image, OutputFile* file) {
  if (image.width <= 0 || image.height <= 0) return false;
  png_structp png =
      png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, FailQuietly, IgnoreWarning);
  if (png == nullptr) return false;
  png_infop info = png_create_info_struct(png);
  bool done = false;
  if (info != nullptr) {
    std::vector<uint8_t> row(static_cast<size_t>(image.width) * 3);
    png_set_write_fn(png, file, WriteBytes, FlushNothing);
    done = WriteRows(png, info, image, row.data());
  }
  png_destroy_write_struct(&png, &info);
  return done;
}

}  // namespace tvx
