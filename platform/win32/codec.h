// SPDX-License-Identifier: LGPL-2.1-or-later
// The system's code page.
#pragma once

#include "platform/ansi_codec.h"

#include <string>
#include <string_view>

namespace lumotune::platform::win32 {

class Codec final : public AnsiCodec {
public:
  Codec();
  [[nodiscard]] std::wstring decode(std::string_view bytes) const override;
  [[nodiscard]] std::string encode(std::wstring_view text) const override;

private:
  bool system_; // the system's code page is single-byte
};

} // namespace lumotune::platform::win32
