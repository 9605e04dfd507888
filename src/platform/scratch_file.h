// Files for libraries that write to a path of this machine.
#pragma once

#include <cstdint>
#include <string>

#include "platform/descriptor.h"

namespace tvx {

// A file in memory, which no folder holds. It starts empty and ends with the object.
class ScratchFile {
 public:
  ScratchFile();

  bool IsOpen() const { return descriptor_.IsOpen(); }
  // For this process, as long as the object lives.
  std::string Path() const;
  // Reads all of it. Returns false, with *bytes alone, if that fails.
  bool Read(std::string* bytes) const;

 private:
  Descriptor descriptor_;
};

// The folder for temporary files; empty if there is none.
std::string FolderForTemporaries();

// Bytes that are free in it.
uint64_t TemporarySpace();

}  // namespace tvx
