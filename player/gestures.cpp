// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/gestures.h"

#include "base/text.h"
#include "player/notices.h"

#include <algorithm>

namespace lumotune::player {
namespace {

constexpr int volume_step = 5; // per cent

} // namespace

// A wheel that spins freely goes to the end of the scale and no further.
void Gestures::wheel(int notches) {
  constexpr int most = 100 / volume_step;
  change_volume(std::clamp(notches, -most, most) * volume_step);
}

void Gestures::key(platform::WindowKey key) {
  using platform::WindowKey;
  switch (key) {
  case WindowKey::space:
    return play_or_stop();
  case WindowKey::up:
    return change_volume(volume_step);
  case WindowKey::down:
    return change_volume(-volume_step);
  case WindowKey::f1:
    return open_manual();
  case WindowKey::ctrl_c:
    return copy_title();
  case WindowKey::ctrl_e:
    return uses_.favourite_lists.export_list();
  case WindowKey::f5: // the skin's, in a room above
    break;
  }
}

// The picture has six levels; the number tells the steps between them, where the line can be seen.
void Gestures::change_volume(int percent) {
  uses_.playback.VolumeSet(base::volume_value(uses_.settings.LTvolume) + percent);
  if (uses_.status.can_tell())
    uses_.status.tell(L"Hlasitost " + uses_.settings.LTvolume + L" %");
}

void Gestures::open_manual() {
  constexpr int success = 32;
  const std::wstring path = uses_.folder.path(manual_file);
  if (!uses_.folder.files().exists(path) || uses_.shell.open(L"\"" + path + L"\"") <= success)
    tell(manual_missing);
}

void Gestures::copy_title() {
  const std::wstring title = uses_.player.status().title;
  if (title.empty())
    tell(title_unknown);
  else
    tell(uses_.clipboard.set_text(title) ? title_copied : clipboard_held);
}

void Gestures::tell(const std::wstring& text) {
  tell_or_inform(uses_.status, uses_.dialogs, text);
}

} // namespace lumotune::player
