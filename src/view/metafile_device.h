// Writes a drawing as a Windows enhanced metafile. The file is written in one pass and the header
// is completed at the end, so that a drawing of millions of lines needs no memory of its own.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "view/output_buffer.h"
#include "view/polyline_device.h"

namespace tvx {

class MetafileDevice final : public PolylineDevice {
 public:
  // Writes the start of the file. Without a file (null) all calls are without effect. The file has
  // to outlive the device.
  explicit MetafileDevice(OutputFile* file);

  // A metafile has no background, the page stays as its viewer shows it: does nothing.
  void FillRectangle(int32_t, int32_t, int32_t, int32_t, Colour) override {}

  // Writes the end of the file and completes its header; no calls may follow. False if anything
  // failed or the file has outgrown the 4 GB that its header can tell. The caller commits the file.
  bool Finish();

 private:
  // A rectangle with all four edges inside it.
  struct Box {
    int32_t left = INT32_MAX, top = INT32_MAX, right = INT32_MIN, bottom = INT32_MIN;

    void Widen(Pixel point);
    void Widen(const Box& other);
    bool IsEmpty() const { return left > right; }
  };

  void UsePen(Pen pen) override;
  void DrawRun(std::span<const Pixel> points) override;
  void PlaceText(Pixel point, std::string_view text) override;

  // A record is put together in record_, which keeps its memory from one to the next.
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
  uint32_t objects_ = 0;                         // created so far; their numbers start at 1
  std::array<uint32_t, kPenCount> penObject_{};  // number of each pen's object, 0 for none yet
  Box bounds_;
};

}  // namespace tvx
