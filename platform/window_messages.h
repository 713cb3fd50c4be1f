// SPDX-License-Identifier: LGPL-2.1-or-later
// Text commands between windows of programs: the copy-data message.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lumotune::platform {

// A window of any program; 0 is no window.
enum class WindowRef : std::uintptr_t { none = 0 };

// What a copy-data message brought. The bytes come from another program and are not to be trusted.
struct CopyData {
  std::uint32_t kind = 0; // dwData
  std::string bytes;      // already copied; empty for a null pointer or an absurd length
};

// User-interface thread.
class WindowMessages {
public:
  // A longer copy-data text is taken for an attack and arrives empty.
  static constexpr std::size_t max_bytes = 1024 * 1024;
  // How long a receiving program may take before it counts as hung.
  static constexpr std::uint32_t send_limit_ms = 3000;
  // A longer caption, in characters, is not looked for.
  static constexpr std::size_t max_caption = 1000;

  WindowMessages() = default;
  WindowMessages(const WindowMessages&) = delete;
  WindowMessages& operator=(const WindowMessages&) = delete;
  virtual ~WindowMessages() = default;

  // The first top-level window of any program with that caption, hidden ones too, as the system's ANSI look-up finds
  // it. An empty caption, which many windows have, and one longer than `max_caption` find none.
  [[nodiscard]] virtual WindowRef find_by_caption(const std::wstring& caption) const = 0;

  // The main window of another copy of this program: the first one of its kind with that caption, else what
  // `find_by_caption` finds. Any program can give its window a caption.
  [[nodiscard]] virtual WindowRef find_copy(const std::wstring& caption) const = 0;

  // Sends the bytes (no terminating zero) with kind 1 and the main window as sender, and waits for the receiver to have
  // dealt with them, at most `send_limit_ms` when it hangs. No window, or a text longer than
  // `max_bytes`: nothing is sent.
  virtual void send_copy_data(WindowRef target, std::string_view bytes) = 0;

  // Lets the program of that window bring its window to the front.
  virtual void let_take_foreground(WindowRef target) = 0;

  // Hooks the main window's window procedure: each copy-data message is handed to `receive` and answered with -1, every
  // other message goes to the kept procedure. An empty function puts the kept procedure back.
  virtual void hook(std::function<void(const CopyData&)> receive) = 0;
};

} // namespace lumotune::platform
