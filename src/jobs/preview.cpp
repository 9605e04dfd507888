// Splits the head and the tail of a file into rows.

#include "jobs/preview.h"

#include <algorithm>

#include "base/text.h"

namespace tvx {

namespace {

constexpr size_t kPieceBytes = 79;  // of a line read at once
constexpr int kHeadPieces = 30;
constexpr size_t kTailBytes = 200;

// Reads pieces of a text: a line with its line feed, or as much of it as fits.
class PieceReader {
 public:
  explicit PieceReader(std::string_view bytes) : rest_(bytes) {}

  bool Next(std::string_view* piece) {
    if (rest_.empty()) return false;
    const size_t lineFeed = rest_.substr(0, kPieceBytes).find('\n');
    size_t length =
        lineFeed == std::string_view::npos ? std::min(kPieceBytes, rest_.size()) : lineFeed + 1;
    // CR LF is one line end and is not split.
    if (rest_.substr(length - 1).starts_with("\r\n")) ++length;
    *piece = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return true;
  }

 private:
  std::string_view rest_;
};

std::string RowOf(std::string_view piece) {
  return DecodeCp949(piece.substr(0, piece.find_last_not_of(" \t\n\v\f\r") + 1));
}

}  // namespace

std::vector<std::string> PreviewLines(std::string_view bytes) {
  std::vector<std::string> rows;
  std::string_view piece;
  PieceReader head(bytes);
  for (int i = 0; i < kHeadPieces && head.Next(&piece); ++i) rows.push_back(RowOf(piece));
  rows.insert(rows.end(), 3, " .");
  if (bytes.size() < kTailBytes) return rows;
  PieceReader tail(bytes.substr(bytes.size() - kTailBytes));
  tail.Next(&piece);  // usually an incomplete line
  while (tail.Next(&piece)) rows.push_back(RowOf(piece));
  return rows;
}

}  // namespace tvx
