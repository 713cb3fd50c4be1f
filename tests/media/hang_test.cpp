// SPDX-License-Identifier: LGPL-2.1-or-later
// Calls that never return, memory that is not there, wishes by the thousand: the caller is never kept, and nothing
// grows.
#include "platform/media/engine.h"
#include "platform/media/ffmpeg.h"
#include "tests/media/player_rig.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <future>
#include <iterator>
#include <memory>
#include <new>
#include <string>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT: its header is not everywhere
#else
#include <malloc.h>
#endif

namespace lumotune::media::rig {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

std::size_t threads() {
  const auto tasks = std::filesystem::directory_iterator("/proc/self/task");
  return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

std::size_t live_bytes() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  return mallinfo2().uordblks;
#endif
}

class Hang : public PlayerTest {
protected:
  Hang() { make(); }
  ~Hang() override { device->hang_in(Call::none); }

  [[nodiscard]] bool until_hangs() {
    return until([this] { return device->hanging() > 0; });
  }
  void expect_quick_end(const char* call) {
    const auto start = Clock::now();
    make(); // another one in its place
    EXPECT_LT(Clock::now() - start, 10s) << call;
    device->hang_in(Call::none);
    ASSERT_TRUE(until([this] { return device->hanging() == 0; })) << call;
  }
  FakeRadio radio;
};

TEST_F(Hang, EndsWhileTheSoundSystemHangsInOpening) {
  for (const Call call : {Call::make, Call::rate, Call::open, Call::start, Call::volume}) {
    device->hang_in(call);
    play(radio.url("/live/440.mp3"));
    ASSERT_TRUE(until_hangs()) << static_cast<int>(call) << told();
    expect_quick_end("opening");
  }
}

TEST_F(Hang, EndsWhileTheSoundSystemHangsInStopping) {
  for (const Call call : {Call::volume, Call::stop, Call::close}) {
    device->forget();
    play(radio.url("/live/440.mp3"));
    ASSERT_TRUE(until_hears(440)) << told();
    device->hang_in(call);
    if (call != Call::close) { // which is what ending does
      player().stop();
      ASSERT_TRUE(until_hangs()) << static_cast<int>(call);
    }
    expect_quick_end("stopping");
  }
}

TEST_F(Hang, OfTheSoundSystemKeepsNobodyFromTheNextStation) {
  for (const Call call : {Call::rate, Call::open, Call::start}) {
    const std::string next = "/live/880.mp3?n=" + std::to_string(static_cast<int>(call));
    const int before = radio.hits("/live/880.mp3");
    device->hang_in(call);
    make();
    play(radio.url("/live/440.mp3"));
    ASSERT_TRUE(until_hangs()) << told();
    const auto start = Clock::now();
    player().stop();
    EXPECT_EQ(status(), "stopped");
    play(radio.url(next));
    EXPECT_LT(Clock::now() - start, 5s);
    ASSERT_TRUE(until([&, this] { return radio.hits("/live/880.mp3") > before; })) << told();
    ASSERT_TRUE(until([this] { return says("playing: no device"); })) << told();
    device->forget();
    device->hang_in(Call::none);
    EXPECT_TRUE(until_hears(880)) << told();
  }
}

// Who presses play once more gets another try of the sound system, too: the old one may never come back.
TEST_F(Hang, OfTheSoundSystemIsLeftBehind) {
  device->hang_in(Call::open);
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until([this] { return says("playing: no device"); })) << told();
  player().play();
  ASSERT_TRUE(until([this] { return device->hanging() == 2; })) << told();
  device->hang_in(Call::none);
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Hang, PilesUpNoThreads) {
  const std::size_t before = threads();
  auto free = std::make_shared<std::promise<void>>();
  auto stuck = std::make_shared<std::atomic<int>>(0);
  options.proxy = [stuck, freed = free->get_future().share()](const std::string& /*address*/) {
    ++*stuck;
    freed.wait();
    return std::string();
  };
  make();
  std::size_t most = 0;
  for (int i = 0; i < 8; ++i) {
    play(radio.url("/stuck?" + std::to_string(i))); // the one that plays already would play on
    // So many there may be; for what comes after them it is waited as long as a worker takes to count as stuck.
    (void)until([&] { return *stuck > i; }, i < 5 ? patience_ms : 1500);
    most = std::max(most, threads() - before);
  }
  EXPECT_EQ(*stuck, 5);
  EXPECT_LE(most, 7U); // four stuck workers, the newest pair, and a device thread on its way out
  free->set_value();
  player().stop();
  EXPECT_TRUE(until([&] { return threads() - before <= 3; })) << threads() - before;
  options.proxy = {};
  play(radio.url("/live/440.mp3"));
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Hang, AFloodOfWishesLeavesNothingBehind) {
  const std::string stations[] = {radio.url("/hang"), radio.url("/live/440.mp3"), radio.url("/nothing"), "C:\\x", ""};
  const auto flood = [&](int wishes) {
    for (int i = 0; i < wishes; ++i) {
      play(stations[static_cast<std::size_t>(i) % std::size(stations)]);
      if (i % 3 == 0)
        player().stop();
      if (i % 20 == 0)
        pass(1);
    }
    player().stop();
    ASSERT_TRUE(until([this] { return status() == "stopped"; }));
    pass(300); // the worker is done with the last one
    texts.clear();
    states.clear();
  };
  flood(1000); // what is made once
  const std::size_t bytes = live_bytes();
  const std::size_t before = threads();
  flood(10000);
  EXPECT_LT(live_bytes(), bytes + 256 * 1024);
  EXPECT_LE(threads(), before + 1);
  play(radio.url("/live/880.mp3"));
  EXPECT_TRUE(until_hears(880)) << told();
}

TEST_F(Hang, WithoutMemoryForADeviceItWaitsForOne) {
  device->throws = true;
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until([this] { return says("playing: no device"); })) << told();
  device->throws = false;
  EXPECT_TRUE(until_hears(440)) << told();
}

TEST_F(Hang, WhatIsThrownInAnOpeningIsATroubleThatPasses) {
  auto throws = std::make_shared<std::atomic<bool>>(true);
  options.proxy = [throws](const std::string& /*address*/) -> std::string {
    if (*throws)
      throw std::bad_alloc();
    return {};
  };
  make();
  play(radio.url("/live/440.mp3"));
  ASSERT_TRUE(until_said("internal, retry in ")) << told();
  *throws = false;
  EXPECT_TRUE(until_hears(440)) << told();
}

// Whatever a header claims to hold.
TEST_F(Hang, NothingTakesMoreThan64MiBAtOnce) {
  void* usual = av_malloc(std::size_t{60} << 20U);
  EXPECT_NE(usual, nullptr);
  av_free(usual);
  void* huge = av_malloc((std::size_t{64} << 20U) + 1);
  EXPECT_EQ(huge, nullptr);
  av_free(huge);
}

// Throws on the worker's thread, in whatever it reports.
class ThrowingWaker final : public platform::Waker {
public:
  void wake() override {
    if (throws)
      throw std::bad_alloc();
  }
  std::atomic<bool> throws = true;
};

TEST_F(Hang, WhateverIsThrownTheNextWishIsServed) {
  ThrowingWaker waker;
  const auto board = std::make_shared<Board>();
  board->open(&waker);
  lumotune::media::Engine engine(options, board);
  const auto tell = [&](std::uint64_t stream, const std::string& address) {
    board->expect(stream, {});
    engine.wish({stream, address, true, platform::AddressOrigin::listener});
    return until([&] { return board->read().trouble != Trouble::none; });
  };
  ASSERT_TRUE(tell(1, "ftp://x/"));
  EXPECT_EQ(board->read().trouble, Trouble::internal);
  waker.throws = false;
  ASSERT_TRUE(tell(2, "ftp://x/"));
  EXPECT_EQ(board->read().trouble, Trouble::unsupported_address);
  engine.abandon();
  EXPECT_TRUE(engine.wait_ended(5s));
  board->close();
}

} // namespace
} // namespace lumotune::media::rig
