// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/line_walk.h"

#include <algorithm>

namespace lumotune::directory {

// The next line feed is looked for once and remembered, so that a line of carriage returns costs no more than another.
bool LineWalk::next() {
  start_ = after_;
  length_ = 0;
  if (start_ >= bytes_.size())
    return false;
  if (feed_ == unknown || feed_ < start_)
    feed_ = std::min(bytes_.find('\n', start_), bytes_.size());
  const std::size_t end = std::min(bytes_.substr(start_, feed_ - start_).find('\r'), feed_ - start_) + start_;
  length_ = end - start_;
  const bool pair = end + 1 == feed_ && feed_ < bytes_.size();
  after_ = std::min(end + (pair ? 2 : 1), bytes_.size());
  return true;
}

} // namespace lumotune::directory
