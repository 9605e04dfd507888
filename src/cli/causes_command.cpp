// tvx-cli causes: which rules of the feed adjustment slow a program, how much and where.

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "base/format.h"
#include "cli/command.h"
#include "cli/command_line.h"
#include "cli/host.h"
#include "cli/json.h"
#include "cli/output.h"
#include "cli/params.h"
#include "cli/program_files.h"
#include "cli/tool_text.h"
#include "insight/feed_causes.h"
#include "insight/move_text.h"
#include "view/path_drawing.h"

namespace tvx {
namespace {

constexpr int kDefaultPlaces = 10;
constexpr double kPercent = 100;

// A costliest place, with the lines of its moves.
struct PlaceLines {
  SlowPlace place;
  uint32_t first = 0;
  uint32_t last = 0;
  uint32_t costliest = 0;
  std::string text;  // of the costliest line
};

struct ProgramCauses {
  std::string file;
  int32_t highestFeed = 0;  // mm/min
  CauseMinutes minutes;
  std::vector<double> bandMinutes;  // none without a highest feed
  std::vector<PlaceLines> places;
};

// Throws Failure if the file is not the one that was loaded.
std::vector<PlaceLines> FindPlaces(const ProgramFile& file, size_t count, const FeedCauses& causes,
                                   CTVXView* view) {
  NcProgram* const program = &view->program;
  SourceLines lines(&program->source, view->app->files);
  std::vector<PlaceLines> places;
  for (const SlowPlace& place :
       CostliestPlaces(&program->store, program->FeedBase, causes, count)) {
    PlaceLines found{place, lines.LineOf(place.firstBlock), lines.LineOf(place.lastBlock),
                     lines.LineOf(place.costliestBlock), ""};
    const Result<std::vector<std::string>> texts = lines.Read(found.costliest, 1);
    if (!texts.ok()) throw Failure{file.argument, Say(SourceProblem(texts.status))};
    if (!texts.value.empty()) found.text = Printable(texts.value[0]);
    places.push_back(std::move(found));
  }
  return places;
}

ProgramCauses CausesOf(const ProgramFile& file, size_t places, CTVXView* view) {
  LoadWholeProgram(file, view);
  NcProgram* const program = &view->program;
  FeedCauses causes;
  AdjustProgram(file, view, causes.Follow(program->store.blockCount));
  const int32_t highest = program->FeedBase;
  const auto bandOf = [highest](int32_t feed) { return BandOfFeed(feed, highest); };
  return {.file = file.argument,
          .highestFeed = highest,
          .minutes = CountCauses(&program->store, highest, causes),
          .bandMinutes = MinutesByFeed(&program->store, highest > 0 ? kFeedBands : 0, bandOf),
          .places = FindPlaces(file, places, causes, view)};
}

Json CausesJson(const ProgramCauses& causes) {
  Json rules = Json::object(), arcs = Json::object();
  for (size_t i = 0; i < kFeedRules; ++i) {
    rules[RuleName(static_cast<FeedRule>(i))] = causes.minutes.byRule[i];
    arcs[RuleName(static_cast<FeedRule>(i))] = causes.minutes.arcLengthByRule[i];
  }
  Json bands = Json::array();
  for (size_t i = 0; i < causes.bandMinutes.size(); ++i) {
    const FeedRange feeds = FeedsOfBand(i, causes.highestFeed);
    bands.push_back(
        {{"from", feeds.first}, {"to", feeds.last}, {"minutes", causes.bandMinutes[i]}});
  }
  Json places = Json::array();
  for (const PlaceLines& place : causes.places) {
    places.push_back({{"rule", RuleName(place.place.rule)},
                      {"minutes", place.place.minutes},
                      {"firstLine", place.first},
                      {"lastLine", place.last},
                      {"line", place.costliest},
                      {"text", place.text}});
  }
  return {{"file", causes.file},
          {"rules", std::move(rules)},
          {"atHighestFeed", causes.minutes.atHighestFeed},
          {"straightCuts", causes.minutes.straightCuts},
          {"highestFeed", causes.highestFeed},
          {"bands", std::move(bands)},
          {"arcs", {{"length", causes.minutes.arcLength}, {"slowed", std::move(arcs)}}},
          {"places", std::move(places)}};
}

std::string Row(const std::string& name, double minutes, double all) {
  const double share = all > 0 ? minutes / all * kPercent : 0;
  return "  " + PadRight(name, 20) + Format(" %12.3f min %6.1f %%\n", minutes, share);
}

std::string BandName(size_t band, int32_t highestFeed) {
  const FeedRange feeds = FeedsOfBand(band, highestFeed);
  const std::string last = band == 0 ? "" : " " + std::to_string(feeds.last);
  return Say({"피드 {first} -{last}", "feed {first} -{last}"},
             {{"first", feeds.first}, {"last", last}});
}

std::string CausesTable(const ProgramCauses& causes) {
  const CauseMinutes& minutes = causes.minutes;
  const double all = minutes.straightCuts;
  std::string text = causes.file + "\n";
  text += Row(Say({"직선 절삭", "straight cuts"}), all, all);
  text += Row(Say({"최대피드일 때", "at the highest feed"}), minutes.atHighestFeed, all);
  for (size_t i = 0; i < kFeedRules; ++i) {
    if (minutes.byRule[i] == 0) continue;
    text += Row(Say(TextOf(static_cast<FeedRule>(i))), minutes.byRule[i], all);
  }
  for (size_t i = 0; i < causes.bandMinutes.size(); ++i) {
    text += Row(BandName(i, causes.highestFeed), causes.bandMinutes[i], all);
  }
  if (minutes.arcLength > 0) {
    text +=
        Say({"  시간에 들어가지 않는 원호: {length} mm", "  arcs, not in the times: {length} mm"},
            {{"length", Format("%.1f", minutes.arcLength)}});
    for (size_t i = 0; i < kFeedRules; ++i) {
      if (minutes.arcLengthByRule[i] == 0) continue;
      text += ", " + Say(TextOf(static_cast<FeedRule>(i))) +
              Format(" %.1f mm", minutes.arcLengthByRule[i]);
    }
    text += "\n";
  }
  for (const PlaceLines& place : causes.places) {
    text += Format("  %12.3f min  ", place.place.minutes) +
            PadRight(Say(TextOf(place.place.rule)), 9) +
            Say({"  {first} - {last}번 줄, 가장 큰 곳은 {line}",
                 "  lines {first} - {last}, most in {line}"},
                {{"first", place.first},
                 {"last", place.last},
                 {"line", LineText(place.costliest, place.text, ToolLanguage())}}) +
            "\n";
  }
  return text;
}

}  // namespace

int RunCauses(const Call& call) {
  Params params(/*adjusts=*/true);
  bool json = false;
  std::optional<int> top;
  std::string argument;
  CommandLine line(
      call,
      {"프로그램의 피드를 조정하고 규칙별 시간, 피드별 시간, 시간이 많이 걸리는 곳을 출력합니다.",
       "Adjusts the feeds of a program and prints the minutes that each rule takes, the "
       "minutes by feed, and the costliest places."});
  params.AddTo(&line);
  line.AddFlag("--json", &json, kJsonHelp);
  line.AddOption(
      "--top", &top,
      {"시간이 많이 걸리는 곳을 N개 출력 (기본 10)", "print the N costliest places (default: 10)"});
  line.AddArgument("FILE", &argument, kFileHelp);
  line.Parse();
  params.Check();
  if (!params.Adjusts())
    throw WrongCall{Say({"causes: 피드를 조정하지 않으면 감속 원인이 없습니다",
                         "causes: without the adjustment there are no causes"})};
  if (top && *top < 0)
    throw WrongCall{Say(
        {"causes: --top에는 0 이상의 수가 필요합니다", "causes: --top needs a number from 0 on"})};

  Host host(call);
  const ProgramFile file{argument, host.ReadablePath(argument)};
  ToolView view(&host);
  params.Apply(&host, &view);
  const auto places = static_cast<size_t>(top.value_or(kDefaultPlaces));
  const ProgramCauses causes = CausesOf(file, places, &view);
  Print(json ? JsonText(CausesJson(causes)) : CausesTable(causes));
  return 0;
}

}  // namespace tvx
