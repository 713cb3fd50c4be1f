// SPDX-License-Identifier: LGPL-2.1-or-later
// The lines of the station file as they stand in it: one buffer of bytes and where each line starts.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lumotune::stations {

// User-interface thread. Lines count from 0; views live until the next `read`.
class StationLines {
public:
  // Takes the file's lines in the place of the old ones, empty lines too; none when the file cannot be read.
  void read(const platform::Files& files, const std::wstring& path);

  [[nodiscard]] std::size_t count() const { return starts_.size(); }
  [[nodiscard]] std::string_view line(std::size_t index) const; // without its end; empty past the last

private:
  std::string bytes_;
  std::vector<std::uint32_t> starts_; // a file that is read is shorter than 4 GiB
};

} // namespace lumotune::stations
