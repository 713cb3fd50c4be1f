// SPDX-License-Identifier: LGPL-2.1-or-later
// What is dropped on the main window.
#include "platform/win32/window.h"

#include "platform/common/drop_record.h"

#include <utility>

namespace lumotune::platform::win32 {

void Window::take_drops() {
  drops_start_->stop();
  drops_ = std::make_unique<DropTarget>(window_, [this](Drop drop, POINT point) { dropped(std::move(drop), point); });
}

// The other program waits meanwhile: the handler runs when it has its answer.
void Window::dropped(Drop drop, POINT point) {
  dropped_ = std::move(drop);
  ScreenToClient(window_, &point);
  const HWND under = ChildWindowFromPointEx(window_, point, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
  dropped_.over = dynamic_cast<const Control*>(child_of(under));
  drop_waker_->wake();
}

void Window::hand_over_drop() {
  const Drop drop = std::exchange(dropped_, {});
  if (const auto copy = on_drop; copy && can_be_dropped(drop))
    copy(drop);
}

} // namespace lumotune::platform::win32
