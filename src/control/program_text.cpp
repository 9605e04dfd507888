#include "control/program_text.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

ProgramText::ProgramText(InputFile* file, Progress* progress)
    : file_(file), progress_(progress), fileBytes_(file->Stamp().size) {}

void ProgramText::Seek(const TextPlace& place) {
  ahead_ = place;
  next_ = end_ = nullptr;
}

bool ProgramText::StepProgress(uint64_t offset) {
  farthest_ = std::max(farthest_, std::min(offset, fileBytes_));
  return progress_->Step(farthest_, fileBytes_);
}

bool ProgramText::Load() {
  Window* window = nullptr;
  Window* oldest = windows_.data();
  for (Window& candidate : windows_) {
    const uint64_t at = ahead_.offset - candidate.begin;
    if (ahead_.offset >= candidate.begin && at < candidate.whole && (at == 0 || !candidate.isCut)) {
      window = &candidate;
      break;
    }
    if (candidate.lastUse < oldest->lastUse) oldest = &candidate;
  }
  if (window == nullptr) {
    if (!StepProgress(ahead_.offset)) return false;
    window = oldest;
    Fill(window, ahead_.offset);
    if (window->whole == 0) return false;
  }
  window->lastUse = ++uses_;
  next_ = window->bytes.data() + (ahead_.offset - window->begin);
  end_ = window->bytes.data() + window->whole;
  isCut_ = window->isCut;
  isSpecial_ = isCut_ || ahead_.offset == 0;
  return true;
}

// Reads until the window holds a whole line, the end of the file or as much as is read of a line.
void ProgramText::Fill(Window* window, uint64_t offset) {
  window->begin = offset;
  window->isCut = false;
  size_t filled = 0;
  for (size_t size = kWindowBytes; size <= kLongestLine; size *= 2) {
    if (window->bytes.size() < size + 1) window->bytes.resize(size + 1);
    filled += ReadAll(offset + filled, window->bytes.data() + filled, size - filled);
    const size_t lineFeed = std::string_view(window->bytes.data(), filled).rfind('\n');
    const bool isEnd = filled < size;
    if (isEnd || lineFeed != std::string_view::npos) {
      window->whole = isEnd ? filled : lineFeed + 1;
      window->bytes[filled] = '\n';
      return;
    }
  }
  window->whole = filled;
  window->bytes[filled] = '\n';
  window->isCut = true;
}

size_t ProgramText::ReadAll(uint64_t offset, char* buffer, size_t size) {
  size_t filled = 0;
  while (filled < size) {
    const size_t count = file_->ReadAt(offset + filled, buffer + filled, size - filled);
    if (count == 0) {
      isShort_ = isShort_ || offset + filled < fileBytes_;
      break;
    }
    filled += count;
  }
  return filled;
}

void ProgramText::FinishSpecial(std::string_view* line) {
  isSpecial_ = false;
  if (isCut_) ahead_.offset = AfterLineFeed(here_.offset + line->size());
  if (here_.offset == 0 && line->starts_with(kByteOrderMark)) {
    line->remove_prefix(kByteOrderMark.size());
  }
}

// The offset after the first line feed from `offset` on.
uint64_t ProgramText::AfterLineFeed(uint64_t offset) {
  std::vector<char> bytes(kWindowBytes);
  while (StepProgress(offset)) {
    const size_t count = ReadAll(offset, bytes.data(), bytes.size());
    const size_t lineFeed = std::string_view(bytes.data(), count).find('\n');
    if (lineFeed != std::string_view::npos) return offset + lineFeed + 1;
    offset += count;
    if (count < bytes.size()) break;
  }
  return offset;
}

uint64_t ProgramText::CountLines() {
  if (isCounted_) return lines_;
  isCounted_ = true;
  std::vector<char> bytes(kWindowBytes);
  uint64_t offset = 0;
  char last = '\n';
  while (StepProgress(offset)) {
    const size_t count = ReadAll(offset, bytes.data(), bytes.size());
    if (count == 0) break;
    lines_ += static_cast<uint64_t>(
        std::count(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(count), '\n'));
    last = bytes[count - 1];
    offset += count;
  }
  if (last != '\n') ++lines_;
  return lines_;
}

}  // namespace tvx
