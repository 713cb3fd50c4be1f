// SPDX-License-Identifier: LGPL-2.1-or-later
// What the downloaded list becomes: the content of the station file and of the category file.
#pragma once

#include "platform/ansi_codec.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::stations {

// Who shows what the list says beside its stations: its orders, in their order. Events may run meanwhile.
struct ConversionPort {
  virtual ~ConversionPort() = default;
  // Of several advertisements the last one's page is asked for, once, at `orders_end`.
  virtual void ZobrazReklamu(const std::wstring& text) = 0;
  virtual void ZobrazInfoPanel(const std::wstring& text) = 0;
  virtual void orders_end() = 0;
};

// What a server may ask for in one list; what is beyond is left out.
inline constexpr std::size_t max_categories = 5000;
inline constexpr std::size_t max_orders = 10; // advertisements, and information lines
inline constexpr std::size_t max_order_bytes = 64 * 1024;

// The new content of both files, closed by one more CR LF each.
struct Converted {
  std::string stations;
  std::string categories;
};

// Any bytes: a line of no known kind is a station and stays as it came. Nothing, and no order carried out, when there
// are more lines or bytes than a station file may have.
[[nodiscard]] std::optional<Converted> convert(std::string_view list, const platform::AnsiCodec& codec,
                                               ConversionPort& port);

// What became of a downloaded list.
enum class Conversion {
  done,
  unreadable, // the list could not be read, or is not as long as announced; nothing was changed or shown
  too_long,   // it has too many lines or bytes; nothing was changed or shown
  not_written // the new files could not take the places of the old ones, which are still there
};

} // namespace lumotune::stations
