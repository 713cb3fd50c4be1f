// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/engine.h"

#include "platform/media/engine_channels.h"
#include "platform/media/stream_worker.h"
#include "platform/threads/thread_name.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace lumotune::media {

Engine::Engine(const PlayerOptions& options, std::shared_ptr<Board> board)
    : channels_(std::make_shared<EngineChannels>(std::move(board), options.make_output, options.latency_ms)) {
  auto worker = std::make_unique<StreamWorker>(options, channels_);
  std::thread([worker = std::move(worker), end = end_]() mutable {
    platform::name_this_thread("stream worker");
    worker->run();
    worker.reset();
    const std::lock_guard lock(end->mutex);
    end->reached = true;
    end->changed.notify_all();
  }).detach();
}

void Engine::wish(const Wish& wish) {
  ui_thread_.check();
  channels_->mixer->want(wish.playing ? wish.stream : 0);
  if (wish.playing)
    channels_->device.run();
  else
    channels_->device.silence();
  channels_->mailbox.post(wish);
}

void Engine::abandon() {
  ui_thread_.check();
  channels_->mixer->want(0);
  channels_->device.end();
  channels_->mailbox.close();
}

bool Engine::wait_ended(std::chrono::milliseconds time) {
  using std::chrono::milliseconds;
  ui_thread_.check();
  const auto limit = std::chrono::steady_clock::now() + time;
  std::unique_lock lock(end_->mutex);
  if (!end_->changed.wait_until(lock, limit, [this] { return end_->reached; }))
    return false;
  const auto left = std::chrono::duration_cast<milliseconds>(limit - std::chrono::steady_clock::now());
  return channels_->device.wait_ended(std::max(left, milliseconds(0)));
}

// Both threads hold the mixer.
std::weak_ptr<const void> Engine::lifetime() const {
  return std::shared_ptr<const void>(channels_->mixer);
}

void Engine::set_volume(int percent) {
  ui_thread_.check();
  channels_->mixer->set_volume(percent);
}

std::uint64_t Engine::heard_ms(std::uint64_t stream) const {
  return channels_->mixer->heard_ms(stream);
}

std::uint64_t Engine::taken() const {
  return channels_->mailbox.taken();
}

bool Engine::device_hung() const {
  return channels_->device.hung();
}

} // namespace lumotune::media
