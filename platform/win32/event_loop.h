// SPDX-License-Identifier: LGPL-2.1-or-later
// The message loop of the user-interface thread.
#pragma once

#include "platform/common/caught_errors.h"
#include "platform/common/thread_check.h"
#include "platform/common/top_level_queue.h"
#include "platform/event_loop.h"
#include "platform/win32/win.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace lumotune::platform::win32 {

class Timer;
class Waker;

class EventLoop final : public platform::EventLoop {
public:
  EventLoop();
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  ~EventLoop() override;

  [[nodiscard]] std::unique_ptr<platform::Timer> make_timer(std::uint32_t interval_ms,
                                                            std::function<void()> tick) override;
  [[nodiscard]] std::unique_ptr<platform::Waker> make_waker(std::function<void()> work) override;
  [[nodiscard]] std::unique_ptr<TopLevelWork> post_top_level(std::function<void()> work) override;
  void run_pending() override;
  [[nodiscard]] bool wait_a_little() override;
  [[nodiscard]] std::uint32_t tick_count_ms() const override;
  void begin_end() override;
  [[nodiscard]] bool ending() const override { return ending_ || quitting_; }
  void quit() override;
  [[nodiscard]] bool quitting() const override { return quitting_; }
  void run() override;

  // Ends the program unless called on the thread of the loop. Any thread.
  void check_thread() const { thread_.check(); }

  // For whatever the system calls: handlers must not throw through its code.
  [[nodiscard]] CaughtErrors& caught() { return caught_; }

  // A filter sees every message before it is dispatched; true when it has handled the message. One per owner; an empty
  // function removes it. Filters may be added and removed while one of them runs.
  void set_filter(const void* owner, std::function<bool(MSG&)> work);

private:
  friend class Timer;
  friend class Waker;
  struct Ticking {
    std::function<void()> tick;
    bool busy = false;
  };
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  struct Filter {
    const void* owner = nullptr;
    std::function<bool(MSG&)> work;
    bool removed = false;
  };
  [[nodiscard]] bool filtered(MSG& message);
  void dispatch(MSG& message);
  void tick(UINT_PTR id);
  void run_wakers();
  void run_top_level();

  const ThreadCheck thread_{"user-interface thread"};
  CaughtErrors caught_;
  HWND window_ = nullptr;
  bool ending_ = false;
  bool quitting_ = false;
  UINT_PTR last_id_ = 0;
  std::map<UINT_PTR, std::shared_ptr<Ticking>> timers_;
  std::vector<Waker*> wakers_;
  TopLevelQueue top_level_;
  std::vector<std::shared_ptr<Filter>> filters_;
};

} // namespace lumotune::platform::win32
