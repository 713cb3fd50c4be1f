// SPDX-License-Identifier: LGPL-2.1-or-later
// What the user drags out of another program and drops on a control of the main window; whether the window took it.
//   drop(backend, files_dropped({paths}) or text_dropped(text), control, events)
// `control` is nullptr for the background at its upper left corner.
#pragma once

#include "tests/contract/fixture.h"

namespace lumotune::contract {

inline platform::Drop files_dropped(const std::vector<std::wstring>& paths) {
  return {paths, L"", nullptr};
}

inline platform::Drop text_dropped(const std::wstring& text) {
  return {{}, text, nullptr};
}

} // namespace lumotune::contract

#ifdef _WIN32
#include "tests/contract/fixture_drop_win32.h"
#else
namespace lumotune::contract {

inline bool drop(Backend& b, const platform::Drop& what, const platform::Control* control) {
  return b.window.user_drop(what, control == nullptr ? L"" : control->name());
}

} // namespace lumotune::contract
#endif
