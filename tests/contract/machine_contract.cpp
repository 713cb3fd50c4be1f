// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

struct MachineContract : testing::Test {
  HandBackend b;
};

TEST_F(MachineContract, TheProgramFolderIsAWholePathWithoutABackslashAtItsEnd) {
  const std::wstring folder = b.machine.program_folder();
  ASSERT_GE(folder.size(), 3U);
  EXPECT_EQ(folder.substr(1, 2), L":\\");
  EXPECT_NE(folder.back(), L'\\');
}

TEST_F(MachineContract, TheFirstCopyHasNoneBeforeIt) {
  EXPECT_FALSE(b.machine.previous_instance());
  EXPECT_FALSE(b.machine.previous_instance());
}

TEST_F(MachineContract, TheCommandLineHasNoBlanksAround) {
  const std::wstring text = b.machine.command_line();
  EXPECT_EQ(text.find_first_not_of(L" \t"), text.empty() ? std::wstring::npos : 0U);
}

TEST_F(MachineContract, DateAndTimeStandBesideEachOther) {
  const std::wstring now = b.machine.date_and_time();
  const std::size_t colon = now.find(L':');
  ASSERT_NE(colon, std::wstring::npos) << "a time of the day";
  EXPECT_NE(now.rfind(L' ', colon), std::wstring::npos) << "and something before it";
  EXPECT_NE(now.find_first_of(L"./-"), std::wstring::npos) << "a date";
}

TEST_F(MachineContract, TheConnectionHasANameOfALengthThatOthersCanKeep) {
  const auto state = b.connection.state();
  EXPECT_LE(state.name.size(), 253U);
  EXPECT_EQ(b.connection.state().connected, state.connected);
}

} // namespace
} // namespace lumotune::contract
