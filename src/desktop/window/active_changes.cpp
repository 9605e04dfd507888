// Passes changes on from one notifier to the other.
#include "desktop/window/active_changes.h"

#include "session/tvx_view.h"

namespace tvx {

void ActiveChanges::Follow(CTVXView* view) {
  atOnce_.reset();
  settled_.reset();
  if (view != nullptr) {
    // The first one gets all changes, also those that no Show has delivered.
    atOnce_ = view->changes.Subscribe(kAllChanges, Timing::kAtOnce,
                                      [this](ChangeSet changes, Timing timing) {
                                        notifier.Note(changes);
                                        if (timing == Timing::kAtOnce) notifier.Show();
                                      });
    settled_ = view->changes.Subscribe(kAllChanges, Timing::kSettled,
                                       [this](ChangeSet, Timing) { notifier.Settle(); });
  }
  notifier.Note(kAllChanges);
  notifier.Settle();
}

}  // namespace tvx
