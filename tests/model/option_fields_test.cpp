// The table of the parameters agrees with the page that describes them.
#include "model/option_fields.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "base/format.h"

namespace tvx {
namespace {

std::string Page() {
  std::ifstream file(TVX_DOCS "/parameters.md");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream text(line);
  for (std::string cell; std::getline(text, cell, '|');) {
    const size_t first = cell.find_first_not_of(' ');
    cells.push_back(
        first == cell.npos ? "" : cell.substr(first, cell.find_last_not_of(' ') + 1 - first));
  }
  return cells;
}

// The cells of the page's first table, by that of the name. Other tables follow the first heading.
std::map<std::string, std::vector<std::string>> PageRows() {
  std::map<std::string, std::vector<std::string>> rows;
  std::istringstream page(Page());
  for (std::string line; std::getline(page, line) && !line.starts_with("## ");) {
    if (line.starts_with("| [")) rows[CellsOf(line)[1]] = CellsOf(line);
  }
  return rows;
}

std::string Joined(const FeedField& field, const char* between, auto textOf) {
  std::string text;
  for (const FeedField& one : GroupOf(field)) text += (text.empty() ? "" : between) + textOf(one);
  return text;
}

// "[`A`, `B`](#a-b)"
std::string NameCell(const FeedField& field) {
  const auto name = [](const FeedField& one) { return std::string(one.name); };
  std::string anchor = Joined(field, "-", name);
  for (char& letter : anchor) letter = static_cast<char>(std::tolower(letter));
  return "[`" + Joined(field, "`, `", name) + "`](#" + anchor + ")";
}

// The caption of the control; sliders share one of their group.
std::string LabelOf(const FeedField& field) {
  if (field.dialog == FeedDialog::kSetupSlider) return "가중치";
  const std::string caption = field.caption.korean;
  return caption.substr(0, caption.find_last_not_of(' ') + 1);
}

std::string DefaultCell(const FeedField& field) {
  const std::string unit = field.unit;
  return Joined(field, ", ",
                [](const FeedField& one) {
                  const std::string text = ValueText(FeedOptions(), one, ShortestFloat);
                  return text.empty() ? "none" : text;
                }) +
         (unit.starts_with("mm") ? " " : "") + unit;
}

std::string RangeCell(const FeedField& field) {
  const auto& [lowest, highest] = field.range;
  if (std::isinf(lowest)) return "";
  return ShortestDouble(lowest) +
         (std::isinf(highest) ? " or more" : " to " + ShortestDouble(highest));
}

// "C" for condition files, "O" for option lines.
std::string FilesCell(const FeedField& field) {
  const bool inCondition =
      field.conditionLine.number > 0 && field.conditionLine.reading != LineReading::kNever;
  const bool inOptionLine =
      field.word != nullptr || field.member == FeedMember(&FeedOptions::AfaEnabled);
  return std::string(inCondition ? "C" : "") + (inCondition && inOptionLine ? ", " : "") +
         (inOptionLine ? "O" : "");
}

TEST(OptionFields, PageHasTheNamesDefaultsRangesAndFiles) {
  auto rows = PageRows();
  const std::string page = Page();
  for (size_t i = 0; i < FeedFields().size(); i += FeedFields()[i].groupSize) {
    const FeedField& field = FeedFields()[i];
    const auto row = rows.extract(NameCell(field));
    ASSERT_FALSE(row.empty()) << "docs/parameters.md has no row " << NameCell(field);
    ASSERT_EQ(row.mapped().size(), 6U) << field.name;
    EXPECT_NE(row.mapped()[2].find(LabelOf(field)), std::string::npos) << row.mapped()[2];
    EXPECT_EQ(row.mapped()[3], DefaultCell(field)) << field.name;
    EXPECT_EQ(row.mapped()[4], RangeCell(field)) << field.name;
    EXPECT_EQ(row.mapped()[5], FilesCell(field)) << field.name;
    const std::string heading =
        Joined(field, ", ", [](const auto& one) { return one.name + std::string(); });
    EXPECT_NE(page.find("\n## " + heading + "\n"), page.npos) << heading;
  }
  for (const auto& [name, cells] : rows) ADD_FAILURE() << "no parameter " << name;
}

// Two parameters with one line would change places without a word.
TEST(OptionFields, EachLineOfAFileAndEachWordHasOneParameter) {
  std::set<int> conditionLines = {24};  // the spindle speed
  std::set<int> parameterLines = {1, 2, 4, 5, 6};
  std::set<std::string> words;
  for (const FeedField& field : FeedFields()) {
    const int condition = field.conditionLine.number;
    const int parameter = field.parameterLine.number;
    EXPECT_TRUE(condition == 0 || conditionLines.insert(condition).second) << field.name;
    EXPECT_TRUE(parameter == 0 || parameterLines.insert(parameter).second) << field.name;
    EXPECT_TRUE(field.word == nullptr || words.insert(field.word).second) << field.name;
  }
}

}  // namespace
}  // namespace tvx
