// SPDX-License-Identifier: LGPL-2.1-or-later
// Where a room calls upward: a slot that starts at a port that does nothing and is bound once, when the program is
// wired.
#pragma once

#include <cassert>

namespace lumotune::base {

// `Port` is an abstract struct, `Nothing` its do-nothing twin. What is bound must outlive the slot's use.
template <typename Port, typename Nothing>
class Slot {
public:
  Slot() = default;
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;
  ~Slot() = default;

  void bind(Port& port) { bound_ = &port; }
  Port* operator->() { return bound_; }
  Port& operator*() { return *bound_; }

private:
  Nothing nothing_;
  Port* bound_ = &nothing_;
};

} // namespace lumotune::base
