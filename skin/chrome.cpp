// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/chrome.h"

#include "base/text.h"

namespace lumotune::skin {

// The flag returns the system's result; callers ignore it, because failing to be on top is not an error.
void Chrome::SetTopmost(bool& flag) {
  flag = uses_.form.window.set_topmost(flag);
}

void Chrome::show_layer_picture(const wchar_t* picture) {
  // If the skin lacks the picture, the current one stays.
  (void)uses_.form.LineMenu_OnTop.load_picture(uses_.folder.skins(uses_.settings.LTskin + picture));
}

void Chrome::OnTopYES() {
  bool flag = true;
  SetTopmost(flag);
  uses_.settings.LTTop = L"1";
  show_layer_picture(L"\\ot.gif");
}

void Chrome::OnTopNO() {
  bool flag = false;
  SetTopmost(flag);
  uses_.settings.LTTop = L"0";
  show_layer_picture(L"\\otn.gif");
}

void Chrome::FormMax() {
  auto& window = uses_.form.window;
  window.set_visible(true);
  window.set_state(platform::WindowState::normal);
  uses_.session.window_shown = L"1";
  window.redraw();
  window.activate();
}

void Chrome::FormMin() {
  auto& window = uses_.form.window;
  window.set_state(platform::WindowState::minimized);
  window.set_visible(false);
  uses_.session.window_shown = L"0";
}

// The flag is first synchronised with the actual state, because the system can hide or show the window on its own.
void Chrome::OrbMinMax() {
  auto& shown = uses_.session.window_shown;
  shown = uses_.form.window.visible() ? L"1" : L"0";
  if (shown != L"1" && !shown.empty())
    FormMax();
  else
    FormMin();
}

void Chrome::Form_MouseMove(const platform::MouseEvent& event) {
  if (event.button == platform::MouseButton::left)
    uses_.form.window.drag_by_caption();
}

void Chrome::LineMenu_OnTop_Click() {
  if (base::number_value(uses_.settings.LTTop) == 1.0)
    OnTopNO();
  else
    OnTopYES();
}

void Chrome::InfoName_MouseMove() {
  uses_.form.InfoName.set_underline(true);
}

void Chrome::InfoNaladit_MouseMove() {
  uses_.form.InfoNaladit.set_underline(true);
}

void Chrome::LTDisplay_MouseMove() {
  uses_.form.InfoName.set_underline(false);
  uses_.form.InfoNaladit.set_underline(false);
}

} // namespace lumotune::skin
