// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/status_display.h"

#include "base/text.h"
#include "player/status_text.h"

#include <algorithm>

namespace lumotune::player {
namespace {

constexpr std::uint32_t interval_ms = 1000;
constexpr std::size_t name_characters = 15;

std::wstring two_digits(std::uint64_t number) {
  const std::wstring digits = std::to_wstring(number);
  return digits.size() < 2 ? L"0" + digits : digits;
}

} // namespace

std::wstring elapsed_text(std::uint64_t milliseconds) {
  if (milliseconds == 0)
    return {};
  const std::uint64_t seconds = milliseconds / 1000;
  const std::wstring tail = L":" + two_digits(seconds % 60);
  if (seconds < 3600)
    return std::to_wstring(seconds / 60) + tail;
  return std::to_wstring(seconds / 3600) + L":" + two_digits(seconds / 60 % 60) + tail;
}

StatusDisplay::StatusDisplay(const Uses& uses)
    : uses_(uses), aktualizujWMP(uses.loop.make_timer(interval_ms, [this] { tick(); })) {}

void StatusDisplay::tell(const std::wstring& notice) {
  constexpr int seconds = 5;
  notice_ = notice;
  notice_ticks_ = seconds;
  uses_.form.InfoStatus.set_text(notice);
  uses_.form.InfoStatus.announce();
}

bool StatusDisplay::can_tell() const {
  const platform::TwipsRect place = uses_.form.InfoStatus.rect();
  return uses_.form.InfoStatus.visible() && place.width > 0 && place.height > 0;
}

void StatusDisplay::tick() {
  auto& session = uses_.session;
  if (notice_ticks_ > 0 && --notice_ticks_ == 0)
    notice_.clear();
  session.time_text = elapsed_text(uses_.player.played_ms());
  choose_name();
  show_status();
  show_name();
  uses_.form.InfoTime.set_text(session.time_text);
  // An item's data begin with these two.
  const auto& tuned = uses_.settings;
  uses_.form.Control_List.set_mark(tuned.IDlastRadio.empty() ? L"" : tuned.KvalitaLT + tuned.IDlastRadio);
  const std::wstring& named = session.station_name.empty() ? session.shown_name : session.station_name;
  session.title_text = named.empty() ? std::wstring(base::main_caption) : named + L" - " + base::main_caption;
  title->show_title(session.title_text);
}

// Either layout begins with the title, as a notification does, so that nothing jumps between them.
void StatusDisplay::show_status() {
  constexpr std::size_t title_column = 55;
  constexpr std::size_t heard_column = 33;
  const auto& kept = uses_.session.skin;
  const bool first = kept.status_has_first_layout && uses_.session.time_text.empty();
  auto& label = uses_.form.InfoStatus;
  const platform::TwipsRect place = label.rect();
  const std::wstring columns = Status1(uses_.player.status(), !uses_.session.time_text.empty());
  const std::wstring_view shown = base::mid(columns, first ? title_column : heard_column);
  label.set_text(notice_.empty() ? std::wstring(shown.substr(std::min(shown.find_first_not_of(L' '), shown.size())))
                                 : notice_);
  label.move(place.left, first ? kept.status_top_1 : kept.status_top_2);
  label.resize(place.width, first ? kept.status_height_1 : kept.status_height_2);
  show_needle();
}

// It comes along the scale with what is loaded, and stays at its end while something plays.
void StatusDisplay::show_needle() {
  using Phase = platform::StreamPhase;
  const auto& scale = uses_.session.skin.needle;
  const platform::StreamStatus stream = uses_.player.status();
  const bool seen = scale.height > 0 && uses_.session.playing && stream.phase != Phase::stopped;
  const int percent = stream.phase == Phase::playing     ? 100
                      : stream.phase == Phase::buffering ? std::clamp(stream.percent, 0, 100)
                                                         : 0;
  uses_.form.LTDisplay.set_needle(
      seen ? std::optional(platform::Needle{scale.from + (scale.to - scale.from) * percent / 100, scale.top,
                                            scale.height, platform::Colour{scale.colour}})
           : std::nullopt);
}

void StatusDisplay::choose_name() {
  auto& session = uses_.session;
  session.shown_name = session.station_name.empty() ? session.OverrideName : session.station_name;
}

void StatusDisplay::show_name() {
  const std::wstring& name = uses_.session.shown_name;
  std::wstring shown = name.substr(0, name_characters);
  if (name.size() >= name_characters)
    shown += L"...";
  uses_.form.InfoName.set_text(shown);
  uses_.form.InfoName.set_tooltip(name);
}

void StatusDisplay::copy_status() {
  const platform::StreamStatus stream = uses_.player.status();
  const std::wstring status = status_text(stream);
  const std::wstring warning = warning_text(stream);
  copied_ = status;
  if (notice_.empty())
    uses_.form.InfoStatus.set_text(status);
  show_needle();
  std::wstring tip = warning.empty() || warning == status ? status : status + L" - " + warning;
  if (!uses_.session.backup_quality.empty())
    tip += L" - náhradní kvalita " + uses_.session.backup_quality + L" kbps";
  uses_.form.InfoStatus.set_tooltip(tip + uses_.session.last_titles);
}

// A change of station updates the name at once; everything else waits for the tick.
void StatusDisplay::PlayStateChange(int /*new_state*/) {
  copy_status();
  choose_name();
  show_name();
}

// Not every status change alters the text: the columns then stay on display.
void StatusDisplay::StatusChange() {
  if (status_text(uses_.player.status()) != copied_)
    copy_status();
}

} // namespace lumotune::player
