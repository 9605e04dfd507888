// Edit distance between a misspelt name and the known ones.
#include "cli/nearest_name.h"

#include <algorithm>
#include <cstddef>

#include "cli/tool_text.h"

namespace tvx {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Number of letters to insert, drop, replace or swap with their neighbour to get from a to b.
size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<size_t> before(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const bool same = Lower(a[i - 1]) == Lower(b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0U : 1U)});
      const bool swapped = i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
                           Lower(a[i - 2]) == Lower(b[j - 1]);
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before.swap(last);
    last.swap(row);
  }
  return last[b.size()];
}

}  // namespace

std::string NearestName(std::string_view word, const std::vector<std::string>& names) {
  std::string nearest;
  // A third of the letters wrong is still a slip; more is another word.
  size_t best = std::max<size_t>(1, word.size() / 3) + 1;
  for (const std::string& name : names) {
    const size_t distance = EditDistance(word, name);
    if (distance < best) {
      best = distance;
      nearest = name;
    }
  }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& names) {
  const std::string nearest = NearestName(word, names);
  if (nearest.empty()) return "";
  return Say({". 혹시 '{name}'입니까?", "; did you mean '{name}'?"}, {{"name", nearest}});
}

}  // namespace tvx
