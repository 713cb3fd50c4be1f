// SPDX-License-Identifier: LGPL-2.1-or-later
// Converts a downloaded list into the contents of the station file and the category file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// Shows the orders in the list, that is, everything but stations and categories, in their order. Events may run
// meanwhile.
struct ConversionPort {
  virtual ~ConversionPort() = default;
  // Only the last of several advertisements has its page requested, once, at `orders_end`.
  virtual void ZobrazReklamu(const std::wstring& text) = 0;
  virtual void ZobrazInfoPanel(const std::wstring& text) = 0;
  virtual void orders_end() = 0;
};

// Limits of one list; anything beyond them is ignored.
inline constexpr std::size_t max_categories = 5000;
inline constexpr std::size_t max_orders = 10; // advertisements, and information lines
inline constexpr std::size_t max_order_bytes = 64 * 1024;

// An order as it stands in the list, in the system's code page.
struct Order {
  enum class Kind { advertisement, information };
  Kind kind = Kind::advertisement;
  std::string text;
};

// The new contents of both files, each ending with an extra CR LF, and the orders of the list.
struct Converted {
  std::string stations;
  std::string categories;
  std::vector<Order> orders;
};

// Takes any bytes: a line of no known kind is a station and is copied unchanged. Nothing when the list has more lines
// or bytes than a station file may have. Any thread.
[[nodiscard]] std::optional<Converted> convert(std::string_view list);

// Tells lists apart: lists that differ in one place never have the same mark, others practically never. Any thread.
[[nodiscard]] std::uint64_t list_mark(std::string_view list);

// The outcome of converting a downloaded list.
enum class Conversion {
  done,
  unreadable,  // the list could not be read or does not have the announced length; nothing was changed or shown
  too_long,    // too many lines or bytes; nothing was changed or shown
  not_written, // the files could not be replaced; the old ones are intact
  failed       // memory or threads have run out; both files are the old ones or both the new ones
};

} // namespace lumotune::stations
