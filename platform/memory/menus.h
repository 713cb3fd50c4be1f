// SPDX-License-Identifier: LGPL-2.1-or-later
// In-memory menus, input box, pointer, media keys and connection: they record calls and answer as configured.
#pragma once

#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/input_box.h"
#include "platform/memory/modal.h"
#include "platform/popup_menus.h"
#include "platform/user_input.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

// The first item with that name in the tree, or nullptr.
[[nodiscard]] const MenuItem* find_item(const std::vector<MenuItem>& items, const std::wstring& name);

class PopupMenus final : public platform::PopupMenus {
public:
  explicit PopupMenus(const platform::EventLoop& loop) : loop_(loop) {}

  struct Opened {
    std::vector<MenuItem> items;
    const Control* anchor = nullptr;
  };
  // Chooses the next of `choices` if that item exists and is visible and enabled; otherwise nothing.
  [[nodiscard]] std::wstring pop_up(const std::vector<MenuItem>& items, const Control* anchor) override;

  std::vector<Opened> opened;
  std::deque<std::wstring> choices;
  Modal modal; // events while it is open, followed by:
  std::function<void()> while_open;
  std::function<void()> after_choice; // what is delivered between the user's choice and the return

private:
  const platform::EventLoop& loop_;
  bool open_ = false;
};

class InputBox final : public platform::InputBox {
public:
  explicit InputBox(const platform::EventLoop& loop) : loop_(loop) {}

  struct Asked {
    std::wstring prompt;
    std::wstring title;
    std::wstring default_text;
  };
  [[nodiscard]] std::optional<std::wstring> ask(const std::wstring& prompt, const std::wstring& title,
                                                const std::wstring& default_text) override;

  std::vector<Asked> asked;
  std::deque<std::optional<std::wstring>> answers; // consumed in order; cancels when empty
  Modal modal;                                     // events while it is open, followed by:
  std::function<void()> while_open;

private:
  static constexpr std::size_t max_length = 2000;
  const platform::EventLoop& loop_;
  bool open_ = false;
};

class Pointer final : public platform::Pointer {
public:
  void click_left() override {
    ++clicks;
    if (on_click)
      on_click();
  }
  int clicks = 0;
  std::function<void()> on_click; // the effect of the click
};

class MediaKeys final : public platform::MediaKeys {
public:
  void take() override { taken = true; }
  void release() override { taken = false; }
  bool taken = false;
};

class Connection final : public platform::Connection {
public:
  [[nodiscard]] ConnectionState state() override {
    ++asked;
    return now;
  }
  ConnectionState now{true, 0x42, L"test network"};
  int asked = 0;
};

} // namespace lumotune::platform::memory
