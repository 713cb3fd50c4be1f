// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/client_commands.h"

#include "base/busy.h"
#include "base/text.h"

#include <utility>

namespace lumotune::player {
namespace {

// So long, in milliseconds, commands follow each other; then the user has the next moment.
constexpr std::uint32_t at_a_stretch_ms = 20;
constexpr std::uint32_t moment_ms = 10;

bool short_enough(const std::wstring& id) {
  return id.size() <= ClientCommands::max_id;
}

} // namespace

ClientCommands::ClientCommands(const Uses& uses)
    : uses_(uses),
      waker_(uses.loop.make_waker([this] { run_waiting(); })),
      more_(uses.loop.make_timer(moment_ms, [this] { run_more(); })) {}

void ClientCommands::Hook(bool enable) {
  if (enable) {
    uses_.messages.hook([this](const platform::CopyData& data) { receive(data); });
  } else {
    uses_.messages.hook({});
    waiting_.clear();
    more_->stop();
  }
}

void ClientCommands::release() {
  held_ = false;
  if (!waiting_.empty())
    waker_->wake();
}

void ClientCommands::receive(const platform::CopyData& data) {
  constexpr std::uint32_t text_command = 1;
  if (data.kind != text_command || waiting_.size() >= max_waiting)
    return;
  // Some senders count the terminating zero among the bytes of the text.
  std::string_view bytes = data.bytes;
  bytes = bytes.substr(0, bytes.find('\0'));
  if (bytes.size() > max_command)
    return;
  take(uses_.codec.decode(bytes));
}

void ClientCommands::take(const std::wstring& text) {
  if (held_ && base::equal_ignoring_case(text, L"fmax") && uses_.dialogs.bring_forward())
    return;
  waiting_.push_back(text);
  if (!held_ && !more_->running()) // which takes this one as well
    waker_->wake();
}

// A procedure of a command may let events run, and with them this function: the outer run then takes what waits. A
// flood must not keep the user out: what is left after a while waits for a timer, which the system lets tick only when
// there is neither input nor anything to be drawn.
void ClientCommands::run_waiting() {
  const base::Busy turn(busy_);
  if (!turn)
    return;
  const std::uint32_t start = uses_.loop.tick_count_ms();
  while (!waiting_.empty() && !uses_.loop.quitting()) {
    if (uses_.loop.tick_count_ms() - start >= at_a_stretch_ms)
      return more_->start();
    const std::wstring text = std::move(waiting_.front());
    waiting_.pop_front();
    // Whatever becomes of this one, those behind it have their turn.
    if (!waiting_.empty())
      more_->start();
    execute(text);
  }
}

void ClientCommands::run_more() {
  if (busy_)
    return;
  more_->stop();
  run_waiting();
}

void ClientCommands::execute(const std::wstring& text) {
  const auto rest_after = [&](std::size_t prefix) { return std::wstring(base::mid(text, prefix + 1)); };
  if (base::starts_with_ignoring_case(text, L"p:")) {
    uses_.playback.PlayAll(rest_after(2), platform::AddressOrigin::message);
    uses_.form.window.activate();
  }
  if (base::equal_ignoring_case(text, L"list"))
    uses_.favourites.ZobrazOblibene();
  if (base::starts_with_ignoring_case(text, L"id:") && short_enough(rest_after(3)))
    uses_.settings.IDlastRadio = rest_after(3);
  if (base::starts_with_ignoring_case(text, L"idk:") && short_enough(rest_after(4)))
    uses_.settings.KvalitaLT = rest_after(4);
  if (base::starts_with_ignoring_case(text, L"remoteplay"))
    remote_play(text);
  if (base::equal_ignoring_case(text, L"play"))
    uses_.playback.AutoStart(uses_.settings.IDlastRadio, uses_.settings.KvalitaLT);
  if (base::equal_ignoring_case(text, L"fmax")) {
    chrome->FormMax();
    (void)uses_.dialogs.bring_forward(); // the window does not answer while a box is open
  }
}

void ClientCommands::remote_play(const std::wstring& text) {
  auto fields = base::split_record(text);
  fields.resize(5);
  if (!short_enough(fields[1]) || !short_enough(fields[2]))
    return;
  uses_.settings.IDlastRadio = fields[1];
  uses_.settings.KvalitaLT = fields[2];
  uses_.session.OverrideURL = fields[3];
  uses_.session.OverrideName = fields[4];
  uses_.playback.AutoStart(uses_.settings.IDlastRadio, uses_.settings.KvalitaLT);
}

} // namespace lumotune::player
