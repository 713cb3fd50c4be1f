// SPDX-License-Identifier: LGPL-2.1-or-later
// Keyboard focus among the controls of a window: where it is, where keys move it, what they press.
#include "platform/common/reading_order.h"
#include "platform/win32/control_host.h"

#include <algorithm>

namespace lumotune::platform::win32 {
namespace {

// A control without a size is not visible.
bool can_take_keyboard(const ChildWindow& child) {
  const LONG_PTR style = GetWindowLongPtrW(child.handle(), GWL_STYLE);
  return (style & WS_TABSTOP) != 0 && (style & WS_DISABLED) == 0 && child.shown() && child.sized();
}

LRESULT dialog_code(HWND control) {
  return SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

bool wants_arrows(const ChildWindow& child) {
  return (dialog_code(child.handle()) & DLGC_WANTARROWS) != 0;
}

bool held(int key) {
  return GetKeyState(key) < 0;
}

} // namespace

// Keys that move between the controls or press them, before the system's own classes see them.
bool ControlHost::filter(MSG& message) {
  const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != 0;
  if (!ours)
    return false;
  switch (message.message) {
  case WM_KEYUP:
    return false;
  case WM_KEYDOWN:
    note_keyboard(true);
    return window_input(message) || key_down(message);
  case WM_SYSKEYDOWN:
    note_keyboard(true);
    break;
  case WM_MOUSEMOVE:
    make_tips();
    break;
  case WM_LBUTTONDOWN:
  case WM_RBUTTONDOWN:
    note_keyboard(false);
    break;
  default:
    break;
  }
  return window_input(message) || IsDialogMessageW(window_, &message) != 0;
}

bool ControlHost::key_down(MSG& message) {
  ChildWindow* child = child_of(GetFocus());
  if (message.wParam == VK_RETURN) {
    if (child != nullptr && child->takes_enter())
      return false;
    const bool first_time = (message.lParam & 0x40000000) == 0; // not held down
    if (child != nullptr && first_time && child->pressable() && IsWindowEnabled(child->handle()) != 0)
      child->pressed_by_key();
    return true;
  }
  if (tab_moves(message.wParam) || (child != nullptr && arrow_moves(message.wParam, *child)))
    return true;
  return IsDialogMessageW(window_, &message) != 0;
}

std::vector<const ChildWindow*> ControlHost::stops(const ChildWindow* from) const {
  std::vector<const ChildWindow*> found;
  std::vector<TwipsRect> places;
  for (const auto& child : children_) {
    if (child.get() != from && !can_take_keyboard(*child))
      continue;
    found.push_back(child.get());
    places.push_back(child->place());
  }
  std::vector<const ChildWindow*> ordered;
  ordered.reserve(found.size());
  for (const std::size_t index : reading_order(places))
    ordered.push_back(found[index]);
  return ordered;
}

HWND ControlHost::stop_after(HWND control) const {
  const ChildWindow* from = child_of(control);
  const auto round = stops(from);
  const auto here = std::find(round.begin(), round.end(), from);
  if (here == round.end() || round.size() < 2)
    return round.empty() || here != round.end() ? nullptr : round.front()->handle();
  return (here + 1 == round.end() ? round.front() : *(here + 1))->handle();
}

// In reading order, which depends on the skin; the system's dialog navigation knows only creation order.
bool ControlHost::tab_moves(WPARAM key) {
  if (key != VK_TAB || held(VK_CONTROL) || held(VK_MENU))
    return false;
  const HWND focus = GetFocus();
  const auto holds = [&](const auto& child) {
    return child->handle() == focus || IsChild(child->handle(), focus) != 0;
  };
  const auto holder = std::find_if(children_.begin(), children_.end(), holds);
  const ChildWindow* from = holder == children_.end() ? nullptr : holder->get();
  const auto round = stops(from);
  if (round.empty())
    return true;
  const auto found = std::find(round.begin(), round.end(), from);
  const bool back = held(VK_SHIFT);
  std::size_t there = back ? round.size() - 1 : 0;
  if (found != round.end()) {
    const auto here = static_cast<std::size_t>(found - round.begin());
    there = (here + (back ? round.size() - 1 : 1)) % round.size();
  }
  const HWND target = round[there]->handle();
  if ((dialog_code(target) & DLGC_HASSETSEL) != 0)
    SendMessageW(target, EM_SETSEL, 0, -1); // as the system does it
  SetFocus(target);
  return true;
}

// Cycles through the buttons and links, as in a button group; the system's own navigation would stop at plain texts.
bool ControlHost::arrow_moves(WPARAM key, const ChildWindow& from) {
  const bool forward = key == VK_RIGHT || key == VK_DOWN;
  if ((!forward && key != VK_LEFT && key != VK_UP) || !from.pressable() || wants_arrows(from))
    return false;
  auto round = stops(&from);
  std::erase_if(
      round, [&](const ChildWindow* child) { return child != &from && (!child->pressable() || wants_arrows(*child)); });
  const auto here = static_cast<std::size_t>(std::find(round.begin(), round.end(), &from) - round.begin());
  const std::size_t there = (here + (forward ? 1 : round.size() - 1)) % round.size();
  SetFocus(round[there]->handle());
  return true;
}

// Focus rectangles are shown from the first key until the mouse is used, as in the system's own windows.
void ControlHost::note_keyboard(bool used) {
  if (keyboard_used_ == used)
    return;
  keyboard_used_ = used;
  if (used)
    SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  if (child_of(GetFocus()) != nullptr)
    InvalidateRect(GetFocus(), nullptr, FALSE);
}

bool ControlHost::keyboard_used() const {
  BOOL always = FALSE;
  SystemParametersInfoW(SPI_GETKEYBOARDCUES, 0, &always, 0);
  return keyboard_used_ || always != FALSE;
}

bool ControlHost::can_return_to(HWND control) const {
  if (control == nullptr || IsChild(window_, control) == 0)
    return false;
  if (const ChildWindow* child = child_of(control))
    return can_take_keyboard(*child);
  return IsWindowEnabled(control) != 0 && IsWindowVisible(control) != 0;
}

bool ControlHost::handle_focus_message(UINT message, WPARAM w) {
  if (message == WM_ACTIVATE && LOWORD(w) == WA_INACTIVE) {
    if (IsChild(window_, GetFocus()) != 0)
      last_focus_ = GetFocus();
    return false;
  }
  if (message != WM_SETFOCUS)
    return false;
  if (can_return_to(last_focus_)) {
    SetFocus(last_focus_);
    return true;
  }
  if (child_of(last_focus_) != nullptr) {
    keyboard_leaves(last_focus_); // it went out of reach meanwhile
    return true;
  }
  const auto first =
      std::find_if(children_.begin(), children_.end(), [](const auto& child) { return can_take_keyboard(*child); });
  if (first != children_.end())
    SetFocus((*first)->handle());
  return true;
}

void ControlHost::keyboard_came(HWND control) {
  last_focus_ = control;
  if (control != stand_in_)
    awaited_ = stand_in_ = nullptr; // the user has moved the focus
}

// The next control stands in; without one the window itself keeps the focus.
void ControlHost::keyboard_leaves(HWND control) {
  if (awaited_ == nullptr || control != stand_in_)
    awaited_ = control;
  stand_in_ = stop_after(control);
  last_focus_ = stand_in_;
  if (stand_in_ != nullptr)
    SetFocus(stand_in_);
  else if (GetFocus() != window_)
    SetFocus(window_);
}

void ControlHost::keyboard_may_return(HWND control) {
  if (control != awaited_ || last_focus_ != stand_in_ || !can_return_to(control))
    return;
  const HWND focus = GetFocus();
  const bool here = focus == window_ || (stand_in_ != nullptr && focus == stand_in_);
  last_focus_ = control;
  awaited_ = stand_in_ = nullptr;
  if (here)
    SetFocus(control);
}

} // namespace lumotune::platform::win32
