// The rows of a table of cases: for (const auto& [input, outcome] : Rows<int, int>{{1, 2}, {3,
// 4}}).
#pragma once

#include <tuple>
#include <vector>

namespace tvx {

template <typename... Columns>
using Rows = std::vector<std::tuple<Columns...>>;

}  // namespace tvx
