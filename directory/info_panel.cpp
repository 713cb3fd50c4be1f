// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/info_panel.h"

#include "base/boxes.h"
#include "base/lumotune_form.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace lumotune::directory {
namespace {

using base::replace_ignoring_case;

constexpr int height_with_line = 6045; // of the window, twips
constexpr double longest_interval_ms = 65535;
constexpr double largest_colour = 0xffffff;

// A non-negative number, rounded half to even; nullopt when the field is missing, negative or too large.
std::optional<std::uint32_t> number_of(const std::vector<std::wstring>& fields, std::size_t index, double largest) {
  const auto number = index < fields.size() ? base::whole_text_number(fields[index]) : std::nullopt;
  if (!number.has_value() || !(*number >= 0 && *number <= largest))
    return std::nullopt;
  return static_cast<std::uint32_t>(std::nearbyint(*number));
}

} // namespace

std::wstring MakePageRe(std::wstring& vstup) {
  static constexpr std::array<std::pair<wchar_t, const wchar_t*>, 5> codes = {
      {{L'=', L"*r*"}, {L'/', L"*l*"}, {L'&', L"*a*"}, {L'#', L"*k*"}, {L'?', L"*o*"}}};
  for (const auto& [letter, code] : codes)
    vstup = replace_ignoring_case(vstup, std::wstring(1, letter), code);
  return vstup;
}

InfoPanelLine::InfoPanelLine(const Uses& uses)
    : uses_(uses), TimerInPan(uses.loop.make_timer(1, [this] { TimerInPan_Timer(); })) {}

void InfoPanelLine::ZobrazInfoPanel(const std::wstring& CommandsG) {
  if (closed_)
    return;
  auto& line = uses_.form.InfoPanel;
  {
    const Layout::Hold hold(uses_.layout);
    uses_.layout.set_window_height(height_with_line);
    line.set_visible(true);
    uses_.form.ImageInPan.set_visible(true);
  }
  uses_.loop.run_pending();
  if (closed_)
    return;
  const auto fields = base::split_record(CommandsG);
  line.set_bold(fields[0] == L"1");
  if (const auto colour = number_of(fields, 1, largest_colour))
    line.set_text_colour(static_cast<platform::Colour>(*colour));
  if (const auto interval = number_of(fields, 2, longest_interval_ms))
    TimerInPan->set_interval(std::max(*interval, 1U));
  if (fields.size() > 3)
    panel_text_ = fields[3].substr(0, max_typed);
  if (fields.size() > 4)
    line.set_tooltip(fields[4]);
  if (fields.size() > 5)
    panel_action_ = fields[5];
  if (fields.size() > 6)
    panel_parameter_ = fields[6];
  if (panel_parameter_.size() > max_parameter) {
    panel_action_.clear(); // a truncated address or message would mean something else
    panel_parameter_.clear();
  }
  typing_position_ = 0;
  line.set_text(L"");
  TimerInPan->start();
}

void InfoPanelLine::close() {
  closed_ = true;
  TimerInPan->stop();
}

void InfoPanelLine::TimerInPan_Timer() {
  uses_.form.InfoPanel.set_text(panel_text_.substr(0, typing_position_));
  if (typing_position_ >= panel_text_.size()) {
    typing_position_ = 0;
    TimerInPan->stop();
  } else {
    ++typing_position_;
  }
}

void InfoPanelLine::InfoPanel_Click() {
  if (base::equal_ignoring_case(panel_action_, L"openurl"))
    open_url();
  else if (base::equal_ignoring_case(panel_action_, L"showusers"))
    show_users();
  else if (base::equal_ignoring_case(panel_action_, L"opengbrowser"))
    open_browser();
}

// The login page takes the page to continue to as one segment of its own path.
void InfoPanelLine::open_url() {
  const std::wstring token = uses_.identity.Heslo(uses_.settings.h);
  if (uses_.loop.quitting())
    return;
  std::wstring page = panel_parameter_;
  const auto values = companions::companion_values(uses_.folder, uses_.settings);
  if (!uses_.web.open_own(companions::login_address(values, token, MakePageRe(page))))
    tell_refused(uses_.form);
}

void InfoPanelLine::show_users() {
  auto pieces = base::split_text(panel_parameter_, L"||");
  if (pieces.size() < 4)
    return;
  // Commands to this program's own window can change the listener's files: the server must not send them.
  if (pieces[1].empty() || base::equal_ignoring_case(pieces[1], base::main_caption))
    return;
  pieces[0] = replace_ignoring_case(pieces[0], L"..", L"");
  // Never start an unknown program, not even from the program folder: the downloader writes files there. The message
  // still goes to a window that already exists.
  const std::wstring program = companions::companion_program(uses_.folder, pieces[0]);
  const bool known = !program.empty() && uses_.folder.files().exists(program);
  uses_.sender.show_users(pieces[0], pieces[1], pieces[2], known ? pieces[3] : L"x", program);
}

void InfoPanelLine::open_browser() {
  const auto& settings = uses_.settings;
  const std::wstring token = uses_.identity.Heslo(settings.h); // events run: the parameter is read afterwards
  std::wstring text = replace_ignoring_case(panel_parameter_, L"*.Orbidh*", settings.idh);
  text = replace_ignoring_case(text, L"*.Orbh*", settings.h);
  text = replace_ignoring_case(text, L"*.!Orbh*", token);
  text = replace_ignoring_case(text, L"*.l*", L"/");
  panel_parameter_ = text;
  auto pieces = base::split_text(text, L"|=|");
  if (pieces.size() < 2)
    return;
  const std::wstring page = pieces[0];
  const std::wstring fields = replace_ignoring_case(pieces[1], L"||", base::record_delimiter);
  (void)uses_.dialogs.message(page + L"\r\n" + fields, base::box_title, platform::BoxIcon::none,
                              platform::BoxButtons::ok);
  if (uses_.loop.quitting())
    return;
  companions::launch(uses_.shell,
                     companions::browser_page(companions::companion_values(uses_.folder, settings), page, fields));
}

} // namespace lumotune::directory
