// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/control_host.h"

#include "platform/win32/dpi.h"
#include "platform/win32/tip_window.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

namespace lumotune::platform::win32 {
ControlHost::ControlHost(EventLoop& loop, std::wstring name, FontSize font_size)
    : loop_(loop), dpi_(GetDpiForSystem()), system_dpi_(dpi_), name_(std::move(name)), font_size_(font_size) {
  loop_.set_filter(this, [this](MSG& message) { return filter(message); });
}

ControlHost::~ControlHost() {
  loop_.set_filter(this, {});
  if (tips_ != nullptr)
    DestroyWindow(tips_);
}

// Each destroyed control tries to pass the focus on; with the list emptied first there is nothing to pass it to.
void ControlHost::destroy_controls() {
  const auto gone = std::exchange(children_, {});
  pictures_.clear();
}

PictureBox& ControlHost::make_picture_control(const std::wstring& designer_name, PictureKind kind) {
  auto& made = make_control<PictureBox>(designer_name, kind);
  pictures_.push_back(&made);
  return made;
}

HWND ControlHost::handle_of(const Control& control) const {
  const auto* child = dynamic_cast<const ChildWindow*>(&control);
  return child == nullptr ? nullptr : child->handle();
}

ChildWindow* ControlHost::child_of(HWND window) const {
  const auto found =
      std::find_if(children_.begin(), children_.end(), [&](const auto& child) { return child->handle() == window; });
  return found == children_.end() ? nullptr : found->get();
}

void ControlHost::fire(const std::function<void()>& handler) {
  if (const auto copy = handler)
    loop_.caught().guard(copy);
}

void ControlHost::settle_controls() {
  for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    SendMessageW(child, ChildWindow::message_settle, 0, 0);
}

bool ControlHost::handle_child_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (message == WM_WINDOWPOSCHANGING) {
    if ((reinterpret_cast<const WINDOWPOS*>(l)->flags & SWP_SHOWWINDOW) != 0)
      settle_controls();
    return false;
  }
  if (message == WM_SETTINGCHANGE || message == WM_THEMECHANGED)
    return look_changed(message, w);
  if (message == WM_SYSCOLORCHANGE) {
    for (const auto& child : children_)
      child->colours_changed();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return false;
  }
  if (message == WM_DRAWITEM) {
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(l);
    ChildWindow* child = child_of(item.hwndItem);
    if (auto* list = dynamic_cast<ListBox*>(child))
      list->draw_row(item);
    else if (child != nullptr)
      child->paint_item(item);
    result = TRUE;
    return child != nullptr;
  }
  if (message == WM_COMMAND && l != 0) {
    if (ChildWindow* child = child_of(reinterpret_cast<HWND>(l)))
      child->notified(HIWORD(w));
    return true;
  }
  if (message == WM_NOTIFY) {
    auto& header = *reinterpret_cast<NMHDR*>(l);
    ChildWindow* child = child_of(header.hwndFrom);
    return child != nullptr && child->asked(header, result);
  }
  if (message == WM_CTLCOLORLISTBOX) {
    const auto* list = dynamic_cast<ListBox*>(child_of(reinterpret_cast<HWND>(l)));
    if (list != nullptr)
      result = reinterpret_cast<LRESULT>(list->brush());
    return list != nullptr;
  }
  return false;
}

// The background, and over it the decorations below the control.
void ControlHost::draw_behind(HDC target, HWND control) {
  RECT area{};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&area), 2);
  POINT origin{};
  SetViewportOrgEx(target, -area.left, -area.top, &origin);
  draw_ground(target, area);
  for (PictureBox* picture : pictures_) {
    if (picture->kind() != PictureKind::decoration || !picture->visible() || picture->handle() == control)
      continue;
    RECT place{};
    RECT both{};
    GetWindowRect(picture->handle(), &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    if (IntersectRect(&both, &place, &area) == 0)
      continue;
    SetViewportOrgEx(target, place.left - area.left, place.top - area.top, nullptr);
    picture->draw(target, RECT{0, 0, place.right - place.left, place.bottom - place.top});
  }
  SetViewportOrgEx(target, origin.x, origin.y, nullptr);
}

// The system's message font, at the size of this monitor; headings are larger and bolder.
HFONT ControlHost::font(LabelFont kind, bool underline, bool bold) {
  const bool heading = kind == LabelFont::heading;
  GdiObject& kept = fonts_[(bold ? 4U : 0U) + (heading ? 2U : 0U) + (underline ? 1U : 0U)];
  if (kept != nullptr)
    return static_cast<HFONT>(kept.get());
  constexpr int text_size = 180;    // twips: 9 points
  constexpr int heading_size = 250; // 12.5 points
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  LOGFONTW wished{};
  int height = -pixels(text_size, dpi_);
  if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi_) != 0) {
    wished = metrics.lfMessageFont;
    if (font_size_ == FontSize::chosen)
      height = wished.lfHeight;
  } else {
    wcscpy(wished.lfFaceName, L"Segoe UI");
  }
  wished.lfHeight = heading ? MulDiv(height, heading_size, text_size) : height;
  wished.lfWeight = bold ? FW_BOLD : heading ? FW_SEMIBOLD : FW_NORMAL;
  wished.lfUnderline = underline ? TRUE : FALSE;
  kept.reset(CreateFontIndirectW(&wished));
  return static_cast<HFONT>(kept.get());
}

// The user has changed the message font, or a theme with its own fonts.
bool ControlHost::look_changed(UINT message, WPARAM w) {
  if (message == WM_THEMECHANGED || w == SPI_SETNONCLIENTMETRICS) {
    renew_fonts();
    fonts_changed();
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
  return false;
}

void ControlHost::renew_fonts() {
  for (const auto& child : children_)
    SendMessageW(child->handle(), WM_SETFONT, 0, FALSE); // the old fonts go
  for (GdiObject& kept : fonts_)
    kept.reset();
  for (const auto& child : children_)
    child->dpi_changed();
}

void ControlHost::change_dpi(unsigned dpi) {
  if (dpi == 0 || dpi == dpi_)
    return;
  dpi_ = dpi;
  if (tips_ != nullptr)
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, pixels(tip_width, dpi_));
  renew_fonts();
}

void use_common_controls() {
  static const bool ready = [] {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_WIN95_CLASSES;
    return InitCommonControlsEx(&classes) != 0;
  }();
  (void)ready; // without them the windows of those classes are not made, and that shows
}

// Created by the first mouse move: the start need not wait for it.
void ControlHost::make_tips() {
  if (tips_ != nullptr)
    return;
  use_common_controls();
  tips_ = make_tip_window();
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, pixels(tip_width, dpi_));
  for (const auto& [control, text] : tips_to_be_made_)
    show_tip(control, text);
  tips_to_be_made_.clear();
}

void ControlHost::set_tip(HWND control, const std::wstring& text) {
  if (tips_ == nullptr)
    tips_to_be_made_[control] = text;
  else
    show_tip(control, text);
}

void ControlHost::show_tip(HWND control, const std::wstring& text) {
  std::wstring shown = text.substr(0, most_tip_characters); // the record wants writable text
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = shown.data();
  // Adding a tool that is there already changes nothing; the text is set in either case.
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tips_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace lumotune::platform::win32
