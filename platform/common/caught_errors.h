// SPDX-License-Identifier: LGPL-2.1-or-later
// What is thrown in a handler that the system calls, caught before it reaches the system's code.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>

namespace lumotune::platform {

// User-interface thread.
class CaughtErrors {
public:
  // No more texts are told apart in a run, and no text is longer, in bytes: what repeats must not fill a log.
  static constexpr std::size_t max_kinds = 50;
  static constexpr std::size_t max_text = 500;

  CaughtErrors() = default;
  CaughtErrors(const CaughtErrors&) = delete;
  CaughtErrors& operator=(const CaughtErrors&) = delete;
  ~CaughtErrors() = default;

  // Does the work; what it throws ends here and is told.
  template <typename Work>
  void guard(const Work& work) noexcept {
    try {
      work();
    } catch (...) {
      tell();
    }
  }

  // Told the exception's text, one line without control characters, once a run for each text. May be empty, and may
  // throw; not called while it is at work.
  std::function<void(const std::string& what)> on_caught;

private:
  void tell() noexcept; // about the exception that is being handled

  std::set<std::string> told_;
  bool telling_ = false;
};

} // namespace lumotune::platform
