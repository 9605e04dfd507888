// The changes of the view in work, whichever view that is.
#pragma once

#include "session/changes.h"

namespace tvx {

class CTVXView;

class ActiveChanges {
 public:
  // Tells of what the view in work tells of, at the same time.
  ChangeNotifier notifier;

  // Another view, or null for none, is the one in work: tells of all changes.
  void Follow(CTVXView* view);

 private:
  Subscription atOnce_, settled_;
};

}  // namespace tvx
