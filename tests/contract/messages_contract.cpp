// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumotune::contract {
namespace {

struct MessagesContract : testing::Test {
  Backend b;
  std::vector<platform::CopyData> got;
  void hook() {
    b.messages.hook([this](const platform::CopyData& data) { got.push_back(data); });
  }
};

TEST_F(MessagesContract, HookedMessagesArriveExactlyAndAreAnswered) {
  hook();
  EXPECT_EQ(b.deliver(std::string("p:\xe8\0x", 5), 1), -1);
  ASSERT_EQ(got.size(), 1U);
  EXPECT_EQ(got[0].kind, 1U);
  EXPECT_EQ(got[0].bytes, std::string("p:\xe8\0x", 5));
}

TEST_F(MessagesContract, OtherKindsAndEmptyTextsArriveToo) {
  hook();
  EXPECT_EQ(b.deliver("", 1), -1);
  EXPECT_EQ(b.deliver("x", 42), -1);
  ASSERT_EQ(got.size(), 2U);
  EXPECT_EQ(got[0].bytes, "");
  EXPECT_EQ(got[1].kind, 42U);
}

TEST_F(MessagesContract, AnAbsurdLengthArrivesEmpty) {
  hook();
  EXPECT_EQ(b.deliver(std::string(platform::WindowMessages::max_bytes + 1, 'x'), 1), -1);
  ASSERT_EQ(got.size(), 1U);
  EXPECT_EQ(got[0].bytes, "");
}

TEST_F(MessagesContract, UnhookedNothingArrives) {
  hook();
  b.messages.hook({});
  EXPECT_EQ(b.deliver("x", 1), 0);
  EXPECT_TRUE(got.empty());
  hook();
  EXPECT_EQ(b.deliver("x", 1), -1);
  EXPECT_EQ(got.size(), 1U);
}

TEST_F(MessagesContract, NoWindowIsNoWindow) {
  EXPECT_EQ(b.messages.find_copy(L"Takové okno nikde není"), platform::WindowRef::none);
  EXPECT_EQ(b.messages.find_by_caption(L"Takové okno nikde není"), platform::WindowRef::none);
  EXPECT_EQ(b.messages.find_by_caption(L""), platform::WindowRef::none) << "many windows have none";
  EXPECT_EQ(b.messages.find_by_caption(std::wstring(100'000, L'x')), platform::WindowRef::none);
  b.messages.send_copy_data(platform::WindowRef::none, "x");
  EXPECT_FALSE(b.messages.sending());
  b.messages.let_take_foreground(platform::WindowRef::none);
}

} // namespace
} // namespace lumotune::contract
