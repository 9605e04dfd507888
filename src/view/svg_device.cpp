// Each run of lines becomes a polyline element.
#include "view/svg_device.h"

#include <charconv>
#include <cstdio>
#include <string>

#include "base/format.h"

namespace tvx {
namespace {

constexpr int kLetterSize = 16;    // pixels
constexpr int kLetterAscent = 13;  // from the top of a letter's cell to its base line

std::string EscapeXml(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace

SvgDevice::SvgDevice(OutputFile* file, int32_t width, int32_t height, Pixel origin)
    : buffer_(file) {
  // A coordinate is the middle of its pixel, so the page starts half a pixel before the first one.
  buffer_.Write(
      Format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
             "viewBox=\"%.1f %.1f %d %d\">\n",
             width, height, origin.x - 0.5, origin.y - 0.5, width, height));
  WriteRectangle(origin.x, origin.y, width, height, 0xFFFFFF);
  buffer_.Write(
      Format("<g fill=\"none\" stroke-width=\"1\" font-family=\"sans-serif\" "
             "font-size=\"%d\">\n",
             kLetterSize));
}

Status SvgDevice::Finish() {
  EndRun();
  buffer_.Write("</g>\n</svg>\n");
  buffer_.Flush();
  return buffer_.status();
}

void SvgDevice::FillRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom,
                              Colour colour) {
  EndRun();
  WriteRectangle(left, top, int64_t{right} - left, int64_t{bottom} - top, colour);
}

void SvgDevice::WriteRectangle(int64_t left, int64_t top, int64_t width, int64_t height,
                               Colour colour) {
  buffer_.Write(
      Format("<rect x=\"%.1f\" y=\"%.1f\" width=\"%lld\" height=\"%lld\" "
             "fill=\"#%06X\"/>\n",
             static_cast<double>(left) - 0.5, static_cast<double>(top) - 0.5,
             static_cast<long long>(width), static_cast<long long>(height), colour));
}

void SvgDevice::DrawRun(std::span<const Pixel> points) {
  const PenStyle& style = StyleOf(pen());
  char text[64];
  const auto format = [&](const char* pattern, auto... values) {
    const int length = std::snprintf(text, sizeof text, pattern, values...);
    buffer_.Write({text, static_cast<size_t>(length)});
  };
  format("<polyline stroke=\"#%06X\"", style.colour);
  if (style.dashed) format(" stroke-dasharray=\"%d %d\"", kDashPixels, kGapPixels);
  buffer_.Write(" points=\"");
  const auto number = [&](int32_t value, std::string_view separator) {
    const char* end = std::to_chars(text, text + sizeof text, value).ptr;
    buffer_.Write({text, static_cast<size_t>(end - text)});
    buffer_.Write(separator);
  };
  for (const Pixel point : points) {
    number(point.x, ",");
    number(point.y, " ");
  }
  buffer_.Write("\"/>\n");
}

void SvgDevice::PlaceText(Pixel point, std::string_view text) {
  buffer_.Write(Format("<text x=\"%d\" y=\"%lld\" fill=\"#000000\">", point.x,
                       static_cast<long long>(point.y) + kLetterAscent));
  buffer_.Write(EscapeXml(text));
  buffer_.Write("</text>\n");
}

}  // namespace tvx
