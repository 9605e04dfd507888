// The text of the program in the store of a window.
#pragma once

#include <cstdint>
#include <memory>

#include "insight/source_lines.h"

namespace tvx {

class ViewText {
 public:
  // The lines of the program, which stay those of the file as it was loaded. The program, always
  // the same object, and the files have to outlive this one. Valid until the next load.
  SourceLines* LinesOf(const NcProgram& program, Files* files) {
    if (lines_ == nullptr || edition_ != program.edition) {
      lines_ = std::make_unique<SourceLines>(&program.source, files);
      edition_ = program.edition;
    }
    return lines_.get();
  }

 private:
  std::unique_ptr<SourceLines> lines_;
  uint32_t edition_ = 0;
};

}  // namespace tvx
