// SPDX-License-Identifier: LGPL-2.1-or-later
// Thread ownership, checked in every build.
#pragma once

#include <thread>

namespace lumotune::platform {

// Ends the program at once: prints one line to standard error and traps here, so that a crash report shows the
// offending stack. For violated preconditions within the program, never for what a file, a server or a user does. Any
// thread.
[[noreturn]] void stop_program(const char* reason, const char* role) noexcept;

// The thread that an object belongs to. A call from another one is a race that corrupts memory sooner or later, in
// release builds too, so it stops the program instead. A check compares two thread ids: cheap enough for every call
// that is not made per sample.
class ThreadCheck {
public:
  // Binds to the thread that makes it. `role` names that thread in the message ("user-interface thread"); a literal.
  explicit ThreadCheck(const char* role) noexcept : role_(role), owner_(std::this_thread::get_id()) {}

  // Binds to the current thread instead, for objects that are made on one thread and used on another. To be called
  // before anything is checked; the hand-over itself (a thread's start, a lock) must order the two.
  void rebind() noexcept { owner_ = std::this_thread::get_id(); }

  [[nodiscard]] bool holds() const noexcept { return owner_ == std::this_thread::get_id(); }
  void check() const noexcept {
    if (!holds())
      stop_program("called on another thread than the", role_);
  }

private:
  const char* role_;
  std::thread::id owner_;
};

} // namespace lumotune::platform
