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
  platform::memory::EventLoop loop;
  platform::memory::Files files;
  platform::memory::Codec codec;
  platform::memory::Window window{files};
  platform::memory::FramedWindowMaker framed_windows{files};
  platform::memory::Messages messages;

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
    if (auto* picture = dynamic_cast<platform::memory::PictureBox*>(&control))
      (void)picture->user_double_click();
    else if (auto* label = dynamic_cast<platform::memory::Label*>(&control))
      (void)label->user_double_click();
  }
  // The mouse on the middle of a control of the main window, wherever that is.
  static void press(platform::Button& button) { (void)dynamic_cast<platform::memory::Button&>(button).user_click(); }
  // The same for framed windows.
  static platform::memory::FramedWindow& twin(platform::FramedWindow& framed) {
    return dynamic_cast<platform::memory::FramedWindow&>(framed);
  }
  static void enter(platform::FramedWindow& /*framed*/, platform::TreeView& tree) {
    (void)dynamic_cast<platform::memory::TreeView&>(tree).user_enter();
  }
  void leave(platform::FramedWindow& framed) { twin(framed).user_leaves(); }
  void tab(platform::FramedWindow& framed, bool back = false) { twin(framed).user_tab(back); }
  [[nodiscard]] bool has_keyboard(platform::FramedWindow& framed) const { return twin(framed).has_keyboard(); }
  [[nodiscard]] std::wstring keyboard_at(platform::FramedWindow& framed) { return twin(framed).keyboard_at(); }
  // The mouse on a row of a list or a node of a tree, where they lie on the screen; the arrow key down.
  void press(platform::FramedWindow& /*framed*/, platform::ListView& list, std::size_t row,
             platform::MouseButton button = platform::MouseButton::left) {
    (void)dynamic_cast<platform::memory::ListView&>(list).user_pick(row, button);
  }
  void press(platform::FramedWindow& /*framed*/, platform::TreeView& tree, std::size_t node) {
    (void)dynamic_cast<platform::memory::TreeView&>(tree).user_pick(node);
  }
  void press_twice(platform::FramedWindow& /*framed*/, platform::ListView& list, std::size_t row) {
    (void)dynamic_cast<platform::memory::ListView&>(list).user_double_pick(row);
  }
  void arrow(platform::FramedWindow& /*framed*/, platform::ListView& list) {
    (void)dynamic_cast<platform::memory::ListView&>(list).user_arrow(list.selected() + 1);
  }
  void arrow(platform::FramedWindow& /*framed*/, platform::TreeView& tree) {
    (void)dynamic_cast<platform::memory::TreeView&>(tree).user_arrow(tree.selected() + 1);
  }
  // Keys where the keyboard is: letters over what is selected there, Enter, a key of the window.
  void write(platform::FramedWindow& /*framed*/, platform::TextEntry& entry, const std::wstring& text) {
    (void)dynamic_cast<platform::memory::TextEntry&>(entry).user_writes(text);
  }
  void enter(platform::FramedWindow& /*framed*/, platform::TextEntry& entry) {
    (void)dynamic_cast<platform::memory::TextEntry&>(entry).user_enter();
  }
  void window_key(platform::FramedWindow& framed, platform::FramedWindowKey key) { (void)twin(framed).user_key(key); }
  // How often screen readers are told of that label by the work.
  template <typename Work>
  [[nodiscard]] std::size_t announced(platform::FramedWindow& /*framed*/, platform::Label& label, const Work& work) {
    const auto& told = dynamic_cast<platform::memory::Label&>(label).announced;
    const std::size_t before = told.size();
    work();
    return told.size() - before;
  }
  // A program that arranges windows puts it where no monitor is; the system says that the monitors are others now.
  void move_away(platform::FramedWindow& framed) { twin(framed).user_move(15000 * 15, 9000 * 15); }
  // The user moves it to the lower right of the screen, where so much of it stays in sight.
  void move_to_corner(platform::FramedWindow& framed, int shown) {
    const auto& monitor = twin(framed).monitor;
    twin(framed).user_move(monitor.left + monitor.width - shown, monitor.top + monitor.height - shown);
  }
  void monitors_change(platform::FramedWindow& framed) {
    twin(framed).user_changes_monitor(twin(framed).monitor, twin(framed).work_area);
  }
  void minimize(platform::FramedWindow& framed) { twin(framed).user_minimize(); }
  void maximize(platform::FramedWindow& framed) { twin(framed).user_maximize(); }
  void restore(platform::FramedWindow& framed) { twin(framed).user_restore(); }
  platform::TwipsRect work_area(platform::FramedWindow& framed) { return twin(framed).work_area; }
  // Another program sends the main window copy-data; its answer.
  long deliver(const std::string& bytes, std::uint32_t kind) { return messages.deliver(bytes, kind); }
};

} // namespace lumotune::contract
