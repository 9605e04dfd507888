// The tables of the options in model/feed_options.h: for each one what files, dialogs, lists and
// reports need to know about it. They walk the tables and add only their own format, so a new
// parameter is a member of FeedOptions and a row.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/message.h"
#include "model/feed_options.h"

namespace tvx {

using FeedMember =
    std::variant<int32_t FeedOptions::*, float FeedOptions::*, std::string FeedOptions::*>;

// The values that a parameter is meant to have. The ends count.
struct ValueRange {
  double lowest = -std::numeric_limits<double>::infinity();
  double highest = std::numeric_limits<double>::infinity();
};

// How a line of a settings file is read.
enum class LineReading {
  kByPlace,  // the position in the file decides, whatever the key
  kByKey,    // the key decides, regardless of the case of its letters
  kNever,    // written only
};

// The line of a settings file that holds a parameter.
struct FileLine {
  int number = 0;  // from 1; 0: the file does not hold the parameter
  const char* key = nullptr;
  LineReading reading = LineReading::kByKey;
};

// The dialog that has an edit or a slider for a parameter: the machining condition or the finer
// settings. Switches have controls of their own.
enum class FeedDialog { kNone, kCondition, kSetupEdit, kSetupSlider };

// How option lines, lists and reports show a parameter.
enum class FeedForm {
  kHidden,      // not at all
  kValue,       // its value, or the values of its group
  kSwitch,      // "ON" if it is 1, else "OFF"
  kSwitchIfOn,  // "ON" if it is 1, else nothing
  kMaster,      // the path of the master model if it is in use, else nothing
};

struct FeedField {
  const char* name;  // the exact name of the member
  FeedMember member;
  const char* unit = "";  // "mm", "mm/min", "°"
  ValueRange range = {};  // stated only: files and --set take any value
  FileLine conditionLine = {};
  FileLine parameterLine = {};
  FeedDialog dialog = FeedDialog::kNone;
  Message caption{"", ""};  // of its control in a dialog

  // For option lines, lists and reports. The first of a group has these for the whole group.
  FeedForm form = FeedForm::kHidden;
  const char* word = nullptr;  // in an option line
  Message label{"", ""};       // in a list, short
  Message title{"", ""};       // on the job sheet
  const char* column = "";     // the title of its column in a workbook, if other than the label
  int decimals = 1;            // of a float
  size_t groupSize = 1;        // shown as one with so many fields, of which it is the first

  bool isInResults = true;  // reports of results, and values for scripts, have it
};

// All parameters, in the order of lists.
std::span<const FeedField> FeedFields();

// The row of a member.
const FeedField& FieldOf(FeedMember member);

// The parameters with a control of this kind.
std::vector<const FeedField*> FieldsOfDialog(FeedDialog dialog);

// The fields that are shown as one with a field, itself first.
std::span<const FeedField> GroupOf(const FeedField& field);

// True if the adjustment of these options uses a master model.
bool UsesMaster(const FeedOptions& options);

// A field of the restart position.
struct RestartField {
  const char* name;  // the exact name of the member
  std::variant<int32_t RestartOptions::*, float RestartOptions::*> member;
  Message caption{"", ""};  // of its edit in the restart dialog
};

// All of them in their order.
std::span<const RestartField> RestartFields();

// A row of a record's own list of fields: Field is an aggregate of a name and a member.
template <typename Field>
Field ListField(const auto& option) {
  return std::visit([&](auto member) { return Field{option.name, member}; }, option.member);
}

// Completes such a list by the parameters that it does not have yet, all or only those of results,
// and by the restart position.
template <typename Field>
void AppendOtherOptions(bool onlyOfResults, std::vector<Field>* fields) {
  for (const FeedField& option : FeedFields()) {
    const bool isListed = std::ranges::any_of(
        *fields, [&](const Field& field) { return std::string_view(field.name) == option.name; });
    if (isListed || (onlyOfResults && !option.isInResults)) continue;
    fields->push_back(ListField<Field>(option));
  }
  for (const RestartField& option : RestartFields()) {
    fields->push_back(ListField<Field>(option));
  }
}

// The value of a field: a whole number, a float as `floatText` prints it, or a text.
std::string ValueText(const FeedOptions& options, const FeedField& field,
                      const std::function<std::string(float)>& floatText);

// The same, a float with so many decimals.
std::string ValueText(const FeedOptions& options, const FeedField& field, int decimals);

// True if lists and option lines show a field with these options.
bool IsShown(const FeedOptions& options, const FeedField& field);

// What they show, without unit: the value, the values of a group with a blank after each, "ON" or
// "OFF", or the path of the master model, which is "OFF" if it is not in use.
std::string ShownText(const FeedOptions& options, const FeedField& field, int decimals);

}  // namespace tvx
