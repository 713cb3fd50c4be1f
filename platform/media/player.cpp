// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/player.h"

#include "platform/common/thread_check.h"
#include "platform/media/board.h"
#include "platform/media/cubeb_output.h"
#include "platform/media/engine.h"
#include "platform/media/ffmpeg.h"
#include "platform/media/wide.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

// A worker that has not taken the newest wish after this many checks counts as stuck.
constexpr std::uint32_t check_every_ms = 100;
constexpr int checks_until_stuck = 6;
// Threads that hang in the system cannot be ended. At most this many engines are abandoned; further ones are created
// only after one of these has ended.
constexpr std::size_t max_abandoned = 4;
constexpr auto end_timeout = 800ms;

class Player final : public platform::MediaPlayer {
public:
  Player(platform::EventLoop& loop, PlayerOptions options)
      : options_(std::move(options)),
        board_(std::make_shared<Board>()),
        waker_(loop.make_waker([this] { notify(); })),
        watchdog_(loop.make_timer(check_every_ms, [this] { check_worker(); })) {
    if (!options_.make_output)
      options_.make_output = make_cubeb_output;
    board_->open(waker_.get());
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  // A thread that has not ended by then is abandoned; it no longer accesses anything of ours.
  ~Player() override {
    ui_thread_.check();
    board_->close();
    if (engine_ == nullptr)
      return;
    engine_->abandon();
    (void)engine_->wait_ended(end_timeout);
  }

  void set_url(const std::wstring& url, platform::AddressOrigin origin) override {
    ui_thread_.check();
    if (wanted_ && url == url_ && origin == origin_)
      return;
    url_ = url;
    origin_ = origin;
    if (wanted_)
      stop();
    if (auto_start_)
      play();
  }
  [[nodiscard]] std::wstring url() const override { return url_; }
  void set_auto_start(bool on) override { auto_start_ = on; }

  void play() override {
    ui_thread_.check();
    wanted_ = true;
    StreamStatus first;
    first.phase = Phase::connecting;
    wish(true, first);
    waker_->wake();
  }

  void stop() override {
    ui_thread_.check();
    wanted_ = false;
    wish(false, {});
    waker_->wake();
  }

  [[nodiscard]] bool playing() const override { return wanted_; }

  void set_volume(int percent) override {
    ui_thread_.check();
    volume_ = std::clamp(percent, 0, 100);
    if (engine_ != nullptr)
      engine_->set_volume(volume_);
  }
  [[nodiscard]] int volume() const override { return volume_; }

  // Sound stays wanted; only the connection is dropped.
  void system_suspended() override {
    ui_thread_.check();
    if (!wanted_)
      return;
    StreamStatus first;
    first.phase = Phase::waiting;
    first.trouble = Trouble::lost;
    wish(false, first);
    waker_->wake();
  }
  void system_resumed() override {
    ui_thread_.check();
    if (wanted_)
      play();
  }

  [[nodiscard]] StreamStatus status() const override { return board_->read(); }
  [[nodiscard]] std::uint64_t played_ms() const override {
    return wanted_ && engine_ != nullptr ? engine_->heard_ms(stream_) : 0;
  }

private:
  void make_engine() {
    engine_ = std::make_unique<Engine>(options_, board_);
    engine_->set_volume(volume_);
    checks_ = 0;
    seen_taken_ = 0;
  }

  [[nodiscard]] bool may_abandon() {
    std::erase_if(abandoned_, [](const std::weak_ptr<const void>& each) { return each.expired(); });
    return abandoned_.size() < max_abandoned;
  }
  void abandon_engine() {
    abandoned_.push_back(engine_->lifetime());
    engine_.reset();
  }

  void wish(bool playing, const StreamStatus& first) {
    ++stream_;
    board_->expect(stream_, first);
    send(playing);
  }

  // The engine is created when sound is first wanted, so that starting the program creates no threads.
  void send(bool playing) {
    sent_playing_ = playing;
    try {
      if (playing && engine_ != nullptr && engine_->device_hung() && may_abandon())
        abandon_engine();
      if (playing && engine_ == nullptr)
        make_engine();
      if (engine_ == nullptr)
        return;
      engine_->wish({stream_, to_utf8(url_), playing, origin_});
      watchdog_->start();
    } catch (...) { // out of memory, or no thread
      StreamStatus failed;
      failed.trouble = Trouble::internal;
      board_->expect(stream_, failed);
    }
  }

  // A worker that takes no wish for a while is stuck where nothing can interrupt it: another one takes over.
  void check_worker() {
    // After a stall of the loop several ticks may fire in a row: they count as one.
    const auto now = std::chrono::steady_clock::now();
    if (now - checked_ < std::chrono::milliseconds(check_every_ms / 2))
      return;
    checked_ = now;
    const std::uint64_t taken = engine_ == nullptr ? stream_ : engine_->taken();
    if (taken == stream_)
      watchdog_->stop();
    if (taken == stream_ || taken != seen_taken_) {
      seen_taken_ = taken;
      checks_ = 0;
      return;
    }
    if (++checks_ < checks_until_stuck || !may_abandon())
      return;
    abandon_engine();
    send(sent_playing_);
  }

  void notify() {
    const StreamStatus now = status();
    const bool phase_changed = now.phase != (told_ ? told_->phase : Phase::stopped);
    const bool changed = now != told_;
    told_ = now;
    if (phase_changed && on_play_state_change)
      on_play_state_change(static_cast<int>(play_state(now)));
    if (changed && on_status_change)
      on_status_change();
  }

  [[nodiscard]] static platform::PlayState play_state(const StreamStatus& status) {
    switch (status.phase) {
    case Phase::connecting:
      return platform::PlayState::connecting;
    case Phase::buffering:
      return platform::PlayState::buffering;
    case Phase::playing:
      return platform::PlayState::playing;
    case Phase::waiting:
      return platform::PlayState::reconnecting;
    case Phase::stopped:
      break;
    }
    return platform::PlayState::stopped;
  }

  const platform::ThreadCheck ui_thread_{"user-interface thread"};
  PlayerOptions options_;
  std::shared_ptr<Board> board_;
  std::unique_ptr<platform::Waker> waker_;
  std::unique_ptr<platform::Timer> watchdog_;
  std::unique_ptr<Engine> engine_;
  std::vector<std::weak_ptr<const void>> abandoned_; // lifetimes of engines that hung
  std::wstring url_;
  platform::AddressOrigin origin_ = platform::AddressOrigin::station;
  bool auto_start_ = true;
  bool wanted_ = false;       // what the listener wants
  bool sent_playing_ = false; // what the worker was told: differs while the machine is suspended
  int volume_ = 100;
  int checks_ = 0;               // since the worker last took a wish
  std::uint64_t seen_taken_ = 0; // that wish
  std::chrono::steady_clock::time_point checked_;
  std::uint64_t stream_ = 0;
  std::optional<StreamStatus> told_; // as of the last notification
};

} // namespace

std::unique_ptr<platform::MediaPlayer> make_media_player(platform::EventLoop& loop, PlayerOptions options) {
  av_log_set_level(AV_LOG_QUIET);
  av_max_alloc(std::size_t{64} << 20U); // bounds a single allocation, whatever a stream claims to hold
  return std::make_unique<Player>(loop, std::move(options));
}

} // namespace lumotune::media
