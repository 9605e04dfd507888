// The texts are put together from the parts that are known.
#include "insight/move_text.h"

#include "base/format.h"

namespace tvx {

namespace {

constexpr const char* kBetweenParts = " | ";

constexpr Message kLine{"{line}번 줄", "line {line}"};
constexpr Message kTo{"끝점 {x} {y} {z}", "to {x} {y} {z}"};
constexpr Message kFeed{"피드 {feed}", "feed {feed}"};
constexpr Message kAdjusted{"조정된 피드 {feed}", "adjusted {feed}"};
constexpr Message kProgrammedAndAdjusted{"프로그램 피드 {programmed}, 조정된 피드 {feed}",
                                         "programmed {programmed}, adjusted {feed}"};
constexpr Message kRapid{"급속이송", "rapid"};
constexpr Message kHead{"앞", "head"};
constexpr Message kTail{"뒤", "tail"};

// "slope", "XY corner, head slope, tail XY corner".
std::string RulesText(const MoveRules& rules, Language language) {
  const Message* const names[kMoveParts] = {nullptr, &kHead, &kTail};
  std::string text;
  for (size_t part = 0; part < kMoveParts; ++part) {
    if (!rules[part]) continue;
    if (!text.empty()) text += ", ";
    if (names[part] != nullptr) text.append(names[part]->In(language)).append(" ");
    text += TextOf(*rules[part]).In(language);
  }
  return text;
}

std::string FeedsText(const MoveFacts& facts, Language language) {
  if (IsRapidType(facts.block.type)) return kRapid.In(language);
  const std::string feeds = FeedText(facts.block, language);
  if (!facts.programmedFeed) return Say(kAdjusted, language, {{"feed", feeds}});
  const std::string programmed = std::to_string(*facts.programmedFeed);
  if (programmed == feeds) return Say(kFeed, language, {{"feed", feeds}});
  return Say(kProgrammedAndAdjusted, language, {{"programmed", programmed}, {"feed", feeds}});
}

}  // namespace

std::string LineText(uint64_t line, const std::string& text, Language language) {
  const std::string number = Say(kLine, language, {{"line", line}});
  return text.empty() ? number : number + ": " + text;
}

std::string FeedText(const MotionBlock& block, Language language) {
  const auto zone = [language](const Message& name, int percent, int feed) {
    if (percent == 0 && feed == 0) return std::string();
    return Format(" %s %d%% %d", name.In(language), percent, feed);
  };
  return std::to_string(block.feed) + zone(kHead, block.headPercent, block.headFeed) +
         zone(kTail, block.tailPercent, block.tailFeed);
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

std::string MoveText(const MoveFacts& facts, Language language) {
  std::string text;
  const auto add = [&](const std::string& part) {
    if (part.empty()) return;
    if (!text.empty()) text += kBetweenParts;
    text += part;
  };
  if (facts.line != 0) add(LineText(facts.line, facts.text, language));
  const MotionBlock& block = facts.block;
  if (!IsMoveType(block.type)) return text;
  add(Say(kTo, language,
          {{"x", ShortestFloat(block.x)},
           {"y", ShortestFloat(block.y)},
           {"z", ShortestFloat(block.z)}}));
  add(FeedsText(facts, language));
  add(RulesText(facts.rules, language));
  return text;
}

}  // namespace tvx
