// SPDX-License-Identifier: LGPL-2.1-or-later
// Any reply to the report of what plays: a bounded number of bounded questions, and the file goes.
#include "core/client_link.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/core_world.h"

namespace {

using namespace lumotune;
using fuzz::demand;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static constexpr const char* words[] = {"new:", "inf:", "\r\n", "\n", "\r", "NEW:", "Inf:"};
  test::CoreWorld w;
  core::ClientLink link{{w.files, w.codec, w.machine, w.loop, w.dialogs, w.settings, w.options, w.sender}};
  w.set_option(18, "#018:DDD:off");
  link.enable_Timer1();
  w.loop.advance(3000);
  for (std::size_t i = 0; i < size && i < 30; ++i)
    w.dialogs.answers.push_back(data[i] % 2 == 0 ? platform::BoxAnswer::yes : platform::BoxAnswer::no);
  w.put(L"orblt.tt", fuzz::expanded(data, size, words));
  w.loop.advance(500);
  demand(!w.files.exists(w.path(L"orblt.tt")));
  demand(w.dialogs.shown.size() <= static_cast<std::size_t>(core::ClientLink::max_questions));
  for (const auto& box : w.dialogs.shown)
    demand(box.text.size() <= 2 * core::ClientLink::max_shown + 40 &&
           box.text.ends_with(L"Chcete zapnout Orb klienta?"));
  demand(w.messages.sent.size() <= w.dialogs.shown.size());
  return 0;
}
