// SPDX-License-Identifier: LGPL-2.1-or-later
// The connection as the system sees it.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/connection.h"

namespace lumotune::platform::win32 {

class Connection final : public platform::Connection {
public:
  [[nodiscard]] ConnectionState state() override;

private:
  const ThreadCheck thread_{"user-interface thread"};
};

} // namespace lumotune::platform::win32
