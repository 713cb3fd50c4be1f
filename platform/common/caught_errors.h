// SPDX-License-Identifier: LGPL-2.1-or-later
// Catches what handlers throw before it reaches the system code that calls them, and reports it.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>

namespace lumotune::platform {

// User-interface thread.
class CaughtErrors {
public:
  // At most so many different texts are reported in a run, each cut to `max_text` bytes: a log must not fill up.
  static constexpr std::size_t max_kinds = 50;
  static constexpr std::size_t max_text = 500;

  CaughtErrors() = default;
  CaughtErrors(const CaughtErrors&) = delete;
  CaughtErrors& operator=(const CaughtErrors&) = delete;
  ~CaughtErrors() = default;

  // Runs the work; catches and reports what it throws.
  template <typename Work>
  void guard(const Work& work) noexcept {
    try {
      work();
    } catch (...) {
      tell();
    }
  }

  // Gets the exception's text, one line without control characters, once per text and run. May be unset and may throw;
  // never called recursively.
  std::function<void(const std::string& what)> on_caught;

private:
  void tell() noexcept; // about the exception that is being handled

  std::set<std::string> told_;
  bool telling_ = false;
};

} // namespace lumotune::platform
