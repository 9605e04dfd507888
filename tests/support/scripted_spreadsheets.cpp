#include "support/scripted_spreadsheets.h"

#include "platform/format.h"

namespace tvx {

namespace {

std::string TextOf(const CellValue& value) {
  const auto* const number = std::get_if<float>(&value);
  return number != nullptr ? ShortestFloat(*number) : std::get<std::string>(value);
}

}  // namespace

class ScriptedSpreadsheets::Program final : public SpreadsheetApplication {
 public:
  explicit Program(ScriptedSpreadsheets* owner) : owner_(owner) {}
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() override { owner_->log.emplace_back("end"); }

  bool OpenWorkbook(const std::string& path) override { return Step("open " + path); }
  bool SelectSheet(int number) override { return Step(Format("sheet %d", number)); }
  bool SelectRange(const std::string& first, const std::string& last) override {
    range_ = first;
    return Step(first + ":" + last);
  }
  bool PutValue(const CellValue& value) override {
    if (!Step("value " + TextOf(value))) return false;
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

std::unique_ptr<SpreadsheetApplication> ScriptedSpreadsheets::Start(SpreadsheetForm form) {
  if (refusesStart) return nullptr;
  log.emplace_back(form == SpreadsheetForm::kFile ? "start for a file" : "start");
  return std::make_unique<Program>(this);
}

}  // namespace tvx
