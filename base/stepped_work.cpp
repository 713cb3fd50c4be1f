// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/stepped_work.h"

#include <utility>

namespace lumotune::base {

// A timer, and not posted work: posted messages would come before input and drawing.
SteppedWork::SteppedWork(platform::EventLoop& loop)
    : loop_(loop), next_turn_(loop.make_timer(1, [this] { take_turn(loop_.tick_count_ms()); })) {}

void SteppedWork::start(std::vector<Step> steps, std::function<void()> done, std::uint32_t begun_ms) {
  give_up();
  work_ = std::make_shared<Work>(Work{std::move(steps), std::move(done)});
  if (loop_.tick_count_ms() - begun_ms < turn_ms)
    take_turn(begun_ms);
  else
    next_turn_->start();
}

void SteppedWork::give_up() {
  work_.reset();
  next_turn_->stop();
}

// At least one piece a turn, however slow the machine. A step that runs events may see the work given up or replaced.
void SteppedWork::take_turn(std::uint32_t begun_ms) {
  const auto work = work_;
  if (!work || work->in_turn)
    return;
  next_turn_->stop();
  work->in_turn = true;
  do_steps(work, begun_ms);
  work->in_turn = false;
  if (work != work_)
    return;
  if (loop_.quitting())
    return give_up();
  if (work->next < work->steps.size())
    return next_turn_->start();
  work_.reset();
  work->done();
}

void SteppedWork::do_steps(const std::shared_ptr<Work>& work, std::uint32_t begun_ms) {
  while (work == work_ && !loop_.quitting() && work->next < work->steps.size()) {
    if (work->steps[work->next]())
      ++work->next;
    if (loop_.tick_count_ms() - begun_ms >= turn_ms)
      return;
  }
}

} // namespace lumotune::base
