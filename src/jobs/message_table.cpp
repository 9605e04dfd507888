#include "jobs/message_table.h"

namespace tvx {

namespace {

constexpr char kError[] = "Error message";
constexpr char kDnc[] = "DNC message";

const struct {
  JobMessage message;
  const char* text;
  const char* caption;
} kMessageTable[] = {
    {JobMessage::kCannotOpen, "화일을 열수 없읍니다. ", kError},
    {JobMessage::kNoFileSelected, "화일 리스트에서 file이 선택되지 않았습니다. ", kDnc},
    {JobMessage::kEntryIsFrozen, "현재 전송중 이거나 전송한 file입니다. ", kDnc},
    {JobMessage::kCannotEnter, "화일을 등록할 수 없습니다. ", kError},
};

}  // namespace

Message MessageOf(JobMessage message) {
  for (const auto& row : kMessageTable) {
    if (row.message == message) return {.text = row.text, .caption = row.caption};
  }
  return {};
}

}  // namespace tvx
