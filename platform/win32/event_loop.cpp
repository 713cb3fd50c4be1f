// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/event_loop.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr UINT message_wake = WM_APP + 1;
constexpr const wchar_t* class_name = L"LumotuneLoop";
// Messages handled in one round: a flood must not keep a caller waiting forever.
constexpr int most_messages = 500;

} // namespace

// The system's own timers: they also tick inside its modal loops (menus, boxes, the dragging of a window).
class Timer final : public platform::Timer {
public:
  Timer(EventLoop& loop, std::uint32_t interval_ms, std::function<void()> tick)
      : loop_(loop), id_(++loop.last_id_), interval_(std::max(interval_ms, 1U)) {
    loop_.timers_[id_] = std::make_shared<EventLoop::Ticking>(EventLoop::Ticking{std::move(tick)});
  }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() override {
    stop();
    loop_.timers_.erase(id_);
  }
  void start() override {
    loop_.check_thread();
    if (!running_)
      arm();
  }
  void stop() override {
    loop_.check_thread();
    if (running_)
      KillTimer(loop_.window_, id_);
    running_ = false;
  }
  [[nodiscard]] bool running() const override { return running_; }
  void set_interval(std::uint32_t milliseconds) override {
    loop_.check_thread();
    interval_ = std::max(milliseconds, 1U);
    if (running_)
      arm();
  }

private:
  void arm() { running_ = SetTimer(loop_.window_, id_, interval_, nullptr) != 0; }

  EventLoop& loop_;
  UINT_PTR id_;
  std::uint32_t interval_;
  bool running_ = false;
};

class Waker final : public platform::Waker {
public:
  Waker(EventLoop& loop, std::function<void()> work) : loop_(loop), window_(loop.window_), work_(std::move(work)) {
    loop_.wakers_.push_back(this);
  }
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;
  ~Waker() override {
    loop_.check_thread();
    std::erase(loop_.wakers_, this);
  }

  // A full message queue refuses the post; the request stays pending until the next round of the loop.
  void wake() override {
    if (!pending_.exchange(true))
      PostMessageW(window_, message_wake, 0, 0);
  }
  [[nodiscard]] std::function<void()> take() { return pending_.exchange(false) ? work_ : std::function<void()>{}; }

private:
  EventLoop& loop_;
  HWND window_;
  std::function<void()> work_;
  std::atomic<bool> pending_ = false;
};

EventLoop::EventLoop() {
  WNDCLASSW made{};
  made.lpfnWndProc = procedure;
  made.hInstance = GetModuleHandleW(nullptr);
  made.lpszClassName = class_name;
  RegisterClassW(&made); // a second registration fails, and the first one serves
  window_ = CreateWindowExW(0, class_name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, made.hInstance, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

EventLoop::~EventLoop() {
  DestroyWindow(window_);
}

LRESULT CALLBACK EventLoop::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<EventLoop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr && message == WM_TIMER)
    self->caught_.guard([&] { self->tick(w); });
  else if (self != nullptr && message == message_wake)
    self->caught_.guard([&] { self->run_wakers(); });
  else
    return DefWindowProcW(window, message, w, l);
  return 0;
}

void EventLoop::tick(UINT_PTR id) {
  const auto found = timers_.find(id);
  if (found == timers_.end() || found->second->busy)
    return;
  const auto ticking = found->second; // the tick may destroy its timer
  ticking->busy = true;
  caught_.guard(ticking->tick);
  ticking->busy = false;
}

// The work of one may destroy others: the scan starts over after each.
void EventLoop::run_wakers() {
  for (bool again = true; again;) {
    again = false;
    for (Waker* waker : wakers_) {
      if (const auto work = waker->take()) {
        caught_.guard(work);
        again = true;
        break;
      }
    }
  }
}

std::unique_ptr<platform::Timer> EventLoop::make_timer(std::uint32_t interval_ms, std::function<void()> tick) {
  thread_.check();
  return std::make_unique<Timer>(*this, interval_ms, std::move(tick));
}

std::unique_ptr<platform::Waker> EventLoop::make_waker(std::function<void()> work) {
  thread_.check();
  return std::make_unique<Waker>(*this, std::move(work));
}

// The message wakes the loop.
std::unique_ptr<TopLevelWork> EventLoop::post_top_level(std::function<void()> work) {
  thread_.check();
  PostMessageW(window_, WM_NULL, 0, 0);
  return top_level_.post(std::move(work));
}

// Called by `run` alone: whatever waits, the system's boxes, menus and moving of windows included, does so inside a
// message that `run` has dispatched. What is posted meanwhile waits for the next round.
void EventLoop::run_top_level() {
  for (std::size_t left = top_level_.size(); left != 0 && !quitting_; --left) {
    if (const auto work = top_level_.take())
      caught_.guard(work);
  }
}

void EventLoop::set_filter(const void* owner, std::function<bool(MSG&)> work) {
  for (const auto& filter : filters_)
    filter->removed = filter->removed || filter->owner == owner;
  std::erase_if(filters_, [](const auto& filter) { return filter->removed; });
  if (work)
    filters_.push_back(std::make_shared<Filter>(Filter{owner, std::move(work)}));
}

// A filter may change the list; the copy also keeps the running filter alive.
bool EventLoop::filtered(MSG& message) {
  const auto filters = filters_;
  bool done = false;
  for (const auto& filter : filters) {
    if (!done && !filter->removed)
      caught_.guard([&] { done = filter->work(message); });
  }
  return done;
}

void EventLoop::dispatch(MSG& message) {
  if (message.message == WM_QUIT) {
    quitting_ = true;
    return;
  }
  if (filtered(message))
    return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void EventLoop::run_pending() {
  thread_.check();
  MSG message{};
  for (int i = 0; i < most_messages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0; ++i)
    dispatch(message);
  run_wakers();
}

bool EventLoop::wait_a_little() {
  constexpr DWORD pass_ms = 5;
  thread_.check();
  if (quitting_)
    return false;
  run_pending();
  if (!quitting_)
    MsgWaitForMultipleObjectsEx(0, nullptr, pass_ms, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  return !quitting_;
}

std::uint32_t EventLoop::tick_count_ms() const {
  thread_.check();
  return GetTickCount();
}

void EventLoop::begin_end() {
  thread_.check();
  ending_ = true;
}

void EventLoop::quit() {
  thread_.check();
  quitting_ = true;
  PostMessageW(window_, WM_NULL, 0, 0); // wakes `run`
}

void EventLoop::run() {
  thread_.check();
  MSG message{};
  while (!quitting_) {
    const int got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0)
      quitting_ = true;
    else if (got > 0)
      dispatch(message);
    else
      (void)wait_a_little(); // an error of GetMessage must not end the program
    run_wakers();
    run_top_level();
  }
}

} // namespace lumotune::platform::win32
