#include "desktop/x11_hints.h"

#include <QByteArray>
#include <QGuiApplication>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace brevant {
namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};

xcb_connection_t* connection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* server, const QByteArray& name) {
  const auto cookie =
      xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.constData());
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
      xcb_intern_atom_reply(server, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

void makeDesktopFixture(const QWidget& window) {
  xcb_connection_t* server = connection();
  if (!server) return;
  const auto id = static_cast<xcb_window_t>(window.internalWinId());
  const std::uint32_t allWorkspaces = 0xFFFFFFFF;
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, id, atom(server, "_NET_WM_DESKTOP"),
                      XCB_ATOM_CARDINAL, 32, 1, &allWorkspaces);
  const std::array states{atom(server, "_NET_WM_STATE_STICKY"),
                          atom(server, "_NET_WM_STATE_SKIP_TASKBAR"),
                          atom(server, "_NET_WM_STATE_SKIP_PAGER")};
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, id, atom(server, "_NET_WM_STATE"),
                      XCB_ATOM_ATOM, 32, states.size(), states.data());
}

// The compositing manager of a screen owns a selection; this desktop has one screen.
bool isBlended() {
  xcb_connection_t* server = connection();
  if (!server) return true;
  const auto cookie = xcb_get_selection_owner(server, atom(server, "_NET_WM_CM_S0"));
  const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> reply(
      xcb_get_selection_owner_reply(server, cookie, nullptr));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

}  // namespace brevant
