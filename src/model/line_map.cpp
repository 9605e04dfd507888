// Finds lines and blocks through the positions of the arcs.
#include "model/line_map.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tvx {

namespace {

// How many of the ascending lines are below `line`.
uint32_t CountBelow(const uint16_t* lines, uint32_t count, uint32_t line) {
  return static_cast<uint32_t>(std::lower_bound(lines, lines + count, line) - lines);
}

uint32_t BitCount(unsigned bits) {
  return static_cast<uint32_t>(std::popcount(bits));
}

}  // namespace

LineMap::Arcs LineMap::ArcsOf(size_t chunk) const {
  const Chunk& start = chunks_[chunk];
  const bool isLast = chunk + 1 == chunks_.size();
  const uint32_t blocks = (isLast ? blocks_ : chunks_[chunk + 1].firstBlock) - start.firstBlock;
  const uint32_t lines = isLast ? lines_ - static_cast<uint32_t>(chunk) * kChunkLines : kChunkLines;
  const uint32_t count = blocks - lines;
  return {places_.data() + start.begin, count, lines, FitsList(count, lines)};
}

uint32_t LineMap::LineOf(uint32_t block) const {
  if (block >= blocks_) return 0;
  const auto startsBehind = [](uint32_t b, const Chunk& chunk) { return b < chunk.firstBlock; };
  const auto next = std::upper_bound(chunks_.begin(), chunks_.end(), block, startsBehind);
  const auto chunk = static_cast<size_t>(next - chunks_.begin()) - 1;
  const Arcs arcs = ArcsOf(chunk);
  const uint32_t first = static_cast<uint32_t>(chunk) * kChunkLines + 1;
  uint32_t left = block - chunks_[chunk].firstBlock;
  if (arcs.isList) {
    // Block `left` of the chunk is after the second records of so many arcs; arc i has its second
    // record i + 1 blocks after its line's number.
    uint32_t low = 0, high = arcs.count;
    while (low < high) {
      const uint32_t middle = (low + high) / 2;
      if (arcs.places[middle] + middle + 1 <= left) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return first + left - low;
  }
  uint32_t line = 0;
  for (; left >= kUnitBits + BitCount(arcs.places[line / kUnitBits]); line += kUnitBits) {
    left -= kUnitBits + BitCount(arcs.places[line / kUnitBits]);
  }
  for (;; ++line) {
    const uint32_t blocks = 1 + (arcs.places[line / kUnitBits] >> line % kUnitBits & 1U);
    if (left < blocks) return first + line;
    left -= blocks;
  }
}

std::optional<uint32_t> LineMap::FirstBlockOf(uint64_t line) const {
  if (line == 0 || line > lines_) return std::nullopt;
  const auto index = static_cast<uint32_t>(line - 1);
  const size_t chunk = index / kChunkLines;
  const uint32_t place = index % kChunkLines;
  const Arcs arcs = ArcsOf(chunk);
  uint32_t before = 0;
  if (arcs.isList) {
    before = CountBelow(arcs.places, arcs.count, place);
  } else {
    const uint32_t unit = place / kUnitBits;
    for (uint32_t i = 0; i < unit; ++i) before += BitCount(arcs.places[i]);
    before += BitCount(arcs.places[unit] & ((1U << place % kUnitBits) - 1));
  }
  return chunks_[chunk].firstBlock + place + before;
}

size_t LineMap::Bytes() const {
  return chunks_.capacity() * sizeof(Chunk) + places_.capacity() * sizeof(uint16_t);
}

void LineMapBuilder::EndChunk(uint32_t lines) {
  std::vector<uint16_t>& places = map_.places_;
  map_.chunks_.push_back({firstBlock_, static_cast<uint32_t>(places.size())});
  if (LineMap::FitsList(openArcs_, lines)) {
    for (uint32_t word = 0; openArcs_ > 0 && word < open_.size(); ++word) {
      for (uint64_t bits = open_[word]; bits != 0; bits &= bits - 1) {
        const uint32_t bit = static_cast<uint32_t>(std::countr_zero(bits));
        places.push_back(static_cast<uint16_t>(word * kWordBits + bit));
      }
    }
  } else {
    for (uint32_t line = 0; line < lines; line += LineMap::kUnitBits) {
      places.push_back(static_cast<uint16_t>(open_[line / kWordBits] >> line % kWordBits));
    }
  }
  open_.fill(0);
  firstBlock_ += lines + openArcs_;
  openArcs_ = 0;
}

uint32_t LineMapBuilder::EndChunksBefore(uint32_t place) {
  for (; place >= LineMap::kChunkLines; place -= LineMap::kChunkLines) {
    EndChunk(LineMap::kChunkLines);
  }
  return place;
}

LineMap LineMapBuilder::Finish(uint32_t blocks) {
  uint32_t left = EndChunksBefore(blocks - firstBlock_ - openArcs_);
  if (left > 0) EndChunk(left);
  map_.blocks_ = blocks;
  map_.lines_ = static_cast<uint32_t>(map_.chunks_.size()) * LineMap::kChunkLines;
  if (left > 0) map_.lines_ -= LineMap::kChunkLines - left;
  map_.chunks_.shrink_to_fit();
  map_.places_.shrink_to_fit();
  return std::move(map_);
}

}  // namespace tvx
