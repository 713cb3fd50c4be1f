// SPDX-License-Identifier: LGPL-2.1-or-later
// Drops of programs that mean harm, and what the other program sees.
#include "tests/contract/fixture_drop.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

struct Win32Drop : testing::Test {
  Backend b;
  std::vector<platform::Drop> dropped;

  Win32Drop() {
    b.window.move(3000, 3000);
    b.window.resize(6000, 3000);
    b.window.set_visible(true);
    b.window.activate();
    b.window.on_drop = [this](const platform::Drop& drop) { dropped.push_back(drop); };
    b.pass(500);
  }
};

TEST_F(Win32Drop, BlocksThatLieAreNotTaken) {
  EXPECT_TRUE(drop_block(b, CF_HDROP, block_of_paths({L"C:\\a"}), nullptr));
  EXPECT_FALSE(drop_block(b, CF_HDROP, std::string(8, '\0'), nullptr)) << "no header";
  EXPECT_FALSE(
      drop_block(b, CF_HDROP, std::string("\xff\xff\xff\x7f", 4) + block_of_paths({L"C:\\a"}).substr(4), nullptr));
  const std::string whole = block_of_paths({L"C:\\a"});
  EXPECT_FALSE(drop_block(b, CF_HDROP, whole.substr(0, 24), nullptr)) << "no end";
  EXPECT_FALSE(drop_block(b, CF_UNICODETEXT, std::string(9ULL * 1024 * 1024, 'a'), nullptr));
  EXPECT_FALSE(drop_block(b, CF_BITMAP, "a", nullptr));
  EXPECT_EQ(dropped.size(), 1U);
}

TEST_F(Win32Drop, TheOtherProgramHasItsAnswerBeforeTheHandlerRuns) {
  bool answered = false;
  bool was_answered = false;
  b.window.on_drop = [&](const platform::Drop&) { was_answered = answered; };
  EXPECT_EQ(drag(b, CF_UNICODETEXT, bytes_of(L"a"), nullptr, DROPEFFECT_LINK), static_cast<DWORD>(DROPEFFECT_LINK));
  answered = true;
  b.loop.run_pending();
  EXPECT_TRUE(was_answered);
}

TEST_F(Win32Drop, NothingIsTakenAwayFromTheOtherProgram) {
  EXPECT_EQ(drag(b, CF_UNICODETEXT, bytes_of(L"a"), nullptr, DROPEFFECT_MOVE), static_cast<DWORD>(DROPEFFECT_NONE))
      << "a program that only moves would lose it";
  EXPECT_TRUE(dropped.empty());
}

} // namespace
} // namespace lumotune::contract
