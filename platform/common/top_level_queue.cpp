// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/top_level_queue.h"

#include <utility>

namespace lumotune::platform {
namespace {

class Handle final : public TopLevelWork {
public:
  explicit Handle(std::shared_ptr<std::function<void()>> work) : work_(std::move(work)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() override { *work_ = {}; }

private:
  std::shared_ptr<std::function<void()>> work_;
};

} // namespace

std::unique_ptr<TopLevelWork> TopLevelQueue::post(std::function<void()> work) {
  waiting_.push_back(std::make_shared<std::function<void()>>(std::move(work)));
  return std::make_unique<Handle>(waiting_.back());
}

std::function<void()> TopLevelQueue::take() {
  if (waiting_.empty())
    return {};
  const auto first = std::move(waiting_.front());
  waiting_.pop_front();
  return std::exchange(*first, {});
}

} // namespace lumotune::platform
