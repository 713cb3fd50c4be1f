// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/title_history.h"

#include <utility>

namespace lumotune::player {
namespace {

constexpr std::uint32_t interval_ms = 1000;

} // namespace

TitleHistory::TitleHistory(const Uses& uses)
    : uses_(uses), timer_(uses.loop.make_timer(interval_ms, [this] { tick(); })) {}

std::optional<TitleLines> TitleHistory::read() const {
  const auto& files = uses_.folder.files();
  const std::wstring path = uses_.folder.path(titles_file);
  std::string bytes;
  if (files.exists(path) && !files.read_at_most(path, bytes, max_bytes))
    return std::nullopt;
  return TitleLines(bytes, uses_.folder.codec());
}

void TitleHistory::start() {
  if (const auto lines = read())
    show(*lines);
  timer_->start();
}

void TitleHistory::tick() {
  const platform::StreamStatus status = uses_.player.status();
  if (status.phase == platform::StreamPhase::playing && !status.title.empty()) {
    const std::wstring now = uses_.session.shown_name + L'\0' + status.title;
    if (std::exchange(last_, now) != now)
      waiting_.push_back({uses_.machine.date_and_time(), uses_.session.shown_name, status.title});
    if (waiting_.size() > max_waiting)
      waiting_.pop_front();
  }
  if (!waiting_.empty() && due(read_at_, between_writes_ms))
    write(false);
}

bool TitleHistory::due(std::optional<std::uint32_t> since, std::uint32_t after_ms) const {
  return !since || uses_.loop.tick_count_ms() - *since >= after_ms;
}

void TitleHistory::flush() {
  timer_->stop();
  if (!waiting_.empty())
    write(true);
}

void TitleHistory::write(bool last) {
  read_at_ = uses_.loop.tick_count_ms();
  auto lines = read();
  if (!lines.has_value())
    return;
  if (lines->off()) {
    waiting_.clear();
    return show(*lines);
  }
  for (const HeardTitle& each : waiting_)
    lines->add(each);
  show(*lines);
  if (!last && !due(failed_at_, after_failure_ms))
    return;
  failed_at_.reset();
  if (uses_.folder.files().replace(uses_.folder.path(titles_file), lines->bytes()))
    waiting_.clear();
  else
    failed_at_ = uses_.loop.tick_count_ms();
}

// Where nothing is recorded nothing is shown.
void TitleHistory::show(const TitleLines& lines) {
  std::wstring& shown = uses_.session.last_titles;
  shown.clear();
  if (lines.off())
    return;
  for (const std::wstring& title : lines.last(shown_titles, shown_characters))
    shown += L"\r\n" + title;
}

} // namespace lumotune::player
