// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/connector.h"

#include "platform/media/address.h"
#include "platform/media/playlist.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>

namespace lumotune::media {

Connector::Connector(const PlayerOptions& options, CurrentWish& wish, Play play)
    : options_(options), wish_(wish), play_(std::move(play)) {}

Attempt Connector::connect(const std::string& address, platform::AddressOrigin origin) {
  constexpr int busy = 503;
  constexpr int too_many = 429;
  OpenBudget budget;
  Attempt result = try_candidate({address, origin, 0}, budget);
  const bool asked = result.http_code == busy || result.http_code == too_many;
  ask_retry_after_ = !asked || result.retry_after.has_value();
  return result;
}

Attempt Connector::try_candidate(const Candidate& candidate, OpenBudget& budget) {
  if (address_kind(candidate.address) == AddressKind::none)
    return {Outcome::failed, Trouble::no_address};
  if (!may_open(candidate.address, candidate.origin))
    return {Outcome::failed, Trouble::unsupported_address};
  Attempt last{Outcome::failed, Trouble::unknown_format}; // if the budget allows none of them
  for (const std::string& each : openable_addresses(candidate.address)) {
    if (!budget.allows(each))
      continue;
    Opened opened = open(each, candidate.origin, budget);
    if (wish_.superseded())
      return {Outcome::cancelled};
    if (opened.cancelled || wish_.threw()) // no newer wish: cancelled by an exception
      return {Outcome::failed, Trouble::internal};
    if (opened.source != nullptr)
      return play_(*opened.source);
    if (!opened.entries.empty())
      return try_entries(candidate, opened.entries, budget);
    last = {Outcome::failed, opened.trouble, opened.http_code, opened.retry_after};
  }
  return last;
}

// Tries the entries in order until one plays. If none does, reports the first one's trouble.
Attempt Connector::try_entries(const Candidate& list, const std::vector<std::string>& entries, OpenBudget& budget) {
  const Attempt unplayable{Outcome::failed, Trouble::unknown_format};
  if (list.depth >= max_playlist_depth)
    return unplayable;
  std::optional<Attempt> first;
  for (const std::string& entry : entries) {
    if (budget.over())
      break;
    const auto origin = origin_of_entry(list.address, list.origin, entry);
    const Attempt result = try_candidate({entry, origin, list.depth + 1}, budget);
    if (result.outcome != Outcome::failed)
      return result;
    if (!first)
      first = result;
  }
  // Unlike a bad address from the listener, a bad entry is not final: the list may have changed at the next attempt.
  if (!first || first->trouble == Trouble::no_address || first->trouble == Trouble::unsupported_address)
    return unplayable;
  return *first;
}

// The source charges its openings to the budget, this one included.
Opened Connector::open(const std::string& address, platform::AddressOrigin origin, OpenBudget& budget) {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  SourceOptions options;
  options.user_agent = options_.user_agent;
  options.proxy = [this](const std::string& asked) { return proxy_for(asked); };
  options.timeout_ms = options_.timeout_ms;
  options.ask_retry_after = ask_retry_after_;
  options.ca_file = options_.ca_file;
  const auto left = duration_cast<milliseconds>(budget.deadline() - OpenBudget::Clock::now());
  options.open_limit_ms = static_cast<int>(std::clamp<std::int64_t>(left.count(), 1, options.open_limit_ms));
  options.from_network = origin == platform::AddressOrigin::station;
  options.budget = &budget;
  options.interrupted = [this] { return wish_.interrupted(); };
  return Source::open(address, options);
}

std::string Connector::proxy_for(const std::string& address) noexcept {
  std::string proxy;
  if (options_.proxy)
    wish_.guarded([&] { proxy = options_.proxy(address); });
  return proxy;
}

} // namespace lumotune::media
