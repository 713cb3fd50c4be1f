// SPDX-License-Identifier: LGPL-2.1-or-later
// The keyboard among the controls of a window in memory, as strict as the system's.
#pragma once

#include "platform/controls.h"

#include <set>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

class Keyboard {
public:
  Keyboard() = default;
  Keyboard(const Keyboard&) = delete;
  Keyboard& operator=(const Keyboard&) = delete;
  ~Keyboard() = default;

  void add_stop(const Control& control) { stops_.push_back(&control); } // in the order of making
  [[nodiscard]] const std::vector<const Control*>& stops() const { return stops_; }

  // The control that has it; nullptr while the window is not the active one, or has none to give it to.
  [[nodiscard]] const Control* at() const { return active_ ? at_ : nullptr; }
  void window_active(bool active);
  [[nodiscard]] bool active() const { return active_; }
  // The window can be seen: only then the mouse reaches what is in it.
  void window_seen(bool seen) { seen_ = seen; }
  [[nodiscard]] bool seen() const { return seen_; }
  void tab(bool back);
  void pressed(const Control& stop);          // by the mouse, which brings the window to the front too
  void reach_changed(const Control& control); // it was shown, hidden, enabled or disabled
  void resized(const Control& control, bool to_something);

private:
  [[nodiscard]] bool reachable(const Control& control) const;
  [[nodiscard]] std::vector<const Control*> round(const Control* from) const;
  void leave(const Control& control);

  std::vector<const Control*> stops_;
  std::set<const Control*> unsized_; // were made as small as nothing
  const Control* at_ = nullptr;
  const Control* awaited_ = nullptr; // went out of reach with the keyboard, which waits for it at the stand-in
  const Control* stand_in_ = nullptr;
  bool active_ = false;
  bool seen_ = true;
};

} // namespace lumotune::platform::memory
