// SPDX-License-Identifier: LGPL-2.1-or-later
// Any skin file, parsed and applied: lines are cut without loss, the window and its controls keep to their limits, and
// the next skin finds nothing of it.
#include "skin/skin_limits.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/skin_world.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace lumotune;
using fuzz::demand;

namespace {

// What the reader looks for.
constexpr const char* const words[] = {"LTform|",
                                       "LineMenu_End|show|",
                                       "Control_List|show|",
                                       "InfoStatus|1|",
                                       "InfoName|",
                                       "LTDisplay|show|",
                                       "Orbwww|show|",
                                       "Control_Play|show|",
                                       "|",
                                       "\r\n",
                                       "\n",
                                       "\r",
                                       "Author|",
                                       "120000",
                                       "-120000",
                                       "16777215",
                                       "show",
                                       "hideplay",
                                       "|1|2|3|4|5|6|",
                                       "Control_Volume|show|",
                                       "ltFORM|6000|3000\r\n"};

// One world for all runs: making it would take most of each.
struct World : test::SkinWorld {
  World() {
    description(L"Dobra", "LTform|6000|3000\r\nControl_Menu|show|10|20\r\n");
    for (const wchar_t* name : {L"form", L"menu"})
      picture(L"Dobra", name, test::gif(20, 10));
  }
};

void check_line(const std::wstring& text) {
  const auto line = skin::SkinLine::parse(text);
  if (!line)
    return;
  std::wstring joined = line->field(0);
  for (std::size_t i = 1; joined.size() < text.size() && i < 64; ++i)
    joined += L"|" + line->field(i);
  demand(text.starts_with(joined));
  for (std::size_t i = 0; i < 12; ++i) {
    demand(std::abs(line->twips(i).value_or(0)) <= skin::max_twips);
    demand(line->size(i).value_or(0) >= 0 &&
           (static_cast<std::uint32_t>(line->colour(i).value_or(platform::Colour{})) & 0x7f000000) == 0);
  }
}

void check_limits(const test::SkinWorld& w) {
  const auto& form = w.form;
  for (const platform::Control* each : std::initializer_list<const platform::Control*>{
           &form.LineMenu_OnTop, &form.LineMenu_Min, &form.LineMenu_End, &form.Control_Play, &form.Control_Rec,
           &form.Control_ShowUser, &form.Control_Menu, &form.Control_Sat, &form.Control_Volume, &form.Control_List,
           &form.LTDisplay, &form.Orbwww, &form.InfoName, &form.InfoTime, &form.InfoNaladit, &form.InfoStatus}) {
    const platform::TwipsRect rect = each->rect();
    demand(std::abs(rect.left) <= skin::max_twips && std::abs(rect.top) <= skin::max_twips);
    demand(rect.width >= 0 && rect.width <= skin::max_twips && rect.height >= 0 && rect.height <= skin::max_twips);
  }
  const auto rect = w.window.rect();
  const auto work = w.window.work_area();
  demand(std::int64_t{rect.width} * rect.height <= std::int64_t{work.width} * work.height * skin::max_work_areas);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World w;
  const std::string bytes = fuzz::expanded(data, size, words);
  for (const std::wstring& line : skin::split_lines(w.codec.decode(bytes)))
    check_line(line);
  (void)w.files.remove(w.machine.folder + L"\\Orb_Data\\error.log");
  w.description(L"Tmava", bytes);
  w.files.forget_changes();
  w.look.LoadSkin(L"Tmava");
  check_limits(w);
  const std::string log = w.log();
  demand(log.size() < 2 * base::ErrorLog::max_text && std::count(log.begin(), log.end(), '\n') <= 1);
  w.look.ZobrazCoMas(size % 2 == 0 ? L"Stop" : L"Zapnout");
  w.look.LoadSkin(L"Dobra");
  demand(w.settings.saved_skin == L"Dobra" && w.form.LTDisplay.picture().empty() &&
         w.form.Control_List.rect().width == 0);
  demand(w.log() == log && w.window.rect().width == 6000 && w.form.Control_Menu.rect().top == 10);
  demand(!w.form.Control_Sat.visible() && w.form.InfoName.rect().width == 0 &&
         !w.session.skin.list_hidden_while_playing);
  return 0;
}
