// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the station file as they stand in it: one buffer of bytes, where each line starts, and which one is a
// station's.
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

// User-interface thread. Lines count from 0; views live as long as the object.
class StationLines {
public:
  // All lines of a file, empty ones too, up to `max_station_lines`. The bytes are at most `max_station_bytes`.
  StationLines(std::string bytes, const base::CodePageFold& fold);
  StationLines(const StationLines&) = delete;
  StationLines& operator=(const StationLines&) = delete;
  ~StationLines() = default;

  [[nodiscard]] std::size_t count() const { return starts_.size(); }
  [[nodiscard]] std::string_view line(std::size_t index) const; // without its end; empty past the last

  // The last line whose first six characters (all, of a shorter line) are the identifier, letter case ignored. None for
  // an empty identifier, whatever empty lines there are. The first call goes over all lines.
  [[nodiscard]] std::optional<std::string_view> last_of(std::string_view id) const;

private:
  std::string bytes_;
  std::vector<std::uint32_t> starts_; // the bytes are fewer than 4 GiB
  base::CodePageFold fold_;
  mutable std::unique_ptr<StationKeys> keys_; // row n is line n - 1; made when first needed
};

} // namespace lumotune::stations
