// SPDX-License-Identifier: LGPL-2.1-or-later
// The server's answer to the question how long the list is. Pure, but for what runs between its lines.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lumotune::directory {

// A longer answer is unusable.
inline constexpr std::size_t max_probe_bytes = 64 * 1024;

struct Probe {
  enum class Kind { size, refused, unusable };
  Kind kind = Kind::unusable;
  std::uint64_t size = 0; // bytes of the complete list, at least 1; for Kind::size only
};

// Takes arbitrary bytes. The last "size:" line counts; the answer is unusable without one, or when its value is not a
// whole number from 1 to the length limit of a station file. The error marker stops parsing. `after_line` is called
// after each remaining line; when it returns false, parsing stops and the answer is unusable.
[[nodiscard]] Probe parse_probe(
    std::string_view bytes, const std::wstring& server_address, const platform::AnsiCodec& codec,
    const std::function<bool()>& after_line = [] { return true; });

// The host of an address: without scheme, "www.", port and path.
[[nodiscard]] std::wstring host_of(std::wstring_view address);

} // namespace lumotune::directory
