// From the blocks of a loaded program to its lines and back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tvx {

// A line leaves one block, an arc two, so the places of the arcs are all there is to store. They
// are noted while the program is read: later a repair may have taken their types from the records.
//
// The lines come in chunks of 4096. Few arcs of a chunk are a list of their lines, 16 bits each;
// many are one bit for each line. Both take less than one bit for each block.
class LineMap {
 public:
  // The line, from 1, that left a block; 0 for a block that no line left.
  uint32_t LineOf(uint32_t block) const;
  // The first block that a line, from 1, left; nothing for a line that left none because the
  // program ends before it or the store was full.
  std::optional<uint32_t> FirstBlockOf(uint64_t line) const;

  // Number of blocks, and of the lines that left them.
  uint32_t blocks() const { return blocks_; }
  uint32_t lines() const { return lines_; }
  // Memory in use beside the object itself, bytes.
  size_t Bytes() const;

 private:
  friend class LineMapBuilder;

  static constexpr uint32_t kChunkLines = 4096;
  static constexpr uint32_t kUnitBits = 16;

  struct Chunk {
    uint32_t firstBlock;
    uint32_t begin;  // of its places
  };
  // The arcs of one chunk.
  struct Arcs {
    const uint16_t* places;
    uint32_t count;
    uint32_t lines;  // of the chunk
    bool isList;     // else one bit for each line
  };

  static uint32_t Units(uint32_t lines) { return (lines + kUnitBits - 1) / kUnitBits; }
  static bool FitsList(uint32_t arcs, uint32_t lines) { return arcs <= Units(lines); }
  Arcs ArcsOf(size_t chunk) const;

  std::vector<Chunk> chunks_;
  std::vector<uint16_t> places_;
  uint32_t blocks_ = 0;
  uint32_t lines_ = 0;
};

// Makes the map of a program while it is read. Every arc of every program passes through here: a
// few instructions each.
class LineMapBuilder {
 public:
  // An arc whose first record is this block, after those of all earlier calls.
  void AddArc(uint32_t block) {
    uint32_t place = block - firstBlock_ - openArcs_;  // its line in the open chunk
    if (place >= LineMap::kChunkLines) [[unlikely]]
      place = EndChunksBefore(place);
    open_[place / kWordBits] |= uint64_t{1} << place % kWordBits;
    ++openArcs_;
  }

  // The map of a program of so many blocks.
  LineMap Finish(uint32_t blocks);

 private:
  static constexpr uint32_t kWordBits = 64;

  // Ends the chunks up to that of a line, which is given by its place in the open one. Returns its
  // place in its own.
  uint32_t EndChunksBefore(uint32_t place);
  // Ends the open chunk of so many lines.
  void EndChunk(uint32_t lines);

  LineMap map_;
  uint32_t firstBlock_ = 0;                                        // of the open chunk
  uint32_t openArcs_ = 0;                                          // of the open chunk
  std::array<uint64_t, LineMap::kChunkLines / kWordBits> open_{};  // a bit for each of its lines
};

}  // namespace tvx
