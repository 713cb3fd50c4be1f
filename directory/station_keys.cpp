// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/station_keys.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace lumotune::directory {
namespace {

constexpr std::size_t first_slots = 1024;
constexpr unsigned row_bits = 32;
constexpr std::uint64_t odd_factor = 0x9e3779b97f4a7c15ULL; // spreads its bits over the whole word

std::size_t row_of(std::uint64_t slot) {
  return static_cast<std::uint32_t>(slot);
}

std::uint32_t hash_of(std::uint64_t slot) {
  return static_cast<std::uint32_t>(slot >> row_bits);
}

} // namespace

StationKeys::StationKeys(const CodePageFold& fold, IdOf id_of)
    : fold_(fold),
      id_of_(std::move(id_of)),
      seed_(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) * odd_factor ^
            reinterpret_cast<std::uintptr_t>(this)),
      slots_(first_slots) {}

void StationKeys::clear() {
  std::fill(slots_.begin(), slots_.end(), 0);
  used_ = 0;
}

std::uint32_t StationKeys::hash(std::string_view id) const {
  std::uint64_t mixed = seed_;
  for (const char byte : id) {
    mixed = (mixed ^ fold_.fold(byte)) * odd_factor;
    mixed ^= mixed >> 29;
  }
  return static_cast<std::uint32_t>(mixed >> row_bits);
}

// The slot that holds the identifier, or the empty one where it belongs. There is always an empty one.
std::size_t StationKeys::slot_of(std::uint32_t hash, std::string_view id) const {
  std::size_t at = hash & (slots_.size() - 1);
  while (slots_[at] != 0 && (hash_of(slots_[at]) != hash || !fold_.equal(id_of_(row_of(slots_[at])), id)))
    at = (at + 1) & (slots_.size() - 1);
  return at;
}

bool StationKeys::add(std::size_t row, std::string_view id) {
  if (used_ * 2 >= slots_.size())
    grow();
  const std::uint32_t hashed = hash(id);
  const std::size_t at = slot_of(hashed, id);
  if (slots_[at] != 0)
    return false;
  slots_[at] = static_cast<std::uint64_t>(hashed) << row_bits | static_cast<std::uint32_t>(row);
  ++used_;
  return true;
}

std::size_t StationKeys::find(std::string_view id) const {
  return row_of(slots_[slot_of(hash(id), id)]);
}

void StationKeys::grow() {
  const std::vector<std::uint64_t> old = std::exchange(slots_, std::vector<std::uint64_t>(slots_.size() * 2));
  for (const std::uint64_t slot : old) {
    std::size_t at = hash_of(slot) & (slots_.size() - 1);
    while (slot != 0 && slots_[at] != 0)
      at = (at + 1) & (slots_.size() - 1);
    if (slot != 0)
      slots_[at] = slot;
  }
}

} // namespace lumotune::directory
