// SPDX-License-Identifier: LGPL-2.1-or-later
// Text commands between programs' windows, sent as copy-data messages.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lumotune::platform {

// A window of any program; 0 is none.
enum class WindowRef : std::uintptr_t { none = 0 };

// A received copy-data message. The bytes come from another program and are untrusted.
struct CopyData {
  std::uint32_t kind = 0; // dwData
  std::string bytes;      // a copy; empty for a null pointer or an absurd length
};

// User-interface thread.
class WindowMessages {
public:
  // A longer copy-data text is treated as an attack and arrives empty.
  static constexpr std::size_t max_bytes = 1024 * 1024;
  // A receiver that takes longer counts as hung.
  static constexpr std::uint32_t send_limit_ms = 3000;
  // More texts than these do not wait for their receivers; further ones are dropped.
  static constexpr std::size_t max_waiting = 16;
  // Longer captions, in characters, are not searched for.
  static constexpr std::size_t max_caption = 1000;

  WindowMessages() = default;
  WindowMessages(const WindowMessages&) = delete;
  WindowMessages& operator=(const WindowMessages&) = delete;
  virtual ~WindowMessages() = default;

  // The first top-level window of any program with that caption, including hidden ones, as found by the system's ANSI
  // look-up. None for an empty caption, which many windows have, and for one longer than `max_caption`.
  [[nodiscard]] virtual WindowRef find_by_caption(const std::wstring& caption) const = 0;

  // The main window of another copy of this program: the first window of its class with that caption, because any
  // program can use the caption; if there is none, the result of `find_by_caption`.
  [[nodiscard]] virtual WindowRef find_copy(const std::wstring& caption) const = 0;

  // Sends the bytes (no terminating zero) with kind 1 and the main window as sender, from a thread that sends one text
  // after the other, in the order of the calls; a receiver that hangs is given up after `send_limit_ms`. Returns at
  // once. Nothing is sent without a window or when longer than `max_bytes`. What waits when this object is destroyed
  // is dropped.
  virtual void send_copy_data(WindowRef target, std::string_view bytes) = 0;

  // Whether a receiver has yet to handle a text. Who wants to know lets events run until it answers false.
  [[nodiscard]] virtual bool sending() const = 0;

  // Allows that window's program to bring it to the foreground.
  virtual void let_take_foreground(WindowRef target) = 0;

  // Hooks the main window's window procedure: each copy-data message is passed to `receive` and answered with -1, every
  // other message goes to the original procedure. An empty function restores the original.
  virtual void hook(std::function<void(const CopyData&)> receive) = 0;
};

} // namespace lumotune::platform
