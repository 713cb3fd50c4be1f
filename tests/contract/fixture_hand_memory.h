// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/memory/menus.h"
#include "tests/contract/fixture_memory.h"

#include <cstdint>
#include <functional>
#include <string>

namespace lumotune::contract {

struct HandBackend : Backend {
  platform::memory::PopupMenus popup_menus{loop};
  platform::memory::InputBox input_box{loop};
  platform::memory::Dialogs dialogs{loop};
  platform::memory::Tray tray;
  platform::memory::Shell shell;
  platform::memory::Machine machine;
  platform::memory::Connection connection;

  HandBackend() {
    for (platform::memory::Modal* modal : {&popup_menus.modal, &input_box.modal, &dialogs.modal})
      modal->lets_run(loop);
  }

  // The user leaves the next menu or box open for so long before anything is done with it.
  void stay_open(std::uint32_t ms) {
    for (platform::memory::Modal* modal : {&popup_menus.modal, &input_box.modal, &dialogs.modal})
      modal->open_for_ms = ms;
  }
  void choose(const std::wstring& name, const std::wstring& /*caption*/) { popup_menus.choices.push_back(name); }
  void close_menu() {}
  void leave_open() {}
  void answer(platform::BoxAnswer answer) { dialogs.answers.push_back(answer); }
  void enter(const std::wstring& text) { input_box.answers.emplace_back(text); }
  void cancel() { input_box.answers.emplace_back(std::nullopt); }
  void while_open(const std::function<void()>& work) {
    popup_menus.while_open = work;
    dialogs.while_open = work;
    input_box.while_open = work;
  }
  [[nodiscard]] bool tray_icon_is_there() { return tray.added; }
};

} // namespace lumotune::contract
