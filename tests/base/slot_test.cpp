// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/slot.h"

#include <gtest/gtest.h>

namespace lumotune::base {
namespace {

struct Port {
  virtual ~Port() = default;
  virtual int answer() = 0;
};
struct Answering final : Port {
  int answer() override { return 7; }
};

TEST(Slot, CallsWhatIsBound) {
  Answering port;
  Slot<Port> slot;
  slot.bind(port);
  EXPECT_EQ(slot->answer(), 7);
}

TEST(SlotDeathTest, AnUnboundOneEndsTheProgramAndSaysWhy) {
  Slot<Port> slot;
  EXPECT_DEATH((void)slot->answer(), "a port was called before it was bound");
}

} // namespace
} // namespace lumotune::base
