// SPDX-License-Identifier: LGPL-2.1-or-later
// A slot through which a room calls upward, bound once when the program is wired.
#pragma once

#include <cstdio>

namespace lumotune::base {

// `Port` is an abstract struct. The bound object must outlive every use of the slot. Using an unbound slot is a
// programming error that ends the program, in release builds too.
template <typename Port>
class Slot {
public:
  Slot() = default;
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;
  ~Slot() = default;

  void bind(Port& port) { bound_ = &port; }
  Port* operator->() { return &**this; }
  Port& operator*() {
    if (bound_ == nullptr) {
      // Not abort(), which may open a message box and run events behind it.
      (void)std::fputs("lumotune: a port was called before it was bound\n", stderr);
      __builtin_trap();
    }
    return *bound_;
  }

private:
  Port* bound_ = nullptr;
};

} // namespace lumotune::base
