// SPDX-License-Identifier: LGPL-2.1-or-later
// Whatever a handler throws stops before the system's code, and is told once.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

using Told = std::vector<std::string>;

struct Win32Caught : testing::Test {
  Backend b;
  Told told;

  Win32Caught() {
    b.loop.caught().on_caught = [this](const std::string& what) { told.push_back(what); };
  }
  static void fail(const char* text) { throw std::runtime_error(text); }
};

TEST_F(Win32Caught, AWindowsHandlerIsToldOnce) {
  b.window.on_close = [] { fail("close"); };
  for (int i = 0; i < 3; ++i)
    SendMessageW(b.window.handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(told, Told{"close"});
  b.window.on_close = [] { fail("close otherwise"); };
  SendMessageW(b.window.handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(told, (Told{"close", "close otherwise"}));
}

TEST_F(Win32Caught, AFramedWindowsAndAControlsHandlerAreTold) {
  const auto framed = b.framed_windows.make(L"ListRadios");
  platform::Button& button = framed->make_button(L"Command1");
  framed->on_close = [] { fail("close"); };
  button.on_click = [] { fail("click"); };
  SendMessageW(Backend::handle(*framed), WM_CLOSE, 0, 0);
  button.press();
  button.press();
  EXPECT_EQ(told, (Told{"close", "click"}));
}

TEST_F(Win32Caught, ATimersAWakersAndTheLoopsOwnWorkAreTold) {
  const auto timer = b.loop.make_timer(10, [] { fail("tick"); });
  const auto waker = b.loop.make_waker([] { fail("wake"); });
  const auto last = b.loop.make_timer(200, [this] { b.loop.quit(); });
  const auto work = b.loop.post_top_level([] { fail("top"); });
  timer->start();
  last->start();
  waker->wake();
  b.loop.run();
  EXPECT_EQ(told.size(), 3U);
  for (const char* text : {"tick", "wake", "top"})
    EXPECT_EQ(std::count(told.begin(), told.end(), text), 1) << text;
}

TEST_F(Win32Caught, CopyDataIsAnsweredAllTheSame) {
  b.messages.hook([](const platform::CopyData&) { fail("copy data"); });
  EXPECT_EQ(b.deliver("p:", 1), -1);
  EXPECT_EQ(b.deliver("p:", 1), -1);
  b.messages.hook({});
  EXPECT_EQ(told, Told{"copy data"});
}

} // namespace
} // namespace lumotune::contract
