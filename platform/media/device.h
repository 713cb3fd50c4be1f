// SPDX-License-Identifier: LGPL-2.1-or-later
// The thread that makes every call to the sound device: a stop is silent without waiting for the network.
#pragma once

#include "platform/media/output.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace lumotune::media {

using OutputFactory = std::function<std::unique_ptr<AudioOutput>()>;

// Opens the device when sound is wanted, starts and stops it, and makes it anew after it went away or where there was
// none yet. Any thread calls the functions below; they return at once.
class Device {
public:
  Device(Mixer& mixer, OutputFactory make_output, int latency_ms);
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device(); // waits for the device to be closed

  void run();     // sound is wanted: the device is opened
  void flow();    // there is sound now: it is started, with sound from its first moment
  void silence(); // and now it is not: what the device has taken already is muted, too
  // Whether the mixer is being called, or may be at any moment.
  [[nodiscard]] bool consuming() const { return consuming_.load(std::memory_order_acquire); }
  // Sound is wanted, but no device is there.
  [[nodiscard]] bool missing() const { return missing_.load(std::memory_order_acquire); }
  // Whether the mixer's rate is settled: the device was opened, or found missing, once.
  void wait_for_rate();

private:
  void loop();
  void open_if_needed();
  void start_output(bool flowing);
  void stop_output();

  Mixer& mixer_;
  OutputFactory make_output_;
  int latency_ms_;

  std::mutex mutex_;
  std::condition_variable changed_;
  bool wanted_ = false;
  bool flowing_ = false;
  bool ending_ = false;
  bool rate_settled_ = false;
  std::atomic<bool> missing_ = false;
  std::atomic<bool> consuming_ = false;

  // Of the device thread alone.
  std::unique_ptr<AudioOutput> output_;
  bool started_ = false;
  bool rate_fixed_ = false;

  std::thread thread_;
};

} // namespace lumotune::media
