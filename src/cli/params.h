// The options on the job record that many commands share.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/host.h"
#include "session/tvx_view.h"

namespace tvx {

// The options --set NAME=VALUE, repeated, of a command that works on a job record.
class FieldSettings {
 public:
  void AddTo(CommandLine* line);
  // Throws WrongCall for a word that is no NAME=VALUE, an unknown field or a value that does not
  // fit it. Call it before anything runs, so that a wrong call changes nothing.
  void Check() const;
  void Apply(JobRecord* record) const;

 private:
  std::vector<std::string> words_;
};

// The options that the commands on NC files share, in the order in which they act on the working
// record of a view.
class Params {
 public:
  // `adjusts`: whether the command adjusts the feeds without --afa and --no-afa.
  explicit Params(bool adjusts = false) : adjusts_(adjusts) {}

  void AddTo(CommandLine* line);
  // Only --condition, --set and --jobs, for a job list, whose lines decide the rest.
  void AddRecordOptionsTo(CommandLine* line);
  // After the parse. Throws WrongCall as FieldSettings does.
  void Check();
  // Throws Failure if a file cannot be read.
  void Apply(Host* host, CTVXView* view) const;

  // True if each load is followed by the feed adjustment.
  bool Adjusts() const { return adjusts_; }

 private:
  std::optional<std::string> condition_;
  std::optional<int> jobs_;
  FieldSettings settings_;
  std::optional<std::string> master_;
  bool afa_ = false;
  bool noAfa_ = false;
  bool adjusts_;
};

// Reads the master model of an argument. Throws Failure if it is no such file.
MasterGrid ReadModel(const std::string& argument, const Host& host);

// The defaults of a job record, with the directories of the configuration.
JobRecord DefaultRecord(const CTVXApp& app);

}  // namespace tvx
