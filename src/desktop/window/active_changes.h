// The changes of the view in work, whichever view that is.
#pragma once

#include "session/changes.h"

namespace tvx {

class CTVXView;

class ActiveChanges {
 public:
  // Calls its listeners whenever the notifier of the view in work calls its own.
  ChangeNotifier notifier;

  // Another view, or null for none, is the one in work: the listeners receive all changes.
  void Follow(CTVXView* view);

 private:
  Subscription atOnce_, settled_;
};

}  // namespace tvx
