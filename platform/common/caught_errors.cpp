// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/caught_errors.h"

#include <algorithm>
#include <exception>

namespace lumotune::platform {
namespace {

std::string current_text() {
  std::string text;
  try {
    throw;
  } catch (const std::exception& error) {
    text = error.what();
  } catch (...) {
    text = "not a standard exception";
  }
  text.resize(std::min(text.size(), CaughtErrors::max_text));
  std::replace_if(
      text.begin(), text.end(), [](char each) { return static_cast<unsigned char>(each) < ' '; }, ' ');
  return text;
}

} // namespace

// A report that fails, for example for lack of memory, is dropped.
void CaughtErrors::tell() noexcept {
  if (telling_)
    return;
  telling_ = true;
  try {
    const std::string text = current_text();
    if (on_caught && told_.size() < max_kinds && told_.insert(text).second)
      on_caught(text);
  } catch (...) {
    telling_ = false;
    return;
  }
  telling_ = false;
}

} // namespace lumotune::platform
