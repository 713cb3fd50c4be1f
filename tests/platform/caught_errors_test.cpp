// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/caught_errors.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace lumotune::platform {
namespace {

struct Caught : testing::Test {
  CaughtErrors errors;
  std::vector<std::string> told;

  Caught() {
    errors.on_caught = [this](const std::string& what) { told.push_back(what); };
  }
  void fail(const std::string& text) {
    errors.guard([&] { throw std::runtime_error(text); });
  }
};

TEST_F(Caught, WorkThatThrowsNothingIsDoneAndNotTold) {
  bool done = false;
  errors.guard([&] { done = true; });
  EXPECT_TRUE(done);
  EXPECT_TRUE(told.empty());
}

TEST_F(Caught, EachTextIsToldOnce) {
  fail("one");
  fail("two");
  fail("one");
  errors.guard([] { throw 5; });
  EXPECT_EQ(told, (std::vector<std::string>{"one", "two", "not a standard exception"}));
}

TEST_F(Caught, ATextIsOneShortLine) {
  fail("a\r\nb\tc" + std::string(2000, 'x'));
  ASSERT_EQ(told.size(), 1U);
  EXPECT_TRUE(told.front().starts_with("a  b cx"));
  EXPECT_EQ(told.front().size(), CaughtErrors::max_text);
}

TEST_F(Caught, AThousandTextsAreNotAThousandLines) {
  for (int i = 0; i < 1000; ++i)
    fail(std::to_string(i));
  EXPECT_EQ(told.size(), CaughtErrors::max_kinds);
}

TEST_F(Caught, WhoIsToldMayFailAndIsNotToldOfThat) {
  errors.on_caught = [this](const std::string& what) {
    told.push_back(what);
    fail("inside");
    throw std::runtime_error("outside");
  };
  fail("one");
  fail("two");
  EXPECT_EQ(told, (std::vector<std::string>{"one", "two"}));
}

TEST_F(Caught, NobodyNeedsToListen) {
  errors.on_caught = {};
  fail("one");
  errors.on_caught = [this](const std::string& what) { told.push_back(what); };
  fail("one");
  EXPECT_EQ(told, (std::vector<std::string>{"one"}));
}

} // namespace
} // namespace lumotune::platform
