// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/board.h"
#include "platform/media/mailbox.h"

#include <thread>

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

TEST(Mailbox, HoldsTheNewestWishOnly) {
  Mailbox mailbox;
  for (std::uint64_t i = 1; i <= 100; ++i)
    mailbox.post({i, std::to_string(i), true});
  EXPECT_TRUE(mailbox.newer_than(99));
  EXPECT_FALSE(mailbox.newer_than(100));
  EXPECT_EQ(mailbox.taken(), 0U);
  const Wish wish = mailbox.take(0);
  EXPECT_EQ(wish.stream, 100U);
  EXPECT_EQ(wish.address, "100");
  EXPECT_EQ(mailbox.taken(), 100U);
}

TEST(Mailbox, WakesAWaitEarly) {
  Mailbox mailbox;
  EXPECT_FALSE(mailbox.wait(0, 1ms));
  std::thread poster([&] { mailbox.post({1, "x", true}); });
  EXPECT_TRUE(mailbox.wait(0, 60s));
  poster.join();
}

TEST(Mailbox, EndsEveryWaitWhenClosed) {
  Mailbox mailbox;
  mailbox.post({1, "x", true});
  std::thread closer([&] { mailbox.close(); });
  EXPECT_EQ(mailbox.take(1).stream, 0U);
  closer.join();
  EXPECT_TRUE(mailbox.newer_than(1000));
  EXPECT_TRUE(mailbox.closed());
  EXPECT_TRUE(mailbox.wait(1000, 60s));
}

class CountingWaker final : public platform::Waker {
public:
  void wake() override { ++count; }
  int count = 0;
};

StreamStatus with_title(const wchar_t* title) {
  StreamStatus status;
  status.phase = Phase::playing;
  status.title = title;
  return status;
}

TEST(Board, ShowsTheNewestReportOfTheExpectedStream) {
  Board board;
  CountingWaker waker;
  board.open(&waker);
  board.expect(2, {});
  board.report(2, with_title(L"a"));
  board.report(2, with_title(L"b"));
  EXPECT_EQ(board.read().title, L"b");
  EXPECT_EQ(waker.count, 2);
}

TEST(Board, DropsReportsOfStreamsThatWereLeft) {
  Board board;
  CountingWaker waker;
  board.open(&waker);
  board.expect(2, {});
  board.report(1, with_title(L"old"));
  board.report(3, with_title(L"never asked for"));
  EXPECT_EQ(board.read(), StreamStatus{});
  EXPECT_EQ(waker.count, 0);
}

TEST(Board, DoesNotWakeForWhatItSaysAlready) {
  Board board;
  CountingWaker waker;
  board.open(&waker);
  board.expect(1, {});
  board.report(1, with_title(L"a"));
  board.report(1, with_title(L"a"));
  EXPECT_EQ(waker.count, 1);
}

TEST(Board, WakesNobodyWhenClosed) {
  Board board;
  CountingWaker waker;
  board.open(&waker);
  board.expect(1, {});
  board.close();
  board.report(1, with_title(L"a"));
  EXPECT_EQ(waker.count, 0);
}

} // namespace
} // namespace lumotune::media
