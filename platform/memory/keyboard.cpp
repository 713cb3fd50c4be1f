// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/keyboard.h"

#include "platform/common/reading_order.h"

#include <algorithm>

namespace lumotune::platform::memory {

// A control with an empty size is not visible.
bool Keyboard::reachable(const Control& control) const {
  return control.visible() && control.enabled() && unsized_.count(&control) == 0;
}

// The reachable controls, and `from`, in reading order.
std::vector<const Control*> Keyboard::round(const Control* from) const {
  std::vector<const Control*> found;
  std::vector<TwipsRect> places;
  for (const Control* control : stops_) {
    if (control != from && !reachable(*control))
      continue;
    found.push_back(control);
    places.push_back(control->rect());
  }
  std::vector<const Control*> ordered;
  for (const std::size_t index : reading_order(places))
    ordered.push_back(found[index]);
  return ordered;
}

void Keyboard::window_active(bool active) {
  active_ = active;
  if (!active)
    return;
  if (at_ == nullptr) {
    const auto first =
        std::find_if(stops_.begin(), stops_.end(), [this](const auto* each) { return reachable(*each); });
    at_ = first == stops_.end() ? nullptr : *first;
  } else if (!reachable(*at_)) {
    leave(*at_);
  }
}

void Keyboard::tab(bool back) {
  const auto order = round(at_);
  if (!active_ || order.empty())
    return;
  const auto found = std::find(order.begin(), order.end(), at_);
  const auto here = static_cast<std::size_t>(found - order.begin());
  if (found == order.end())
    at_ = back ? order.back() : order.front();
  else
    at_ = order[(here + (back ? order.size() - 1 : 1)) % order.size()];
  if (at_ != stand_in_)
    awaited_ = stand_in_ = nullptr;
}

void Keyboard::pressed(const Control& stop) {
  active_ = true;
  at_ = &stop;
  if (at_ != stand_in_)
    awaited_ = stand_in_ = nullptr;
}

void Keyboard::take(const Control& stop) {
  if (active_ && seen_ && reachable(stop))
    pressed(stop);
}

void Keyboard::leave(const Control& control) {
  if (awaited_ == nullptr || &control != stand_in_)
    awaited_ = &control;
  const auto order = round(&control);
  const auto here = static_cast<std::size_t>(std::find(order.begin(), order.end(), &control) - order.begin());
  stand_in_ = order.size() < 2 ? nullptr : order[(here + 1) % order.size()];
  at_ = stand_in_;
}

void Keyboard::resized(const Control& control, bool to_something) {
  if (to_something)
    unsized_.erase(&control);
  else
    unsized_.insert(&control);
  reach_changed(control);
}

void Keyboard::reach_changed(const Control& control) {
  if (active_ && &control == at_ && !reachable(control)) {
    leave(control);
  } else if (&control == awaited_ && at_ == stand_in_ && reachable(control)) {
    at_ = &control;
    awaited_ = stand_in_ = nullptr;
  }
}

} // namespace lumotune::platform::memory
