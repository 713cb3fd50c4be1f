// SPDX-License-Identifier: LGPL-2.1-or-later
// An index of the station list's rows by identifier, each at most once. Pure.
#pragma once

#include "base/code_page_fold.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// A hash table of row numbers; the identifiers stay in the rows. Case-insensitive. The hash is seeded per object: a
// server cannot choose identifiers that collide.
class StationKeys {
public:
  // The identifier of a row, counted from 1.
  using IdOf = std::function<std::string_view(std::size_t row)>;

  StationKeys(const base::CodePageFold& fold, IdOf id_of);

  void clear();
  void reserve(std::size_t rows); // adding up to that many does not rehash
  // Adds the row; false when a row with its identifier is already there.
  [[nodiscard]] bool add(std::size_t row, std::string_view id);
  [[nodiscard]] std::size_t find(std::string_view id) const; // 0 when there is none

private:
  [[nodiscard]] std::uint64_t hash(std::string_view id) const;
  [[nodiscard]] std::uint64_t folded_word(std::string_view bytes) const;
  [[nodiscard]] std::size_t slot_of(std::uint64_t hash, std::string_view id) const;
  void put(std::size_t slot, std::uint64_t hash, std::size_t row);
  void grow(std::size_t slots);

  const base::CodePageFold& fold_;
  IdOf id_of_;
  std::uint64_t seed_;
  // The slots; their number is a power of two. The tags alone are small enough to stay in the CPU cache.
  std::vector<std::uint8_t> tags_;  // part of the hash, 0 for an empty slot
  std::vector<std::uint32_t> rows_; // valid where the tag is not 0
  std::size_t used_ = 0;
};

} // namespace lumotune::stations
