// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"

#include <string>

namespace lumotune::contract {

struct Backend {
  platform::memory::MemoryEventLoop loop;
  platform::memory::MemoryFiles files;
  platform::memory::MemoryCodec codec;
  platform::memory::MemoryWindow window{files};
  platform::memory::MemoryFramedWindowMaker framed_windows{files};
  platform::memory::MemoryMessages messages;

  std::wstring folder = L"C:\\pokus";

  // Lets so many milliseconds go by, with their events: for what must not happen meanwhile.
  void pass(std::uint32_t ms) { loop.advance(ms); }
  // Lets events run until that holds; false when it still does not after half a minute.
  template <typename Fact>
  [[nodiscard]] bool until(const Fact& fact) {
    for (int i = 0; i < 3000 && !fact(); ++i)
      loop.advance(10);
    return fact();
  }
  // The user's keyboard: goes to another window, moves by Tab; where it is, as the control's name, empty for none.
  void leave() { window.user_leaves(); }
  void tab(bool back = false) { window.user_tab(back); }
  [[nodiscard]] bool has_keyboard() const { return window.visible(); }
  [[nodiscard]] std::wstring keyboard_at() { return window.keyboard_at(); }
  // The key for menus, where the keyboard is; the right button over the main window's background.
  void menu_key() { (void)window.user_menu_key(); }
  void right_click() { (void)window.user_right_click(); }
  template <typename Control>
  void double_click(Control& control) {
    if (auto* picture = dynamic_cast<platform::memory::MemoryPicture*>(&control))
      (void)picture->user_double_click();
    else if (auto* label = dynamic_cast<platform::memory::MemoryLabel*>(&control))
      (void)label->user_double_click();
  }
  // The same for framed windows.
  static platform::memory::MemoryFramedWindow& twin(platform::FramedWindow& framed) {
    return dynamic_cast<platform::memory::MemoryFramedWindow&>(framed);
  }
  static void enter(platform::FramedWindow& /*framed*/, platform::TreeView& tree) {
    (void)dynamic_cast<platform::memory::MemoryTree&>(tree).user_enter();
  }
  void minimize(platform::FramedWindow& framed) { twin(framed).user_minimize(); }
  void maximize(platform::FramedWindow& framed) { twin(framed).user_maximize(); }
  void restore(platform::FramedWindow& framed) { twin(framed).user_restore(); }
  platform::TwipsRect work_area(platform::FramedWindow& framed) { return twin(framed).work_area; }
  // Another program sends the main window copy-data; its answer.
  long deliver(const std::string& bytes, std::uint32_t kind) { return messages.deliver(bytes, kind); }
};

} // namespace lumotune::contract
