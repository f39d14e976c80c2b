// SPDX-License-Identifier: MIT
#include "desktop/x11_hints.h"

#include <QByteArray>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace brevant {
namespace {

constexpr std::uint32_t kAllWorkspaces = 0xFFFFFFFF;
// In the messages to the window manager: a state is added, and an ordinary application asks.
constexpr std::uint32_t kAdd = 1, kApplication = 1;

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

// Asks the window manager for what is its own affair once it manages a window.
void ask(xcb_connection_t* server, xcb_window_t window, xcb_atom_t what,
         const std::array<std::uint32_t, 5>& data) {
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = what;
  std::copy(data.begin(), data.end(), event.data.data32);
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  xcb_send_event(server, 0, root,
                 XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&event));
}

xcb_window_t idOf(const QWidget& window) {
  return static_cast<xcb_window_t>(window.internalWinId());
}

}  // namespace

void declareDesktopFixture(const QWidget& window) {
  xcb_connection_t* server = connection();
  if (!server) return;
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, idOf(window), atom(server, "_NET_WM_DESKTOP"),
                      XCB_ATOM_CARDINAL, 32, 1, &kAllWorkspaces);
  const std::array states{atom(server, "_NET_WM_STATE_STICKY"),
                          atom(server, "_NET_WM_STATE_SKIP_TASKBAR"),
                          atom(server, "_NET_WM_STATE_SKIP_PAGER")};
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, idOf(window), atom(server, "_NET_WM_STATE"),
                      XCB_ATOM_ATOM, 32, states.size(), states.data());
}

void askForDesktopFixture(const QWidget& window) {
  xcb_connection_t* server = connection();
  if (!server) return;
  ask(server, idOf(window), atom(server, "_NET_WM_DESKTOP"), {kAllWorkspaces, kApplication});
  const xcb_atom_t state = atom(server, "_NET_WM_STATE");
  ask(server, idOf(window), state,
      {kAdd, atom(server, "_NET_WM_STATE_SKIP_TASKBAR"), atom(server, "_NET_WM_STATE_SKIP_PAGER"),
       kApplication});
  ask(server, idOf(window), state,
      {kAdd, atom(server, "_NET_WM_STATE_STICKY"), XCB_ATOM_NONE, kApplication});
  xcb_flush(server);
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
