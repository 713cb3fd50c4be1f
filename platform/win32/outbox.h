// SPDX-License-Identifier: LGPL-2.1-or-later
// Sends copy-data texts from a thread of its own, so that a receiver that hangs does not keep the user interface.
#pragma once

#include "platform/win32/win.h"

#include <memory>
#include <string>

namespace lumotune::platform::win32 {

struct OutgoingText {
  HWND sender = nullptr;
  HWND target = nullptr;
  std::string bytes;
};

// User-interface thread. The thread exists while there is something to send. Destruction drops what waits and does not
// wait for the text that is being sent.
class Outbox {
public:
  Outbox();
  Outbox(const Outbox&) = delete;
  Outbox& operator=(const Outbox&) = delete;
  ~Outbox();

  // Dropped when WindowMessages::max_waiting others wait already.
  void add(OutgoingText text);
  [[nodiscard]] bool busy() const; // a text waits or is being sent

  struct Queue; // shared with the thread, which may outlive this object

private:
  std::shared_ptr<Queue> queue_;
};

} // namespace lumotune::platform::win32
