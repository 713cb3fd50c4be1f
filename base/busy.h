// SPDX-License-Identifier: LGPL-2.1-or-later
// Marks a handler that must not nest.
#pragma once

namespace lumotune::base {

// Sets a flag for as long as it lives: it is cleared on every path, also when something throws.
class Busy {
public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() { flag_ = false; }

private:
  bool& flag_;
};

} // namespace lumotune::base
