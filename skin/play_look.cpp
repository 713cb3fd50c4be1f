// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/play_look.h"

#include "base/lumotune_form.h"
#include "base/text.h"

namespace lumotune::skin {

PlayLook play_look(std::wstring_view play_button_text, const base::KeptSkinFields& kept) {
  const auto is = [](const std::wstring& field, std::wstring_view word) {
    return base::equal_ignoring_case(field, word);
  };
  const bool list_show = is(kept.list_show, L"show");
  const bool display_show = is(kept.display_show, L"show");
  const bool logo_show = is(kept.logo_show, L"show");
  PlayLook look;
  look.playing = base::equal_ignoring_case(play_button_text, base::caption_stop);
  if (look.playing) {
    look.list = list_show && !is(kept.list_mode, L"hideplay");
    // While playing, the display and the logo are seen even where the skin does not say "show": deliberately so.
    look.display = true;
    look.logo = !(logo_show && is(kept.logo_mode, L"showstop"));
    return look;
  }
  look.list = list_show;
  look.display = display_show && is(kept.display_mode, L"showevery");
  look.logo = logo_show && (is(kept.logo_mode, L"showevery") || is(kept.logo_mode, L"showstop"));
  return look;
}

} // namespace lumotune::skin
