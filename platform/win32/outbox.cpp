// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/outbox.h"

#include "platform/threads/thread_name.h"
#include "platform/window_messages.h"

#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace lumotune::platform::win32 {

struct Outbox::Queue {
  std::mutex mutex;
  std::deque<OutgoingText> waiting;
  bool thread_runs = false;
};

namespace {

constexpr DWORD text_command = 1;

// The receiver copies the bytes before it replies; the reply itself carries no information.
void send(OutgoingText text) {
  COPYDATASTRUCT record{};
  record.dwData = text_command;
  record.cbData = static_cast<DWORD>(text.bytes.size());
  record.lpData = text.bytes.data();
  DWORD_PTR answer = 0;
  SendMessageTimeoutA(text.target, WM_COPYDATA, reinterpret_cast<WPARAM>(text.sender),
                      reinterpret_cast<LPARAM>(&record), SMTO_ABORTIFHUNG | SMTO_NORMAL, WindowMessages::send_limit_ms,
                      &answer);
}

// Nothing when there is no more to send: from then on the thread counts as ended.
std::optional<OutgoingText> next(Outbox::Queue& queue) {
  const std::scoped_lock lock(queue.mutex);
  if (queue.waiting.empty()) {
    queue.thread_runs = false;
    return std::nullopt;
  }
  OutgoingText text = std::move(queue.waiting.front());
  queue.waiting.pop_front();
  return text;
}

DWORD WINAPI send_all(LPVOID argument) {
  name_this_thread("outbox");
  const std::unique_ptr<std::shared_ptr<Outbox::Queue>> queue(static_cast<std::shared_ptr<Outbox::Queue>*>(argument));
  while (auto text = next(**queue))
    send(std::move(*text));
  return 0;
}

bool start_thread(const std::shared_ptr<Outbox::Queue>& queue) {
  constexpr SIZE_T stack_bytes = 65536;
  auto shared = std::make_unique<std::shared_ptr<Outbox::Queue>>(queue);
  const KernelHandle thread(
      CreateThread(nullptr, stack_bytes, send_all, shared.get(), STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
  if (thread.get() != nullptr)
    (void)shared.release(); // the thread owns it
  return thread.get() != nullptr;
}

} // namespace

Outbox::Outbox() : queue_(std::make_shared<Queue>()) {}

Outbox::~Outbox() {
  const std::scoped_lock lock(queue_->mutex);
  queue_->waiting.clear();
}

// A machine that has no thread left gets nothing sent; the next text tries again.
void Outbox::add(OutgoingText text) {
  const std::scoped_lock lock(queue_->mutex);
  if (queue_->waiting.size() >= WindowMessages::max_waiting)
    return;
  queue_->waiting.push_back(std::move(text));
  if (!queue_->thread_runs)
    queue_->thread_runs = start_thread(queue_);
  if (!queue_->thread_runs)
    queue_->waiting.clear();
}

bool Outbox::busy() const {
  const std::scoped_lock lock(queue_->mutex);
  return queue_->thread_runs;
}

} // namespace lumotune::platform::win32
