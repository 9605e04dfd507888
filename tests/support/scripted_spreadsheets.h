// A spreadsheet program for tests.
#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "base/format.h"
#include "reports/spreadsheet.h"

namespace tvx {

// A spreadsheet program in memory, with one workbook that outlives it, and faults on demand.
class ScriptedSpreadsheets : public Spreadsheets {
 public:
  // No program can be started.
  bool refusesStart = false;
  // The count-th step from now on (1: the next), and every later one, fails, as if the program had
  // died. 0: no fault.
  int refusedStep = 0;

  // What happened, a line each: "start" ("start for a file"), "open PATH", "sheet 1", "A1:A1",
  // "value TEXT" (numbers as they read back), "visible", "control", "save", "end".
  std::vector<std::string> log;
  // The cells of the first sheet. A test may put old content there.
  std::map<std::string, CellValue> cells;

  std::unique_ptr<SpreadsheetApplication> Start(SpreadsheetForm form) override {
    if (refusesStart) return nullptr;
    log.emplace_back(form == SpreadsheetForm::kFile ? "start for a file" : "start");
    return std::make_unique<Program>(this);
  }

 private:
  class Program final : public SpreadsheetApplication {
   public:
    explicit Program(ScriptedSpreadsheets* owner) : owner_(owner) {}
    ~Program() override { owner_->log.emplace_back("end"); }

    bool OpenWorkbook(const std::string& path) override { return Step("open " + path); }
    bool SelectSheet(int number) override { return Step(Format("sheet %d", number)); }
    bool SelectRange(const std::string& first, const std::string& last) override {
      range_ = first;
      return Step(first + ":" + last);
    }
    bool PutValue(const CellValue& value) override {
      const auto* const number = std::get_if<float>(&value);
      const std::string text =
          number != nullptr ? ShortestFloat(*number) : std::get<std::string>(value);
      if (!Step("value " + text)) return false;
      owner_->cells[range_] = value;
      return true;
    }
    bool SetVisible(bool visible) override { return Step(visible ? "visible" : "hidden"); }
    bool SetUserControl(bool control) override { return Step(control ? "control" : "no control"); }
    bool Save() override { return Step("save"); }

   private:
    bool Step(const std::string& text) {
      if (owner_->refusedStep > 0 && --owner_->refusedStep == 0) dead_ = true;
      if (!dead_) owner_->log.push_back(text);
      return !dead_;
    }

    ScriptedSpreadsheets* owner_;
    std::string range_;
    bool dead_ = false;
  };
};

}  // namespace tvx
