// SPDX-License-Identifier: LGPL-2.1-or-later
#include "stations/station_keys.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <utility>

namespace lumotune::stations {
namespace {

constexpr std::size_t first_slots = 1024;
constexpr std::uint64_t odd_factor = 0x9e3779b97f4a7c15ULL; // multiplying spreads the bits over the whole word

// The top bits of the hash; the low bits choose the slot.
std::uint8_t tag_of(std::uint64_t hash) {
  return static_cast<std::uint8_t>(hash >> 56 | 1);
}

std::uint64_t four_bytes(const char* at) {
  std::uint32_t word = 0;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// Packs at most eight bytes into a word: from four bytes on, the first four and the last four, which may overlap.
// Together with the length they identify the text, and need only two loads.
std::uint64_t packed(std::string_view bytes) {
  if (bytes.size() >= 4)
    return four_bytes(bytes.data()) | four_bytes(bytes.data() + bytes.size() - 4) << 32;
  std::uint64_t word = 0;
  for (const char byte : bytes)
    word = word << 8 | static_cast<std::uint8_t>(byte);
  return word;
}

} // namespace

StationKeys::StationKeys(const base::CodePageFold& fold, IdOf id_of)
    : fold_(fold),
      id_of_(std::move(id_of)),
      seed_(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) * odd_factor ^
            reinterpret_cast<std::uintptr_t>(this)),
      tags_(first_slots),
      rows_(first_slots) {}

void StationKeys::clear() {
  std::fill(tags_.begin(), tags_.end(), std::uint8_t{0});
  used_ = 0;
}

// Eight bytes at a time: a regular identifier fits in one word. The final steps spread every bit over the whole word.
std::uint64_t StationKeys::hash(std::string_view id) const {
  std::uint64_t mixed = seed_ ^ id.size();
  do {
    const std::size_t length = std::min(id.size(), sizeof(std::uint64_t));
    mixed = (mixed ^ folded_word(id.substr(0, length))) * odd_factor;
    mixed ^= mixed >> 32;
    id.remove_prefix(length);
  } while (!id.empty());
  mixed = (mixed ^ mixed >> 29) * odd_factor;
  mixed = (mixed ^ mixed >> 32) * odd_factor;
  return mixed ^ mixed >> 29;
}

// At most eight bytes, in lower case. Pure ASCII, nearly always the case, is folded at once.
std::uint64_t StationKeys::folded_word(std::string_view bytes) const {
  const std::uint64_t word = packed(bytes);
  if (base::all_ascii(word))
    return base::small_letters(word);
  std::array<char, sizeof word> folded{};
  std::transform(bytes.begin(), bytes.end(), folded.begin(),
                 [this](char byte) { return static_cast<char>(fold_.fold(byte)); });
  return packed({folded.data(), bytes.size()});
}

// The slot that holds the identifier, or the empty one where it belongs; there is always an empty slot.
std::size_t StationKeys::slot_of(std::uint64_t hash, std::string_view id) const {
  std::size_t at = static_cast<std::size_t>(hash) & (tags_.size() - 1);
  while (tags_[at] != 0 && (tags_[at] != tag_of(hash) || !fold_.equal(id_of_(rows_[at]), id)))
    at = (at + 1) & (tags_.size() - 1);
  return at;
}

void StationKeys::put(std::size_t slot, std::uint64_t hash, std::size_t row) {
  tags_[slot] = tag_of(hash);
  rows_[slot] = static_cast<std::uint32_t>(row);
}

bool StationKeys::add(std::size_t row, std::string_view id) {
  if (used_ * 2 >= tags_.size())
    grow(tags_.size() * 2);
  const std::uint64_t hashed = hash(id);
  const std::size_t at = slot_of(hashed, id);
  if (tags_[at] != 0)
    return false;
  put(at, hashed, row);
  ++used_;
  return true;
}

std::size_t StationKeys::find(std::string_view id) const {
  const std::size_t at = slot_of(hash(id), id);
  return tags_[at] == 0 ? 0 : rows_[at];
}

void StationKeys::reserve(std::size_t rows) {
  std::size_t slots = tags_.size();
  while (rows * 2 > slots)
    slots *= 2;
  if (slots > tags_.size())
    grow(slots);
}

void StationKeys::grow(std::size_t slots) {
  const std::vector<std::uint8_t> old_tags = std::exchange(tags_, std::vector<std::uint8_t>(slots));
  const std::vector<std::uint32_t> old_rows = std::exchange(rows_, std::vector<std::uint32_t>(tags_.size()));
  for (std::size_t i = 0; i < old_tags.size(); ++i) {
    if (old_tags[i] == 0)
      continue;
    const std::string_view id = id_of_(old_rows[i]);
    const std::uint64_t hashed = hash(id);
    put(slot_of(hashed, id), hashed, old_rows[i]);
  }
}

} // namespace lumotune::stations
