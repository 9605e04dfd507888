// Keeps for each listener what it has not heard yet.
#include "session/changes.h"

#include <utility>

namespace tvx {

Subscription ChangeNotifier::Subscribe(ChangeSet interests, Timing timing,
                                       ChangeListener listener) {
  const auto entry = std::make_shared<Entry>(Entry{interests, timing, std::move(listener)});
  entries_.push_back(entry);
  return entry;
}

void ChangeNotifier::Note(ChangeSet changes) {
  for (const auto& each : entries_) {
    if (const auto entry = each.lock()) entry->pending |= changes & entry->interests;
  }
}

void ChangeNotifier::Show() {
  isShown_ = true;
  Tell(Timing::kAtOnce);
}

void ChangeNotifier::Settle() {
  isShown_ = false;
  Tell(Timing::kSettled);
}

void ChangeNotifier::SettleShown() {
  if (isShown_) Settle();
}

// Goes round until nobody has more to hear; subscriptions come and go meanwhile.
void ChangeNotifier::Tell(Timing timing) {
  std::erase_if(entries_, [](const auto& entry) { return entry.expired(); });
  for (bool isAnyTold = true; isAnyTold;) {
    isAnyTold = false;
    for (const auto& each : std::vector(entries_)) {
      const auto entry = each.lock();
      if (entry == nullptr || entry->isCalled || entry->pending.IsEmpty()) continue;
      if (timing == Timing::kAtOnce && entry->timing != Timing::kAtOnce) continue;
      isAnyTold = entry->isCalled = true;
      entry->listener(std::exchange(entry->pending, {}), timing);
      entry->isCalled = false;
    }
  }
}

}  // namespace tvx
