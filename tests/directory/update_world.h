// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory window open in its world, its first update waiting for the probe.
#pragma once

#include "tests/support/directory_world.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::test {

using Names = std::vector<std::wstring>;

inline constexpr const wchar_t* connecting = L"Připojování k databázi rádií...";
inline constexpr const wchar_t* finished = L"Hotovo, připraven...";
inline constexpr const wchar_t* held = L"Soubory seznamu používá jiný program, otevřete okno znovu.";
inline constexpr const wchar_t* refused = L"Aktualizaci nyní nelze provést, zkuste to prosím později.";

struct UpdateWorld : testing::Test, DirectoryWorld {
  std::string before; // the station file as it was
  UpdateWorld() {
    directory.Naladit();
    before = content(L"radios.tt");
  }
  [[nodiscard]] std::wstring path(const wchar_t* name) const { return machine.folder + L"\\" + name; }
  [[nodiscard]] platform::memory::Button& Command1() const { return part<platform::memory::Button>(L"Command1"); }
  [[nodiscard]] platform::memory::ProgressBar& progress() const {
    return part<platform::memory::ProgressBar>(L"Progress");
  }
  void announce(std::size_t size) {
    write(L"orb_test_size.tt", "size:" + std::to_string(size) + "\r\n");
    loop.advance(100);
  }
  // The update that runs gets its list.
  void bring(const std::string& list) {
    announce(list.size());
    write(L"seznam.tt", list);
    loop.advance(100);
  }
};

} // namespace lumotune::test
