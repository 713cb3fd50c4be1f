// SPDX-License-Identifier: LGPL-2.1-or-later
// A list of stations and its rows.
#pragma once

#include "directory/station_rows.h"
#include "platform/memory/files.h"

#include <memory>
#include <string>

namespace lumotune::test {

inline std::string station(const std::string& id, const std::string& name, const std::string& marker,
                           const std::string& category) {
  return id + "/@/" + name + "/@/" + marker +
         "/@/x/@/\xc8"
         "esko/@/" +
         category + "/@/http://u1\r\n";
}

struct RowsWorld {
  platform::memory::Codec codec;
  std::shared_ptr<const stations::StationLines> lines;
  directory::StationRows rows{codec};

  void put(const std::string& bytes) {
    lines = std::make_shared<const stations::StationLines>(bytes, base::CodePageFold(codec));
  }
  void all(const std::string& bytes) {
    put(bytes);
    rows.show_all(lines);
  }
  std::vector<std::wstring> category(std::wstring Kategorie) {
    rows.ZobrazKategoriiRadii(lines, Kategorie);
    return keys();
  }
  [[nodiscard]] std::vector<std::wstring> keys() const {
    std::vector<std::wstring> all_keys;
    for (std::size_t row = 1; row <= rows.count(); ++row)
      all_keys.push_back(rows.key(row));
    return all_keys;
  }
};

using Keys = std::vector<std::wstring>;

} // namespace lumotune::test
