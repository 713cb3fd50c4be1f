// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/stepped_work.h"

#include <utility>

namespace lumotune::base {

// A timer, and not posted work: posted messages would come before input and drawing.
SteppedWork::SteppedWork(platform::EventLoop& loop)
    : loop_(loop), next_turn_(loop.make_timer(1, [this] { take_turn(); })) {}

void SteppedWork::start(std::vector<Step> steps, std::function<void()> done) {
  give_up();
  work_ = std::make_shared<Work>(Work{std::move(steps), std::move(done)});
  take_turn();
}

void SteppedWork::give_up() {
  work_.reset();
  next_turn_->stop();
}

// A step that runs events may see the work given up or replaced.
void SteppedWork::take_turn() {
  const auto work = work_;
  if (!work || work->in_turn)
    return;
  next_turn_->stop();
  work->in_turn = true;
  do_steps(work);
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

void SteppedWork::do_steps(const std::shared_ptr<Work>& work) {
  const std::uint32_t begun = loop_.tick_count_ms();
  while (work == work_ && !loop_.quitting() && work->next < work->steps.size()) {
    if (work->steps[work->next]())
      ++work->next;
    if (loop_.tick_count_ms() - begun >= turn_ms)
      return;
  }
}

} // namespace lumotune::base
