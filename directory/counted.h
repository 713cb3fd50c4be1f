// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace lumotune::directory {

// Counts a procedure of the window while it runs, waits included: the window must not go under it.
class Counted {
public:
  explicit Counted(int& counter) : counter_(counter) { ++counter_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() { --counter_; }

private:
  int& counter_;
};

} // namespace lumotune::directory
