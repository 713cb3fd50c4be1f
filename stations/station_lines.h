// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the station file as stored: one buffer of bytes, the start of each line, and an index by station.
#pragma once

#include "base/code_page_fold.h"
#include "stations/station_keys.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// One thread at a time, except for `bytes`. Lines count from 0; views live as long as the object.
class StationLines {
public:
  // All lines of a file, empty ones too; none at all of a file with more than `max_station_lines`. The bytes are at
  // most `max_station_bytes`.
  StationLines(std::string bytes, const base::CodePageFold& fold);
  StationLines(const StationLines&) = delete;
  StationLines& operator=(const StationLines&) = delete;
  ~StationLines() = default;

  [[nodiscard]] bool too_many() const { return too_many_; }
  [[nodiscard]] std::string_view bytes() const { return bytes_; } // any thread; empty for too many lines
  [[nodiscard]] std::size_t count() const { return starts_.size(); }
  [[nodiscard]] std::string_view line(std::size_t index) const; // without the line end; empty past the last line

  // The last line whose first six characters (or all of a shorter line) are the identifier, case-insensitively. None
  // for an empty identifier, even if there are empty lines. Indexes all lines unless that was done.
  [[nodiscard]] std::optional<std::string_view> last_of(std::string_view id) const;
  void index() const;
  [[nodiscard]] bool indexed() const { return keys_ != nullptr; }

private:
  std::string bytes_;
  std::vector<std::uint32_t> starts_; // 32 bits suffice: a file is smaller than 4 GiB
  bool too_many_ = false;
  base::CodePageFold fold_;
  mutable std::unique_ptr<StationKeys> keys_; // row n is line n - 1; built by `index`
};

} // namespace lumotune::stations
