// SPDX-License-Identifier: LGPL-2.1-or-later
// The worker: opens what the mailbox asks for, decodes it into the mixer's ring, and comes back after every trouble for
// as long as it is wanted.
#pragma once

#include "platform/media/board.h"
#include "platform/media/device.h"
#include "platform/media/drift.h"
#include "platform/media/mailbox.h"
#include "platform/media/mixer.h"
#include "platform/media/retry.h"
#include "platform/media/source.h"
#include "platform/media/title_queue.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <vector>

namespace lumotune::media {

class Decoder;

struct EngineOptions {
  int latency_ms = 100; // of the device; less than 100 makes gaps on some sound systems
  OutputFactory make_output;
  std::string user_agent;
  std::function<std::string(const std::string& address)> proxy;
  int timeout_ms = 10000;
  std::string ca_file;
  double retry_scale = 1.0; // tests make the waits shorter
};

// A worker that hangs in a name look-up, or a device thread that hangs in the sound system, which nothing interrupts,
// is left behind: each owns all it touches and goes when it comes to itself.
class Engine : public std::enable_shared_from_this<Engine> {
public:
  Engine(EngineOptions options, std::shared_ptr<Board> board); // throws where no thread can be made, as `start` does

  const std::shared_ptr<Mixer> sound; // also the device thread's, which may outlive the engine
  Mailbox mailbox;
  Mixer& mixer;
  Device device;

  void start(); // once; the thread keeps the engine alive
  void leave(); // silence at once; both threads end as soon as they can
  // Waits for that, so long at most for both together.
  [[nodiscard]] bool wait_ended(std::chrono::milliseconds time);

private:
  enum class Outcome { cancelled, failed, lost, ended };
  struct Attempt {
    Outcome outcome = Outcome::failed;
    Trouble trouble = Trouble::none;
    int http_code = 0;
  };

  // An address on the way to sound, and how many lists have led to it.
  struct Lead {
    std::string address;
    platform::AddressOrigin origin = platform::AddressOrigin::station;
    int depth = 0;
  };

  void work();
  void serve_next_wish();
  void tell_failure() noexcept;
  void play(const Wish& wish);
  [[nodiscard]] bool wait_for_rate();
  [[nodiscard]] Attempt try_once(const Wish& wish);
  [[nodiscard]] Attempt attempt(const Lead& lead, OpenBudget& budget);
  [[nodiscard]] Attempt attempt_entries(const Lead& list, const std::vector<std::string>& entries, OpenBudget& budget);
  [[nodiscard]] Opened open(const std::string& address, platform::AddressOrigin origin, OpenBudget& budget);
  [[nodiscard]] bool interrupted() noexcept;
  [[nodiscard]] Attempt stream(Source& source);
  [[nodiscard]] bool pump(Source& source, Decoder& decoder, Attempt& result);
  void write(const float* frames, std::size_t count);
  void rest(bool live);
  void drain();
  void show_flow();
  [[nodiscard]] bool wait_and_count_down(const Attempt& failure);
  void let_flow();
  void show_due_title();
  [[nodiscard]] bool superseded() const { return mailbox.newer_than(wish_.stream); }
  void tend();
  void tend_device();
  void tend_missing_device();
  void correct_drift(Decoder& decoder, bool live);
  void report();
  [[nodiscard]] std::uint32_t level_ms() const;

  EngineOptions options_;
  std::shared_ptr<Board> board_;
  Wish wish_;
  StreamStatus status_;
  RetryPolicy retry_;
  DriftControl drift_;
  std::chrono::steady_clock::time_point drift_checked_;
  bool streaming_ = false;                            // a source is open
  bool failed_inside_ = false;                        // something was thrown where it had to pass through C
  bool device_hung_ = false;                          // when it was last looked at
  std::chrono::steady_clock::time_point sound_began_; // of this stream
  bool flowed_ = false;                               // this stream was let flow at least once since it was opened
  std::uint32_t underruns_ = 0;
  std::size_t unrested_ = 0;        // frames written since the last rest
  std::size_t leading_silence_ = 0; // frames that may still be left out while they are nothing but zeros
  std::minstd_rand random_;

  // Titles are shown when they are heard: each with the place in the ring where it begins. At most `max_titles`.
  TitleQueue coming_titles_;

  // Outlives the engine, so that its end can be told after it is gone.
  struct End {
    std::mutex mutex;
    std::condition_variable changed;
    bool reached = false;
  };
  std::shared_ptr<End> end_ = std::make_shared<End>();
};

} // namespace lumotune::media
