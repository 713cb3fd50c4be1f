// SPDX-License-Identifier: LGPL-2.1-or-later
// A skin "Tmava" of the description that a test gives.
#pragma once

#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {

struct LoadedSkin : testing::Test {
  SkinWorld w;
  void load(const std::string& text) {
    w.description(L"Tmava", text);
    w.look.LoadSkin(L"Tmava");
  }
};

} // namespace lumotune::test
