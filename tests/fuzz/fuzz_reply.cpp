// SPDX-License-Identifier: LGPL-2.1-or-later
// Any reply to the report of what plays: a bounded number of bounded questions, and the file goes.
#include "player/client_link.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/memory_platform.h"

namespace {

using namespace lumotune;
using fuzz::demand;

// No more of the program than the reply needs: the rest would take most of each run.
struct ReplyWorld : test::MemoryPlatform {
  platform::memory::Window window{files};
  base::Settings settings;
  base::Session session;
  base::ErrorLog error_log{{folder, machine}};
  base::SettingsFiles options{{folder, loop, window, error_log, settings, session}};
  companions::CommandSender sender{{loop, messages, shell, codec}};
  player::ReportPrograms programs{{settings, folder, shell}};
  player::ClientLink link{{folder, loop, dialogs, settings, options, sender, programs}};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static constexpr const char* words[] = {"new:", "inf:", "\r\n", "\n", "\r", "NEW:", "Inf:"};
  ReplyWorld w;
  const std::wstring reply = w.machine.folder + L"\\orblt.tt";
  w.settings.client_link = L"off";
  w.messages.add_window(L"Orb - Lumotune", platform::WindowRef{77});
  w.link.enable_Timer1();
  w.loop.advance(3000);
  for (std::size_t i = 0; i < size && i < 30; ++i)
    w.dialogs.answers.push_back(data[i] % 2 == 0 ? platform::BoxAnswer::yes : platform::BoxAnswer::no);
  // What was shown is looked at and forgotten: all of it together may be a hundred thousand times the reply.
  std::size_t questions = 0;
  w.dialogs.while_open = [&] {
    ++questions;
    const auto& text = w.dialogs.shown.back().text;
    demand(text.size() <= player::ClientLink::max_reply_bytes + 40 && text.ends_with(L"Chcete zapnout Orb klienta?"));
    w.dialogs.shown.clear();
  };
  demand(w.files.replace(reply, fuzz::expanded(data, size, words)));
  w.loop.advance(500);
  demand(!w.files.exists(reply));
  demand(questions <= player::ClientLink::max_reply_bytes / 4); // "inf:"
  demand(w.messages.sent.size() <= questions);
  return 0;
}
