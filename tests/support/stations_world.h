// SPDX-License-Identifier: LGPL-2.1-or-later
// The stations room on the backend in memory, with two stations.
#pragma once

#include "stations/station_files.h"
#include "stations/station_lookup.h"
#include "tests/support/base_world.h"

namespace lumotune::test {

struct StationsWorld : BaseWorld {
  stations::StationFiles station_files{folder};
  stations::StationLookup stations{{station_files, codec}};

  StationsWorld() {
    put(L"radios.tt", record("RADIO1", "Prvn\xed", "u1a", "u2a") + record("radio2", "Druh\xe9", "u1b", "u2b"));
  }

  static std::string record(const std::string& id, const std::string& name, const std::string& u1,
                            const std::string& u2) {
    return id + "/@/" + name + "/@/tip/@/x/@/Zeme/@/100001" + "/@/" + u1 + "/@/" + u2 +
           "/@/u3/@/u4/@/u5/@/64/@/128/@/192/@/256/@/320/@/www.example/@/zbytek\r\n";
  }
};

} // namespace lumotune::test
