#include "control/program_index.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <unordered_map>

#include "control/macro_statement.h"
#include "control/word_scanner.h"

namespace tvx {
namespace {

constexpr double kNoNumber = -1;

// The number of a label: a whole number from 0 on.
std::optional<uint32_t> LabelNumber(double number) {
  if (!(number >= 0 && number <= WordLine::kLargest) || number != std::floor(number)) return {};
  return static_cast<uint32_t>(number);
}

}  // namespace

bool EndsHead(const WordLine& words) {
  const auto isOne = [](const std::vector<double>& values, std::initializer_list<double> numbers) {
    return std::any_of(values.begin(), values.end(), [&](double value) {
      return std::find(numbers.begin(), numbers.end(), value) != numbers.end();
    });
  };
  return isOne(words.mWords, {2, 30, 97, 98, 99}) || isOne(words.gWords, {65});
}

// Notes everything first: where a SUB ends is known at the end only.
class ProgramIndex::Builder {
 public:
  explicit Builder(ProgramIndex* index) : index_(*index) {}

  void Line(const TextPlace& place, std::string_view text) {
    words_.Clear();
    OKeyword keyword;
    const LineForm form = ScanWords(text.data(), &words_, &keyword);
    if (form == LineForm::kOKeyword) NoteSub(keyword, place);
    if (words_.Has('N')) Note(words_['N'], place, &index_.numbers_);
    if (form == LineForm::kMacro) Macro(place, text);
    if (form == LineForm::kOKeyword) return;
    if (words_.Has('O')) index_.programs_.push_back({words_['O'], place, place.offset});
    if (EndsHead(words_)) headEnds_.push_back(place.offset);
  }

  void Finish() {
    FindSubs();
    std::erase_if(index_.programs_, [&](const IndexedProgram& p) { return IsInSub(p.heading); });
    std::erase_if(headEnds_, [&](uint64_t offset) { return IsInSub(offset); });
    JoinHead();
    for (size_t i = 0; i < index_.programs_.size(); ++i) {
      index_.byNumber_.try_emplace(index_.programs_[i].number, i);
    }
    index_.byNumber_.erase(kNoNumber);
    for (Labels* labels : {&index_.numbers_, &index_.loopBegins_, &index_.loopEnds_}) {
      std::erase_if(*labels, [&](const Label& label) { return IsInSub(label.offset); });
      const auto isBefore = [](const Label& a, const Label& b) {
        return std::tie(a.number, a.offset) < std::tie(b.number, b.offset);
      };
      // Programs mostly number their lines upwards.
      if (!std::is_sorted(labels->begin(), labels->end(), isBefore)) {
        std::sort(labels->begin(), labels->end(), isBefore);
      }
    }
  }

 private:
  struct SubLine {
    OKeyword keyword;
    TextPlace place;
  };

  void Macro(const TextPlace& place, std::string_view text) {
    MacroStatement statement;
    if (!CheckMacro(text.data(), &statement)) return;
    if (statement.kind == MacroStatement::Kind::kWhile) {
      Note(statement.number, place, &index_.loopBegins_);
    } else if (statement.kind == MacroStatement::Kind::kEnd) {
      Note(statement.number, place, &index_.loopEnds_);
    } else if (statement.kind == MacroStatement::Kind::kWords) {
      words_.Clear();
      ReadMacroWords(text.data(), &words_);
    }
  }

  void Note(double number, const TextPlace& place, Labels* labels) {
    const std::optional<uint32_t> whole = LabelNumber(number);
    if (whole) labels->push_back({*whole, static_cast<uint32_t>(place.line), place.offset});
  }

  void NoteSub(const OKeyword& keyword, const TextPlace& place) {
    if (keyword.kind != OKeyword::Kind::kOther) subLines_.push_back({keyword, place});
  }

  // Pairs each SUB with the next ENDSUB of its name. The lines between them belong to no program.
  void FindSubs() {
    std::unordered_map<uint64_t, TextPlace> nextEnds;
    std::vector<Sub> subs;
    for (auto line = subLines_.rbegin(); line != subLines_.rend(); ++line) {
      if (line->keyword.kind == OKeyword::Kind::kEndSub) {
        nextEnds[line->keyword.name] = line->place;
      } else if (const auto end = nextEnds.find(line->keyword.name); end != nextEnds.end()) {
        subs.push_back({line->place.offset, end->second});
      }
    }
    for (auto sub = subs.rbegin(); sub != subs.rend(); ++sub) {
      const bool isInside = !index_.subs_.empty() && sub->begin <= index_.subs_.back().end.offset;
      if (!isInside) index_.subs_.push_back(*sub);
    }
  }

  bool IsInSub(uint64_t offset) const {
    const auto after = std::upper_bound(index_.subs_.begin(), index_.subs_.end(), offset,
                                        [](uint64_t at, const Sub& sub) { return at < sub.begin; });
    return after != index_.subs_.begin() && offset <= std::prev(after)->end.offset;
  }

  // The lines before the first O word join its program, or are a program of their own.
  void JoinHead() {
    std::vector<IndexedProgram>& programs = index_.programs_;
    const TextPlace head;
    const bool isProgram =
        programs.empty() || (!headEnds_.empty() && headEnds_.front() < programs.front().heading);
    if (isProgram) {
      programs.insert(programs.begin(), {kNoNumber, head, kNoHeading});
    } else {
      programs.front().begin = head;
    }
  }

  ProgramIndex& index_;
  WordLine words_;
  std::vector<SubLine> subLines_;
  std::vector<uint64_t> headEnds_;  // offsets of the lines that end a head
};

ProgramIndex::ProgramIndex(ProgramText text) {
  Builder builder(this);
  std::string_view line;
  while (text.Next(&line)) builder.Line(text.Here(), line);
  builder.Finish();
}

const IndexedProgram* ProgramIndex::Find(double number) const {
  const auto found = byNumber_.find(number);
  return found != byNumber_.end() ? &programs_[found->second] : nullptr;
}

ProgramIndex::Range ProgramIndex::RangeOf(uint64_t offset) const {
  const auto after =
      std::upper_bound(programs_.begin(), programs_.end(), offset,
                       [](uint64_t at, const IndexedProgram& p) { return at < p.begin.offset; });
  const bool isLast = after == programs_.end();
  return {std::prev(after)->begin.offset,
          isLast ? std::numeric_limits<uint64_t>::max() : after->begin.offset};
}

const ProgramIndex::Label* ProgramIndex::FirstFrom(const Labels& labels, uint32_t number,
                                                   uint64_t from, uint64_t end) {
  const auto found = std::lower_bound(
      labels.begin(), labels.end(), std::pair(number, from),
      [](const Label& label, const std::pair<uint32_t, uint64_t>& key) {
        return std::tie(label.number, label.offset) < std::tie(key.first, key.second);
      });
  const bool isFound = found != labels.end() && found->number == number && found->offset < end;
  return isFound ? &*found : nullptr;
}

std::optional<TextPlace> ProgramIndex::FindNumber(double number, uint64_t offset) const {
  const std::optional<uint32_t> whole = LabelNumber(number);
  if (!whole) return {};
  const Range range = RangeOf(offset);
  const Label* label = FirstFrom(numbers_, *whole, offset + 1, range.end);
  if (label == nullptr) label = FirstFrom(numbers_, *whole, range.begin, range.end);
  if (label == nullptr) return {};
  return TextPlace{label->offset, label->line};
}

std::optional<TextPlace> ProgramIndex::FindLoopEnd(double number, uint64_t offset) const {
  const std::optional<uint32_t> whole = LabelNumber(number);
  if (!whole) return {};
  const Label* const label = FirstFrom(loopEnds_, *whole, offset + 1, RangeOf(offset).end);
  if (label == nullptr) return {};
  return TextPlace{label->offset, label->line};
}

std::optional<TextPlace> ProgramIndex::FindLoopBegin(double number, uint64_t offset) const {
  const std::optional<uint32_t> whole = LabelNumber(number);
  if (!whole) return {};
  // The last one of the number before the offset.
  const auto after = std::lower_bound(
      loopBegins_.begin(), loopBegins_.end(), std::pair(*whole, offset),
      [](const Label& label, const std::pair<uint32_t, uint64_t>& key) {
        return std::tie(label.number, label.offset) < std::tie(key.first, key.second);
      });
  if (after == loopBegins_.begin()) return {};
  const Label& label = *std::prev(after);
  if (label.number != *whole || label.offset < RangeOf(offset).begin) return {};
  return TextPlace{label.offset, label.line};
}

std::optional<TextPlace> ProgramIndex::FindSubEnd(uint64_t offset) const {
  const auto found = std::lower_bound(subs_.begin(), subs_.end(), offset,
                                      [](const Sub& sub, uint64_t at) { return sub.begin < at; });
  if (found == subs_.end() || found->begin != offset) return {};
  return found->end;
}

}  // namespace tvx
