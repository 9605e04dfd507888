// The texts are put together from the parts that are known.
#include "insight/move_text.h"

#include "base/format.h"

namespace tvx {

namespace {

constexpr const char* kBetweenParts = " | ";

// "slope", "XY corner, head slope, tail XY corner".
std::string RulesText(const MoveRules& rules, const MoveWords& words) {
  const char* const names[kMoveParts] = {nullptr, words.head, words.tail};
  std::string text;
  for (size_t part = 0; part < kMoveParts; ++part) {
    if (!rules[part]) continue;
    if (!text.empty()) text += ", ";
    if (names[part] != nullptr) text.append(names[part]).append(" ");
    text += TextOf(*rules[part]).*words.rule;
  }
  return text;
}

std::string FeedsText(const MoveFacts& facts, const MoveWords& words) {
  if (IsRapidType(facts.block.type)) return words.rapid;
  const std::string feeds = FeedText(facts.block, words);
  const bool isAsProgrammed =
      facts.programmedFeed && std::to_string(*facts.programmedFeed) == feeds;
  if (isAsProgrammed) return Format("%s %s", words.feed, feeds.c_str());
  const std::string adjusted = Format("%s %s", words.adjusted, feeds.c_str());
  if (!facts.programmedFeed) return adjusted;
  return Format("%s %d, ", words.programmed, *facts.programmedFeed) + adjusted;
}

}  // namespace

const MoveWords kEnglishMoveWords = {"line %llu", "to",   "feed", "programmed",      "adjusted",
                                     "rapid",     "head", "tail", &RuleText::english};
const MoveWords kKoreanMoveWords = {"%llu번 줄", "끝점", "피드", "프로그램 피드",  "조정된 피드",
                                    "급속이송",  "앞",   "뒤",   &RuleText::korean};

std::string LineText(uint64_t line, const std::string& text, const MoveWords& words) {
  const std::string number = Format(words.line, static_cast<unsigned long long>(line));
  return text.empty() ? number : number + ": " + text;
}

std::string FeedText(const MotionBlock& block, const MoveWords& words) {
  const auto zone = [](const char* name, int percent, int feed) {
    return percent == 0 && feed == 0 ? std::string() : Format(" %s %d%% %d", name, percent, feed);
  };
  return std::to_string(block.feed) + zone(words.head, block.headPercent, block.headFeed) +
         zone(words.tail, block.tailPercent, block.tailFeed);
}

MoveFacts FactsOf(const BlockStore& store, uint32_t block, const FeedCauses* causes,
                  SourceLines* lines) {
  MoveFacts facts;
  const MotionBlock* const stored = store.Peek(block);
  if (stored == nullptr) return facts;
  facts.block = *stored;
  if (causes != nullptr) facts.rules = causes->RulesOf(block, *stored);
  facts.line = lines->LineOf(block);
  if (facts.line == 0) return facts;
  Result<std::vector<std::string>> texts = lines->Read(facts.line, 1);
  if (!texts.value.empty()) facts.text = std::move(texts.value[0]);
  facts.programmedFeed = lines->ReadFeed(block).value;
  return facts;
}

std::string MoveText(const MoveFacts& facts, const MoveWords& words) {
  std::string text;
  const auto add = [&](const std::string& part) {
    if (part.empty()) return;
    if (!text.empty()) text += kBetweenParts;
    text += part;
  };
  if (facts.line != 0) add(LineText(facts.line, facts.text, words));
  const MotionBlock& block = facts.block;
  if (!IsMoveType(block.type)) return text;
  add(Format("%s %s %s %s", words.to, ShortestFloat(block.x).c_str(),
             ShortestFloat(block.y).c_str(), ShortestFloat(block.z).c_str()));
  add(FeedsText(facts, words));
  add(RulesText(facts.rules, words));
  return text;
}

}  // namespace tvx
