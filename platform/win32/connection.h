// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "platform/connection.h"
#include "platform/win32/win.h"

namespace lumotune::platform::win32 {

class Win32Connection final : public Connection {
public:
  [[nodiscard]] ConnectionState state() override;
};

} // namespace lumotune::platform::win32
