// Writes a drawing as a Windows enhanced metafile. The file is written in one pass and the header
// is completed at the end, so the memory used does not depend on the size of the drawing.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "platform/files/files.h"
#include "view/output_buffer.h"
#include "view/polyline_device.h"

namespace tvx {

class MetafileDevice final : public PolylineDevice {
 public:
  // Writes the start of the file. With a null file every call does nothing. The file must outlive
  // the device.
  explicit MetafileDevice(OutputFile* file);

  // Does nothing: a metafile has no background, its viewer provides the page.
  void FillRectangle(int32_t, int32_t, int32_t, int32_t, Colour) override {}

  // Writes the end of the file and completes its header. It must be the last call. Fails if a
  // write failed or the file is larger than 4 GB, the limit of its header. The caller commits the
  // file.
  Status Finish();

 private:
  // A rectangle that includes all four edges.
  struct Box {
    int32_t left = INT32_MAX, top = INT32_MAX, right = INT32_MIN, bottom = INT32_MIN;

    void Widen(Pixel point);
    void Widen(const Box& other);
    bool IsEmpty() const { return left > right; }
  };

  void UsePen(Pen pen) override;
  void DrawRun(std::span<const Pixel> points) override;
  void PlaceText(Pixel point, std::string_view text) override;

  // A record is assembled in record_, whose memory is reused by the next one.
  void BeginRecord(uint32_t type);
  void Put16(uint32_t value);
  void Put32(uint32_t value);
  void PutSigned(int32_t value) { Put32(static_cast<uint32_t>(value)); }
  void PutPoint(Pixel point);
  void PutBox(const Box& box);
  void PutText(std::u16string_view text);
  void SetRecordSize();
  void EndRecord();
  void PutHeader();

  OutputFile* file_;
  OutputBuffer buffer_;
  std::string record_;
  uint64_t bytes_ = 0;  // of all finished records
  uint32_t records_ = 0;
  uint32_t objects_ = 0;  // number created so far; the first has number 1
  std::array<uint32_t, kPenCount>
      penObject_{};  // number of each pen's object, 0 before its first use
  Box bounds_;
};

}  // namespace tvx
