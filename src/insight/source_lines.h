// The text of a loaded program, line by line, read from its file on demand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/message.h"
#include "model/loader.h"
#include "platform/files/files.h"

namespace tvx {

// Lines are numbered from 1, blocks from 0. An object serves one load: make a new one after the
// next.
//
// What reads the file fails with kNoProgram if the blocks in the store come from no file, with
// kChanged if the file is not the one that was loaded (size or time of the last write differ), and
// with another kind if it is gone, cannot be opened or ends early.
class SourceLines {
 public:
  // Of a longer line this much is read, bytes.
  static constexpr size_t kLongestText = 4096;

  // Both have to outlive the object.
  SourceLines(const ProgramSource* source, Files* files) : source_(*source), files_(files) {}

  // The line that left a block, 0 for none; and the first block that a line left. From the map that
  // the load made: no file is read.
  uint32_t LineOf(uint32_t block) const { return source_.lines.LineOf(block); }
  std::optional<uint32_t> FirstBlockOf(uint64_t line) const {
    return source_.lines.FirstBlockOf(line);
  }

  // The number of lines of the file. A last line without a line feed, which the load does not read,
  // is one of them.
  Result<uint64_t> Count();

  // The texts of up to `count` lines from `first` on, without their line ends: fewer at the end of
  // the file, none after it. In UTF-8, decoded from CP949 unless the bytes of the line are UTF-8
  // already.
  //
  // The first call reads the whole file once and stores the offset of every 4096th line.
  Result<std::vector<std::string>> Read(uint64_t first, size_t count);

  // The feed in force at a block of the program as it was loaded, mm/min, whatever an adjustment
  // has made of it since: read again from the lines before the block by the parser of the load. A
  // block that no line left has none. At most some 4096 lines are read.
  Result<std::optional<int32_t>> ReadFeed(uint32_t block);

 private:
  // Opens the file as it was at the load, and makes the table of offsets if there is none.
  Result<std::unique_ptr<InputFile>> Open();
  Status ReadOffsets(InputFile* file);
  // The file ends before a line that it had when it was loaded.
  Status EndsEarly(const InputFile& file) const;

  const ProgramSource& source_;
  Files* files_;
  std::vector<uint64_t>
      offsets_;  // of the lines 1, 4097, 8193 and so on; empty before the first use
  uint64_t lines_ = 0;
};

// Why the text could not be read, in words for an error line.
Message SourceProblem(const Status& failure);

}  // namespace tvx
