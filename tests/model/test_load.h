// Loads programs from texts, and a memory that runs out.
#pragma once

#include <string>

#include "model/loader.h"
#include "support/block_list.h"
#include "support/memory_files.h"

namespace tvx {

struct TestLoad {
  StatusKind Load(const std::string& text, MemoryFiles* files) {
    files->Put("c:\\a.nc", text);
    return LoadNcFile("c:\\a.nc", &program, &states, &job, files).kind();
  }
  StatusKind Load(const std::string& text) {
    MemoryFiles files;
    return Load(text, &files);
  }
  std::string Blocks() const { return BlockList(program.store); }

  NcProgram program;
  ParserStates states = {};
  JobRecord job = {};
};

// Runs out after one page of 2041 blocks.
class OnePageMemory : public PageMemory {
 public:
  void* Allocate() override { return given_++ == 0 ? ProcessPageMemory()->Allocate() : nullptr; }
  void Free(void* page) override { ProcessPageMemory()->Free(page); }
  int Tries() const { return given_; }

 private:
  int given_ = 0;
};

}  // namespace tvx
