// SPDX-License-Identifier: LGPL-2.1-or-later
// Guards a procedure against re-entry: it runs events, and a handler may call it again.
#pragma once

namespace lumotune::base {

// Sets the flag on entry and clears it on every exit, exceptions included. False when the procedure is already running:
// the caller then returns at once. User-interface thread.
class [[nodiscard]] Busy {
public:
  explicit Busy(bool& flag) : flag_(flag), entered_(!flag) { flag_ = true; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    if (entered_)
      flag_ = false;
  }
  explicit operator bool() const { return entered_; }

private:
  bool& flag_;
  const bool entered_;
};

} // namespace lumotune::base
