#include "platform/lock_keys.h"

#ifdef TVX_HAVE_XCB
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#endif

namespace tvx {

std::array<bool, 3> LockKeys() {
#ifdef TVX_HAVE_XCB
  // Kept: the question comes with every key.
  static const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> display(
      xcb_connect(nullptr, nullptr), &xcb_disconnect);
  if (xcb_connection_has_error(display.get()) != 0) return {};
  const std::unique_ptr<xcb_get_keyboard_control_reply_t, decltype(&std::free)> keyboard(
      xcb_get_keyboard_control_reply(display.get(), xcb_get_keyboard_control(display.get()),
                                     nullptr),
      &std::free);
  if (keyboard == nullptr) return {};
  const auto isLit = [&](unsigned light) { return (keyboard->led_mask >> light & 1U) != 0; };
  return {isLit(0), isLit(1), isLit(2)};
#else
  return {};
#endif
}

}  // namespace tvx
