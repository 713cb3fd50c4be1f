// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/conversion.h"

#include "base/code_page_fold.h"
#include "base/line_walk.h"
#include "base/text.h"
#include "stations/station_limits.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace lumotune::stations {
namespace {

constexpr std::string_view line_end = "\r\n";
constexpr std::size_t marker_length = 6; // as of "orb:k:"

enum class Kind { nothing, category, advertisement, information, station };

Kind kind_of(std::string_view line) {
  if (line.empty() || (line.size() == 5 && base::starts_with_marker(line, "<end>")))
    return Kind::nothing;
  if (base::starts_with_marker(line, "orb:k:"))
    return Kind::category;
  if (base::starts_with_marker(line, "orb:r:"))
    return Kind::advertisement;
  return base::starts_with_marker(line, "orb:i:") ? Kind::information : Kind::station;
}

class Orders {
public:
  void add(Kind kind, std::string_view text) {
    const bool advertisement = kind == Kind::advertisement;
    std::size_t& count = advertisement ? advertisements_ : information_;
    if (count == max_orders || text.size() > max_order_bytes)
      return;
    ++count;
    orders_.push_back({advertisement ? Order::Kind::advertisement : Order::Kind::information, std::string(text)});
  }
  [[nodiscard]] std::vector<Order> take() { return std::move(orders_); }

private:
  std::vector<Order> orders_;
  std::size_t advertisements_ = 0;
  std::size_t information_ = 0;
};

} // namespace

// Consecutive station lines that already end in CR LF are copied in one piece.
std::optional<Converted> convert(std::string_view list) {
  Converted result;
  result.stations.reserve(list.size() + line_end.size());
  std::size_t copied = 0; // end of the part of the list already processed
  std::size_t categories = 0;
  Orders orders;
  const auto copy_up_to = [&](std::size_t end) { result.stations.append(list, copied, end - copied); };
  base::LineWalk walk(list, stations::max_station_lines);
  while (walk.next()) {
    const Kind kind = kind_of(walk.line());
    if (kind == Kind::station && list.substr(0, walk.after()).ends_with(line_end))
      continue;
    copy_up_to(walk.start());
    copied = walk.after();
    const std::string_view text = walk.line().substr(std::min(marker_length, walk.line().size()));
    if (kind == Kind::category && ++categories <= max_categories)
      result.categories.append(text).append(line_end);
    else if (kind == Kind::advertisement || kind == Kind::information)
      orders.add(kind, text);
    else if (kind == Kind::station)
      result.stations.append(walk.line()).append(line_end);
  }
  if (walk.after() < list.size())
    return std::nullopt;
  copy_up_to(list.size());
  result.stations.append(line_end);
  result.categories.append(line_end);
  if (std::max(result.stations.size(), result.categories.size()) > max_station_bytes)
    return std::nullopt;
  result.orders = orders.take();
  return result;
}

// Each step is one-to-one in the mark so far and in the word: a single changed word always changes the mark.
std::uint64_t list_mark(std::string_view list) {
  constexpr std::uint64_t odd_factor = 0x9e3779b97f4a7c15ULL;
  std::uint64_t mark = list.size();
  while (!list.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = std::min(list.size(), sizeof word);
    std::memcpy(&word, list.data(), length);
    mark = (mark ^ word) * odd_factor;
    mark ^= mark >> 32;
    list.remove_prefix(length);
  }
  return mark;
}

} // namespace lumotune::stations
