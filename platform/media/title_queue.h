// SPDX-License-Identifier: LGPL-2.1-or-later
// Titles that arrive ahead of their sound. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace lumotune::media {

// Positions are frames of the ring and never decrease. Worker thread.
class TitleQueue {
public:
  static constexpr std::size_t most = 32; // a stream may send a title with every packet

  // Replaces the last title if it has the same frame or if the queue is full.
  void add(std::uint64_t frame, std::wstring title) {
    if (!waiting_.empty() && (waiting_.back().first == frame || waiting_.size() >= most))
      waiting_.pop_back();
    waiting_.emplace_back(frame, std::move(title));
  }
  // The newest title whose frame has been played; removes it and all before it.
  [[nodiscard]] std::optional<std::wstring> take_due(std::uint64_t played) {
    std::optional<std::wstring> due;
    for (; !waiting_.empty() && waiting_.front().first <= played; waiting_.pop_front())
      due = std::move(waiting_.front().second);
    return due;
  }
  void clear() { waiting_.clear(); }
  [[nodiscard]] std::size_t size() const { return waiting_.size(); }

private:
  std::deque<std::pair<std::uint64_t, std::wstring>> waiting_;
};

} // namespace lumotune::media
