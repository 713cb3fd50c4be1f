// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/stream_worker.h"

#include "platform/media/ffmpeg.h"
#include "platform/media/stream_session.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace lumotune::media {

using namespace std::chrono_literals;

StreamWorker::StreamWorker(const PlayerOptions& options, std::shared_ptr<EngineChannels> channels, WorkerSeams seams)
    : channels_(std::move(channels)),
      retry_scale_(options.retry_scale),
      seams_(std::move(seams)),
      clock_(seams_.clock ? seams_.clock : std::make_shared<WorkerClock>()),
      wish_(channels_->mailbox, *clock_, [this] { playout_.tick(); }),
      playout_(*channels_, wish_),
      connector_(options, wish_, [this](Source& source) { return play_stream(source); }),
      random_(seams_.seed ? *seams_.seed : std::random_device{}()) {}

void StreamWorker::run() {
  worker_thread_.rebind();
  playout_.rebind();
  avformat_network_init();
  while (!channels_->mailbox.closed()) {
    try {
      serve_next_wish();
    } catch (...) {
      report_failure();
    }
  }
  channels_->mixer->let_flow(0);
}

// Last resort: reports the failure to the listener; the next wish is served normally.
void StreamWorker::report_failure() noexcept {
  channels_->mixer->let_flow(0);
  try {
    StreamStatus failed;
    failed.trouble = Trouble::internal;
    report(failed);
  } catch (...) { // out of memory for the report as well
  }
}

void StreamWorker::report(const StreamStatus& status) {
  channels_->board->report(wish_.stream(), status);
}

void StreamWorker::serve_next_wish() {
  const Wish& wish = wish_.take();
  if (channels_->mailbox.closed())
    return;
  playout_.discard();
  if (wish.playing)
    play(wish);
}

// Retries without limit while the listener wants the station, unless the address itself is unusable.
void StreamWorker::play(const Wish& wish) {
  retry_ = {};
  if (!playout_.wait_for_rate())
    return;
  while (!wish_.superseded()) {
    StreamStatus connecting;
    connecting.phase = Phase::connecting;
    report(connecting);
    const auto begun = clock_->now();
    heard_ms_ = 0;
    const Attempt result = attempt(wish);
    const auto silent = heard_ms_ == 0 ? std::chrono::floor<std::chrono::milliseconds>(clock_->now() - begun) : 0ms;
    if (result.outcome == Outcome::cancelled || wish_.superseded())
      return;
    const bool hopeless = result.trouble == Trouble::no_address || result.trouble == Trouble::unsupported_address;
    if (hopeless || result.outcome == Outcome::ended) {
      StreamStatus stopped;
      stopped.trouble = result.trouble;
      report(stopped);
      return;
    }
    if (!wait_before_retry(result, silent))
      return;
  }
}

// An exception, such as out of memory, fails the attempt, not the worker.
Attempt StreamWorker::attempt(const Wish& wish) {
  wish_.begin_attempt();
  try {
    if (seams_.connect)
      return seams_.connect(wish, wish_, [this](PacketSource& source) { return play_stream(source); });
    return connector_.connect(wish.address, wish.origin);
  } catch (...) {
    return {Outcome::failed, Trouble::internal};
  }
}

Attempt StreamWorker::play_stream(PacketSource& source) {
  worker_thread_.check();
  StreamSession session(source, playout_, wish_);
  const Attempt result = session.run();
  heard_ms_ = session.heard_ms();
  retry_.heard(heard_ms_);
  return result;
}

// `silent` is how long the attempt took without sound. False when a newer wish arrives meanwhile.
bool StreamWorker::wait_before_retry(const Attempt& failure, std::chrono::milliseconds silent) {
  const double random = std::uniform_real_distribution<double>(0.0, 1.0)(random_);
  const auto asked = failure.retry_after.value_or(0s);
  const auto spent = std::chrono::milliseconds(std::llround(static_cast<double>(silent.count()) / retry_scale_));
  auto left = std::chrono::milliseconds(std::llround(retry_.next_delay_ms(random, asked, spent) * retry_scale_));
  StreamStatus waiting;
  waiting.phase = Phase::waiting;
  waiting.trouble = failure.trouble;
  waiting.http_code = failure.http_code;
  while (left > 0ms) {
    waiting.retry_seconds = static_cast<int>((left.count() + 999) / 1000);
    report(waiting);
    const auto until_next_second = std::min(left, std::chrono::milliseconds((left.count() - 1) % 1000 + 1));
    if (wish_.wait(until_next_second))
      return false;
    left -= until_next_second;
  }
  return true;
}

} // namespace lumotune::media
