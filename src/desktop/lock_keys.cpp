#include "desktop/lock_keys.h"

#include <QGuiApplication>

#ifdef TVX_HAS_XCB
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#endif

namespace tvx {

std::array<bool, 3> LockKeys() {
#ifdef TVX_HAS_XCB
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // A platform without a display has the interface and no connection behind it.
  xcb_connection_t* const connection = x11 == nullptr ? nullptr : x11->connection();
  if (connection == nullptr) return {};
  const std::unique_ptr<xcb_get_keyboard_control_reply_t, decltype(&std::free)> keyboard(
      xcb_get_keyboard_control_reply(connection, xcb_get_keyboard_control(connection), nullptr),
      &std::free);
  if (keyboard == nullptr) return {};
  const auto isLit = [&](unsigned light) { return (keyboard->led_mask >> light & 1U) != 0; };
  return {isLit(0), isLit(1), isLit(2)};
#else
  return {};
#endif
}

}  // namespace tvx
