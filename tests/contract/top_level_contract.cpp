// SPDX-License-Identifier: LGPL-2.1-or-later
// Work for the top of the loop: not while anything waits, and not after the end.
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lumotune::contract {
namespace {

struct TopLevelContract : testing::Test {
  HandBackend b;
  std::string order;
  std::vector<std::unique_ptr<platform::TopLevelWork>> posted;

  void post(const std::string& name) {
    posted.push_back(b.loop.post_top_level([this, name] { order += name + " "; }));
  }
  // The loop runs the handler once, then on for three ticks of another timer, then ends.
  void run(const std::function<void()>& handler) {
    bool over = false;
    int ticks = 0;
    std::unique_ptr<platform::Timer> once = b.loop.make_timer(10, [&] {
      once->stop();
      handler();
      over = true;
    });
    const auto end = b.loop.make_timer(50, [&] {
      if (over && ++ticks == 3)
        b.loop.quit();
    });
    once->start();
    end->start();
    b.loop.run();
    EXPECT_TRUE(over);
  }
};

TEST_F(TopLevelContract, WhatAHandlerPostsRunsAfterItInOrder) {
  run([this] {
    post("one");
    post("two");
    order += "handler ";
  });
  EXPECT_EQ(order, "handler one two ");
}

TEST_F(TopLevelContract, WhatIsPostedBeforeTheLoopRunsWaitsForIt) {
  post("work");
  b.loop.run_pending();
  (void)b.loop.wait_a_little();
  EXPECT_EQ(order, "");
  run([this] { order += "handler "; });
  EXPECT_NE(order.find("work "), std::string::npos);
}

TEST_F(TopLevelContract, NotInsideAWait) {
  run([this] {
    const auto inner = b.loop.make_timer(10, [this] {
      if (posted.empty())
        post("work");
    });
    inner->start();
    const std::uint32_t start = b.loop.tick_count_ms();
    while (b.loop.tick_count_ms() - start < 100 && b.loop.wait_a_little())
      b.loop.run_pending();
    EXPECT_EQ(posted.size(), 1U);
    order += "waited ";
  });
  EXPECT_EQ(order, "waited work ");
}

TEST_F(TopLevelContract, NotInsideABox) {
  b.stay_open(100);
  b.answer(platform::BoxAnswer::ok);
  run([this] {
    post("before");
    b.while_open([this] { post("meanwhile"); });
    b.dialogs.message(L"Zpráva", L"Lumotune", platform::BoxIcon::information, platform::BoxButtons::ok);
    order += "answered ";
  });
  EXPECT_EQ(order, "answered before meanwhile ");
}

TEST_F(TopLevelContract, NotInsideAMenu) {
  platform::MenuItem item;
  item.name = L"polozka";
  item.caption = L"Položka";
  b.window.set_visible(true);
  b.pass(100);
  b.stay_open(100);
  b.close_menu();
  run([&, this] {
    post("before");
    b.while_open([this] { post("meanwhile"); });
    (void)b.popup_menus.pop_up({item}, nullptr);
    order += "closed ";
  });
  EXPECT_EQ(order, "closed before meanwhile ");
}

TEST_F(TopLevelContract, NotAfterTheEnd) {
  run([this] {
    post("work");
    b.loop.quit();
  });
  EXPECT_EQ(order, "");
}

TEST_F(TopLevelContract, DestroyedItIsCancelledAlsoByOtherWork) {
  run([this] {
    post("one");
    posted.clear();
    posted.push_back(b.loop.post_top_level([this] {
      order += "two ";
      posted.clear(); // itself and the next one
    }));
    post("three");
  });
  EXPECT_EQ(order, "two ");
}

TEST_F(TopLevelContract, WhatItPostsRunsToo) {
  run([this] {
    posted.push_back(b.loop.post_top_level([this] {
      post("second");
      order += "first ";
    }));
  });
  EXPECT_EQ(order, "first second ");
}

} // namespace
} // namespace lumotune::contract
