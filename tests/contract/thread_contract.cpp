// SPDX-License-Identifier: LGPL-2.1-or-later
// What belongs to the user-interface thread ends the program when another thread calls it, in every build.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace lumotune::contract {
namespace {

#ifndef _WIN32 // Wine starts a debugger for a program that dies, and waits for it

constexpr const char* message = "called on another thread than the user-interface thread";

struct ThreadContractDeathTest : testing::Test {
  ThreadContractDeathTest() { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }
  // The backend is made where it is used up: the program that dies has windows of its own.
  template <typename Work>
  static void on_another(const Work& work) {
    Backend b;
    std::thread([&] { work(b); }).join();
  }
};

TEST_F(ThreadContractDeathTest, TheLoop) {
  EXPECT_DEATH(on_another([](Backend& b) { b.loop.run_pending(); }), message);
  EXPECT_DEATH(on_another([](Backend& b) { (void)b.loop.make_timer(10, [] {}); }), message);
  EXPECT_DEATH(on_another([](Backend& b) { (void)b.loop.post_top_level([] {}); }), message);
  EXPECT_DEATH(on_another([](Backend& b) { b.loop.quit(); }), message);
}

TEST_F(ThreadContractDeathTest, ATimer) {
  const auto start = [] {
    Backend b;
    const auto timer = b.loop.make_timer(10, [] {});
    std::thread([&] { timer->start(); }).join();
  };
  EXPECT_DEATH(start(), message);
}

TEST_F(ThreadContractDeathTest, WindowsAndTheirControls) {
  EXPECT_DEATH(on_another([](Backend& b) { b.window.set_visible(true); }), message);
  EXPECT_DEATH(on_another([](Backend& b) { b.window.resize(3000, 3000); }), message);
  const auto write = [] {
    Backend b;
    const auto framed = b.framed_windows.make(L"ListRadios");
    platform::Label& label = framed->make_label(L"Label1", platform::LabelKind::text, platform::LabelFont::normal);
    std::thread([&] { label.set_text(L"x"); }).join();
  };
  EXPECT_DEATH(write(), message);
}

TEST_F(ThreadContractDeathTest, MessagesToOtherPrograms) {
  EXPECT_DEATH(on_another([](Backend& b) { b.messages.send_copy_data(platform::WindowRef::none, "x"); }), message);
  EXPECT_DEATH(on_another([](Backend& b) { (void)b.messages.sending(); }), message);
}

#endif

// The one call that is made for other threads.
TEST(ThreadContract, AWakerIsWokenFromAnyThread) {
  Backend b;
  int runs = 0;
  const auto waker = b.loop.make_waker([&] { ++runs; });
  std::thread([&] { waker->wake(); }).join();
  EXPECT_TRUE(b.until([&] { return runs == 1; }));
}

} // namespace
} // namespace lumotune::contract
