// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/player.h"

#include "platform/media/cubeb_output.h"
#include "platform/media/engine.h"
#include "platform/media/wide.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace lumotune::media {
namespace {

using namespace std::chrono_literals;

// How often it is looked whether the worker took the newest wish, and after how many looks it counts as stuck.
constexpr std::uint32_t look_every_ms = 100;
constexpr int looks_until_stuck = 6;
// Threads that hang in the system cannot be ended: so many pairs of them are left behind at most, and then no more are
// made until one comes back.
constexpr std::size_t max_left_behind = 4;
constexpr auto patience_at_end = 800ms;

class Player final : public platform::MediaPlayer {
public:
  Player(platform::EventLoop& loop, PlayerOptions options)
      : options_(std::move(options)),
        board_(std::make_shared<Board>()),
        waker_(loop.make_waker([this] { notify(); })),
        watchdog_(loop.make_timer(look_every_ms, [this] { look(); })) {
    board_->open(waker_.get());
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  // A thread that does not come back in time is left to itself; it touches nothing of ours any more.
  ~Player() override {
    board_->close();
    if (engine_ == nullptr)
      return;
    engine_->leave();
    (void)engine_->wait_ended(patience_at_end);
  }

  void set_url(const std::wstring& url, platform::AddressOrigin origin) override {
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
    wanted_ = true;
    StreamStatus first;
    first.phase = Phase::connecting;
    wish(true, first);
    waker_->wake();
  }

  void stop() override {
    wanted_ = false;
    wish(false, {});
    waker_->wake();
  }

  [[nodiscard]] bool playing() const override { return wanted_; }

  void set_volume(int percent) override {
    volume_ = std::clamp(percent, 0, 100);
    if (engine_ != nullptr)
      engine_->mixer.set_volume(volume_);
  }
  [[nodiscard]] int volume() const override { return volume_; }

  // The intent stays; only the connection goes.
  void system_suspended() override {
    if (!wanted_)
      return;
    StreamStatus first;
    first.phase = Phase::waiting;
    first.trouble = Trouble::lost;
    wish(false, first);
    waker_->wake();
  }
  void system_resumed() override {
    if (wanted_)
      play();
  }

  [[nodiscard]] std::wstring status() const override { return status_text(now()); }
  [[nodiscard]] std::wstring Status1() const override { return status_columns(now()); }
  [[nodiscard]] std::wstring warning() const override { return warning_text(now()); }
  [[nodiscard]] std::uint64_t played_ms() const override {
    return wanted_ && engine_ != nullptr ? engine_->mixer.heard_ms(stream_) : 0;
  }

private:
  void make_engine() {
    EngineOptions options;
    options.latency_ms = options_.latency_ms;
    options.user_agent = options_.user_agent;
    options.proxy = options_.proxy;
    options.timeout_ms = options_.timeout_ms;
    options.ca_file = options_.ca_file;
    options.retry_scale = options_.retry_scale;
    options.make_output = options_.make_output ? options_.make_output : OutputFactory(make_cubeb_output);
    auto made = std::make_shared<Engine>(std::move(options), board_);
    made->mixer.set_volume(volume_);
    made->start();
    engine_ = std::move(made);
    looks_ = 0;
    seen_taken_ = 0;
  }

  [[nodiscard]] bool may_leave_behind() {
    std::erase_if(left_behind_, [](const std::weak_ptr<Mixer>& each) { return each.expired(); });
    return left_behind_.size() < max_left_behind;
  }
  // Its sound lives for as long as one of its threads does.
  void leave_behind() {
    engine_->leave();
    left_behind_.emplace_back(engine_->sound);
    engine_.reset();
  }

  void wish(bool playing, const StreamStatus& first) {
    ++stream_;
    board_->expect(stream_, first);
    send(playing);
  }

  // Its threads are made for the first sound that is wanted: a program that only starts has no use for them.
  void send(bool playing) {
    sent_playing_ = playing;
    try {
      if (playing && engine_ != nullptr && engine_->device.hung() && may_leave_behind())
        leave_behind();
      if (playing && engine_ == nullptr)
        make_engine();
      if (engine_ != nullptr)
        post(playing);
    } catch (...) { // no memory, no thread
      StreamStatus failed;
      failed.trouble = Trouble::internal;
      board_->expect(stream_, failed);
    }
  }

  void post(bool playing) {
    engine_->mixer.want(playing ? stream_ : 0);
    if (playing)
      engine_->device.run();
    else
      engine_->device.silence();
    engine_->mailbox.post({stream_, to_utf8(url_), playing, origin_});
    watchdog_->start();
  }

  // A worker that takes no wish for a while hangs where nothing reaches it: another one takes over.
  // Looks that a busy machine made up for in one go count as one.
  void look() {
    const auto now = std::chrono::steady_clock::now();
    if (now - looked_ < std::chrono::milliseconds(look_every_ms / 2))
      return;
    looked_ = now;
    const std::uint64_t taken = engine_ == nullptr ? stream_ : engine_->mailbox.taken();
    if (taken == stream_)
      watchdog_->stop();
    if (taken == stream_ || taken != seen_taken_) {
      seen_taken_ = taken;
      looks_ = 0;
      return;
    }
    if (++looks_ < looks_until_stuck || !may_leave_behind())
      return;
    leave_behind();
    send(sent_playing_);
  }

  [[nodiscard]] StreamStatus now() const { return board_->read(); }

  void notify() {
    const StreamStatus status = now();
    const std::wstring text = status_text(status);
    const bool phase_changed = status.phase != told_phase_;
    const bool text_changed = text != told_text_;
    told_phase_ = status.phase;
    told_text_ = text;
    if (phase_changed && on_play_state_change)
      on_play_state_change(static_cast<int>(play_state(status)));
    if (text_changed && on_status_change)
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

  PlayerOptions options_;
  std::shared_ptr<Board> board_;
  std::unique_ptr<platform::Waker> waker_;
  std::unique_ptr<platform::Timer> watchdog_;
  std::shared_ptr<Engine> engine_;
  std::vector<std::weak_ptr<Mixer>> left_behind_; // of engines that hung when they were given up
  std::wstring url_;
  platform::AddressOrigin origin_ = platform::AddressOrigin::station;
  bool auto_start_ = true;
  bool wanted_ = false;       // what the listener wants
  bool sent_playing_ = false; // what the worker was told: another thing while the machine sleeps
  int volume_ = 100;
  int looks_ = 0;                // since the worker last took a wish
  std::uint64_t seen_taken_ = 0; // which one that was
  std::chrono::steady_clock::time_point looked_;
  std::uint64_t stream_ = 0;
  Phase told_phase_ = Phase::stopped;
  std::wstring told_text_;
};

} // namespace

std::unique_ptr<platform::MediaPlayer> make_media_player(platform::EventLoop& loop, PlayerOptions options) {
  av_log_set_level(AV_LOG_QUIET);
  av_max_alloc(std::size_t{64} << 20U); // what a stream claims to hold is no reason to take more at once
  return std::make_unique<Player>(loop, std::move(options));
}

} // namespace lumotune::media
