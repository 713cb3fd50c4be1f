// SPDX-License-Identifier: LGPL-2.1-or-later
// Guards a procedure that must not nest: it lets events run, and one of them may call it again.
#pragma once

namespace lumotune::base {

// Enters by setting the flag, unless somebody is inside: then it is false, and the procedure returns at once. Clears
// the flag when the one that entered goes, on every path, also when something throws. User-interface thread.
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
