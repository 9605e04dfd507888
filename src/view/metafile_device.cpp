// The records of the enhanced metafile format, in the order in which they are written.
#include "view/metafile_device.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <string>

#include "base/numbers.h"

namespace tvx {
namespace {

// Record types of the format.
enum Record : uint32_t {
  kHeader = 1,
  kEndOfFile = 14,
  kMoveTo = 27,
  kSelectObject = 37,
  kCreatePen = 38,
  kLineTo = 54,
  kTextOut = 84,
  kPolyline16 = 87,
};

constexpr std::u16string_view kDescription = u"TVX MetaFile";
constexpr uint32_t kDescriptionCharacters = kDescription.size() + 2;  // with two terminators
constexpr uint32_t kFixedHeaderBytes = 108;
constexpr uint32_t kHeaderBytes = kFixedHeaderBytes + 2 * kDescriptionCharacters;
static_assert(kHeaderBytes % 4 == 0);

// The reference device: a screen of 96 pixels an inch whose size is a whole number of millimetres.
constexpr uint32_t kDevicePixelsX = 1920, kDevicePixelsY = 1440;
constexpr uint32_t kDeviceMillimetresX = 508, kDeviceMillimetresY = 381;
static_assert(kDevicePixelsX * kDeviceMillimetresY == kDevicePixelsY * kDeviceMillimetresX);
// Hundredths of a millimetre a pixel, in both directions.
constexpr double kFramePerPixel = 100.0 * kDeviceMillimetresX / kDevicePixelsX;

constexpr uint32_t kStockBlackPen = 0x80000007;
constexpr uint32_t kSolidStyle = 0;
constexpr uint32_t kDashStyle = 1;

// Size of a character in the device's default font, for the bounds only.
constexpr int32_t kLetterWidth = 9;
constexpr int32_t kLetterHeight = 16;

uint32_t ColourReference(Colour colour) {
  return (colour & 0xFF) << 16 | (colour & 0xFF00) | colour >> 16;
}

bool FitsIn16Bits(int32_t value) {
  return value >= INT16_MIN && value <= INT16_MAX;
}

// The input must be well-formed UTF-8.
std::u16string ToUtf16(std::string_view utf8) {
  std::u16string text;
  for (size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i++]);
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    uint32_t code = more == 0 ? lead : lead & (0x3FU >> more);
    for (int k = 0; k < more && i < utf8.size(); ++k) {
      code = code << 6 | (static_cast<unsigned char>(utf8[i++]) & 0x3FU);
    }
    if (code >= 0x10000) {
      code -= 0x10000;
      text += static_cast<char16_t>(0xD800 | (code >> 10 & 0x3FF));
      code = 0xDC00 | (code & 0x3FF);
    }
    text += static_cast<char16_t>(code);
  }
  return text;
}

// Clamped to 32 bits: an arm of the axes may end anywhere.
int32_t Clamp(int64_t value) {
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

// An edge of the bounds in the frame's unit, rounded outwards.
int32_t FrameEdge(int32_t pixel, bool upwards) {
  const double edge = pixel * kFramePerPixel;
  return TruncateToInt(upwards ? std::ceil(edge) : std::floor(edge));
}

}  // namespace

void MetafileDevice::Box::Widen(Pixel point) {
  left = std::min(left, point.x);
  top = std::min(top, point.y);
  right = std::max(right, point.x);
  bottom = std::max(bottom, point.y);
}

void MetafileDevice::Box::Widen(const Box& other) {
  Widen(Pixel{other.left, other.top});
  Widen(Pixel{other.right, other.bottom});
}

MetafileDevice::MetafileDevice(OutputFile* file) : file_(file), buffer_(file) {
  PutHeader();  // reserves the space; Finish overwrites it
  buffer_.Write(record_);
  bytes_ += record_.size();
  ++records_;
}

Status MetafileDevice::Finish() {
  EndRun();
  BeginRecord(kEndOfFile);
  Put32(0);   // palette entries
  Put32(0);   // their offset
  Put32(20);  // size of this record again, for readers that start at the end
  EndRecord();
  buffer_.Flush();
  if (file_ == nullptr || !buffer_.status().ok()) return buffer_.status();
  if (bytes_ > UINT32_MAX) return {StatusKind::kWriteFailed, "", EFBIG};
  PutHeader();
  return file_->Patch(0, record_);
}

void MetafileDevice::PutHeader() {
  BeginRecord(kHeader);
  const Box box = bounds_.IsEmpty() ? Box{0, 0, -1, -1} : bounds_;
  PutBox(box);
  PutSigned(FrameEdge(box.left, false));
  PutSigned(FrameEdge(box.top, false));
  PutSigned(FrameEdge(box.right, true));
  PutSigned(FrameEdge(box.bottom, true));
  Put32(0x464D4520);  // " EMF"
  Put32(0x00010000);  // version
  Put32(static_cast<uint32_t>(bytes_));
  Put32(records_);
  Put16(objects_ + 1);  // number 0 is the file itself
  Put16(0);
  Put32(kDescriptionCharacters);
  Put32(kFixedHeaderBytes);  // offset of the description
  Put32(0);                  // palette entries
  Put32(kDevicePixelsX);
  Put32(kDevicePixelsY);
  Put32(kDeviceMillimetresX);
  Put32(kDeviceMillimetresY);
  Put32(0);  // size of the pixel format: none
  Put32(0);  // its offset
  Put32(0);  // three-dimensional records: none
  Put32(kDeviceMillimetresX * 1000);
  Put32(kDeviceMillimetresY * 1000);
  PutText(kDescription);
  Put32(0);  // its two terminators
  SetRecordSize();
}

void MetafileDevice::UsePen(Pen pen) {
  uint32_t object = kStockBlackPen;
  if (pen != penDefault) {
    if (penObject_[pen] == 0) {
      penObject_[pen] = ++objects_;
      const PenStyle& style = StyleOf(pen);
      BeginRecord(kCreatePen);
      Put32(penObject_[pen]);
      Put32(style.dashed ? kDashStyle : kSolidStyle);
      PutPoint({1, 0});  // width
      Put32(ColourReference(style.colour));
      EndRecord();
    }
    object = penObject_[pen];
  }
  BeginRecord(kSelectObject);
  Put32(object);
  EndRecord();
}

void MetafileDevice::DrawRun(std::span<const Pixel> points) {
  Box box;
  for (const Pixel point : points) box.Widen(point);
  bounds_.Widen(box);
  if (FitsIn16Bits(box.left) && FitsIn16Bits(box.top) && FitsIn16Bits(box.right) &&
      FitsIn16Bits(box.bottom)) {
    BeginRecord(kPolyline16);
    PutBox(box);
    Put32(static_cast<uint32_t>(points.size()));
    for (const Pixel point : points) {
      Put16(static_cast<uint32_t>(point.x));
      Put16(static_cast<uint32_t>(point.y));
    }
    EndRecord();
    return;
  }
  // Only the arms of the axes can be that far out.
  uint32_t type = kMoveTo;
  for (const Pixel point : points) {
    BeginRecord(type);
    PutPoint(point);
    EndRecord();
    type = kLineTo;
  }
}

void MetafileDevice::PlaceText(Pixel point, std::string_view text) {
  constexpr uint32_t kCompatibleMode = 1;
  constexpr uint32_t kTextOffset = 76;  // of the characters, from the start of the record
  const std::u16string characters = ToUtf16(text);
  const auto count = static_cast<uint32_t>(characters.size());
  Box box;
  box.Widen(point);
  box.Widen(Pixel{Clamp(int64_t{point.x} + int64_t{count} * kLetterWidth - 1),
                  Clamp(int64_t{point.y} + kLetterHeight - 1)});
  bounds_.Widen(box);

  BeginRecord(kTextOut);
  PutBox(box);
  Put32(kCompatibleMode);
  Put32(std::bit_cast<uint32_t>(static_cast<float>(kFramePerPixel)));
  Put32(std::bit_cast<uint32_t>(static_cast<float>(kFramePerPixel)));
  PutPoint(point);
  Put32(count);
  Put32(kTextOffset);
  Put32(0);                                      // options: no clipping, no background
  PutBox({0, 0, -1, -1});                        // rectangle of the options: empty
  Put32(kTextOffset + (2 * count + 3) / 4 * 4);  // offset of the advance widths
  PutText(characters);
  for (uint32_t i = 0; i < count; ++i) Put32(kLetterWidth);
  EndRecord();
}

void MetafileDevice::BeginRecord(uint32_t type) {
  record_.clear();
  Put32(type);
  Put32(0);  // the size, set by SetRecordSize
}

void MetafileDevice::SetRecordSize() {
  const auto size = static_cast<uint32_t>(record_.size());
  for (size_t i = 0; i < 4; ++i) record_[4 + i] = static_cast<char>(size >> 8 * i & 0xFF);
}

void MetafileDevice::EndRecord() {
  SetRecordSize();
  buffer_.Write(record_);
  bytes_ += record_.size();
  ++records_;
}

// The format is little-endian on every machine.
void MetafileDevice::Put16(uint32_t value) {
  const char bytes[] = {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
  record_.append(bytes, sizeof bytes);
}

void MetafileDevice::Put32(uint32_t value) {
  Put16(value);
  Put16(value >> 16);
}

void MetafileDevice::PutPoint(Pixel point) {
  PutSigned(point.x);
  PutSigned(point.y);
}

void MetafileDevice::PutBox(const Box& box) {
  PutPoint({box.left, box.top});
  PutPoint({box.right, box.bottom});
}

// Padded to a multiple of four bytes.
void MetafileDevice::PutText(std::u16string_view text) {
  for (const char16_t character : text) Put16(character);
  if (text.size() % 2 != 0) Put16(0);
}

}  // namespace tvx
