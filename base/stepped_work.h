// SPDX-License-Identifier: LGPL-2.1-or-later
// Long work of the user-interface thread, done in short turns so that windows answer in between.
#pragma once

#include "platform/event_loop.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace lumotune::base {

// User-interface thread. Destroying it gives the work up; not from within one of its steps.
class SteppedWork {
public:
  // A piece of work of a few milliseconds at most. False when the step has more pieces. May run events.
  using Step = std::function<bool()>;
  // A turn ends after the piece that uses this up.
  static constexpr std::uint32_t turn_ms = 8;

  explicit SteppedWork(platform::EventLoop& loop);

  // The first turn is the rest of one that the caller began at that tick; nothing of it, if it is used up. The others
  // come from timer ticks, after input and drawing; boxes, menus and waits do not hold them up. `done` follows the last
  // step in its turn. Nothing more runs once the program ends. Gives up earlier work.
  void start(std::vector<Step> steps, std::function<void()> done, std::uint32_t begun_ms);
  void give_up(); // no further step, no `done`
  [[nodiscard]] bool running() const { return work_ != nullptr; }

private:
  struct Work {
    std::vector<Step> steps;
    std::function<void()> done;
    std::size_t next = 0;
    bool in_turn = false;
  };
  void take_turn(std::uint32_t begun_ms);
  void do_steps(const std::shared_ptr<Work>& work, std::uint32_t begun_ms);

  platform::EventLoop& loop_;
  std::shared_ptr<Work> work_;
  std::unique_ptr<platform::Timer> next_turn_;
};

} // namespace lumotune::base
