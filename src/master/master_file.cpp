// Reads and writes master files piece by piece, so that one of any size takes little memory.
#include "master/master_file.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "base/scan.h"

namespace tvx {

namespace {

constexpr size_t kReservedBytes = 100;
constexpr size_t kHeaderBytes = 156;
constexpr size_t kCellBytes = 6;
constexpr int32_t kLastHeaderWord = 4;

// The header from byte 100 on, 4 bytes each: a field of the grid, or a number without meaning,
// which reading skips.
using HeaderWord = std::variant<float MasterGrid::*, int32_t MasterGrid::*, int32_t>;
constexpr HeaderWord kHeader[] = {
    &MasterGrid::OriginX,    &MasterGrid::OriginY, &MasterGrid::MinZ,     &MasterGrid::MaxX,
    &MasterGrid::MaxY,       &MasterGrid::MaxZ,    &MasterGrid::ToolSize, &MasterGrid::CellSize,
    &MasterGrid::CellCount,  &MasterGrid::NX,      &MasterGrid::NY,       0,
    &MasterGrid::ModelBuilt, kLastHeaderWord,
};
static_assert(kReservedBytes + 4 * std::size(kHeader) == kHeaderBytes);

// Numbers in a file are little-endian on every machine.
template <typename Unsigned>
void Append(Unsigned bits, std::string* bytes) {
  for (size_t i = 0; i < sizeof(bits); ++i) bytes->push_back(static_cast<char>(bits >> (8 * i)));
}

template <typename Unsigned>
Unsigned Take(std::string_view bytes, size_t offset) {
  Unsigned bits = 0;
  for (size_t i = 0; i < sizeof(bits); ++i) {
    const auto byte = static_cast<Unsigned>(static_cast<unsigned char>(bytes[offset + i]));
    bits = static_cast<Unsigned>(bits | byte << (8 * i));
  }
  return bits;
}

std::string HeaderBytes(const MasterGrid& grid) {
  std::string bytes(kReservedBytes, '\0');
  for (const HeaderWord& word : kHeader) {
    const uint32_t bits = std::visit(
        [&](auto item) {
          if constexpr (std::is_same_v<decltype(item), int32_t>) {
            return std::bit_cast<uint32_t>(item);
          } else {
            return std::bit_cast<uint32_t>(grid.*item);
          }
        },
        word);
    Append(bits, &bytes);
  }
  return bytes;
}

void TakeHeader(std::string_view bytes, MasterGrid* grid) {
  size_t offset = kReservedBytes;
  for (const HeaderWord& word : kHeader) {
    const auto bits = Take<uint32_t>(bytes, offset);
    if (const auto* real = std::get_if<float MasterGrid::*>(&word)) {
      grid->** real = std::bit_cast<float>(bits);
    } else if (const auto* whole = std::get_if<int32_t MasterGrid::*>(&word)) {
      grid->** whole = std::bit_cast<int32_t>(bits);
    }
    offset += 4;
  }
}

bool AllFieldsFinite(const MasterGrid& grid) {
  for (const HeaderWord& word : kHeader) {
    const auto* real = std::get_if<float MasterGrid::*>(&word);
    if (real != nullptr && !std::isfinite(grid.**real)) return false;
  }
  return true;
}

// Master files have no signature: a header with counts that fit each other is one.
bool IsMasterHeader(const MasterGrid& header) {
  return header.NX > 0 && header.NY > 0 &&
         header.CellCount == static_cast<int64_t>(header.NX) * header.NY &&
         AllFieldsFinite(header) && header.CellSize > 0;
}

uint64_t FileSize(const MasterGrid& header) {
  return kHeaderBytes + kCellBytes * static_cast<uint64_t>(header.CellCount);
}

// Reads exactly `size` bytes. Returns false if there are fewer.
bool ReadBytes(InputFile* file, size_t size, std::string* bytes) {
  bytes->resize(size);
  size_t done = 0;
  while (done < size) {
    const size_t got = file->Read(bytes->data() + done, size - done);
    if (got == 0) return false;
    done += got;
  }
  return true;
}

// Cells are read and written in pieces of this number.
constexpr size_t kCellsAtOnce = 10'000;

bool ReadCells(InputFile* file, MasterGrid* grid) {
  const auto count = static_cast<size_t>(grid->CellCount);
  std::string bytes;
  for (size_t first = 0; first < count; first += kCellsAtOnce) {
    const size_t cells = std::min(kCellsAtOnce, count - first);
    if (!ReadBytes(file, cells * kCellBytes, &bytes)) return false;
    for (size_t i = 0; i < cells; ++i) {
      MasterCell& cell = grid->Cells[first + i];
      cell.z = std::bit_cast<float>(Take<uint32_t>(bytes, i * kCellBytes));
      cell.angle = std::bit_cast<int16_t>(Take<uint16_t>(bytes, i * kCellBytes + 4));
      if (!std::isfinite(cell.z)) return false;
    }
  }
  return true;
}

// Why fewer bytes than expected were read, or cells that no model has.
Status WhyNotRead(const InputFile& file, const std::string& path) {
  const Status read = file.status();
  return read.ok() ? Status(StatusKind::kWrongFormat, path) : read;
}

Status WriteCells(const MasterGrid& grid, OutputFile* file) {
  const auto count = static_cast<size_t>(grid.CellCount);
  std::string bytes;
  for (size_t first = 0; first < count; first += kCellsAtOnce) {
    bytes.clear();
    for (size_t i = first; i < std::min(first + kCellsAtOnce, count); ++i) {
      Append(std::bit_cast<uint32_t>(grid.Cells[i].z), &bytes);
      Append(std::bit_cast<uint16_t>(grid.Cells[i].angle), &bytes);
    }
    if (Status written = file->Write(bytes); !written.ok()) return written;
  }
  return {};
}

}  // namespace

Status WriteMasterFile(const std::string& path, const MasterGrid& grid, Files* files) {
  if (grid.Cells.Empty()) return {StatusKind::kNoContent, path};
  const Result<std::unique_ptr<OutputFile>> file = files->Create(path);
  if (!file.ok()) return file.status;
  Status written = file.value->Write(HeaderBytes(grid));
  if (written.ok()) written = WriteCells(grid, file.value.get());
  return written.ok() ? file.value->Commit() : written;
}

bool IsMasterName(std::string_view path) {
  return path.size() > kMasterEnding.size() && EndsWithNoCase(path, kMasterEnding);
}

bool IsMasterFile(std::string_view start) {
  if (start.size() < kHeaderBytes) return false;
  MasterGrid header;
  TakeHeader(start, &header);
  return IsMasterHeader(header);
}

Status ReadMasterFile(const std::string& path, MasterGrid* grid, Files* files) {
  const Result<std::unique_ptr<InputFile>> opened = files->OpenForReading(path);
  if (!opened.ok()) return opened.status;
  InputFile* const file = opened.value.get();
  std::string header;
  if (!ReadBytes(file, kHeaderBytes, &header)) return WhyNotRead(*file, path);
  MasterGrid loaded(grid->Cells.allocator());
  TakeHeader(header, &loaded);
  if (!IsMasterHeader(loaded) || file->Stamp().size != FileSize(loaded)) {
    return {StatusKind::kWrongFormat, path};
  }
  if (!loaded.Cells.Allocate(loaded.CellCount)) return {StatusKind::kNoMemory, path};
  if (!ReadCells(file, &loaded)) return WhyNotRead(*file, path);
  IndexCells(&loaded);
  loaded.path = path;
  *grid = std::move(loaded);
  return {};
}

}  // namespace tvx
