// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin.h"

#include "base/text.h"
#include "player/visible_controls.h"
#include "skin/skin_limits.h"
#include "skin/volume_look.h"

#include <algorithm>
#include <array>

namespace lumotune::skin {

std::wstring Skin::picture_path(const std::wstring& picture) const {
  return uses_.folder.skins(uses_.settings.LTskin + picture);
}

// The play state or the volume may show a control that the new skin does not name: there must be nothing to be seen.
void Skin::forget_pictures() const {
  auto& form = uses_.form;
  const std::array<platform::PictureBox*, 11> pictures = {
      &form.LineMenu_OnTop, &form.LineMenu_Min,     &form.LineMenu_End, &form.Control_Play,
      &form.Control_Rec,    &form.Control_ShowUser, &form.Control_Menu, &form.Control_Sat,
      &form.Control_Volume, &form.LTDisplay,        &form.Orbwww};
  for (auto* control : pictures) {
    control->set_visible(false);
    control->clear_picture();
    control->move(0, 0);
  }
  form.LTDisplay.set_needle(std::nullopt);
}

// Labels have no "show" field: without a size they are out of sight until the new skin places them.
void Skin::forget_labels() const {
  auto& form = uses_.form;
  const std::array<platform::Label*, 4> labels = {&form.InfoName, &form.InfoTime, &form.InfoNaladit, &form.InfoStatus};
  for (auto* label : labels) {
    label->resize(0, 0);
    label->move(0, 0);
    label->set_text_colour(platform::Colour{});
    label->set_alignment(platform::Alignment::left);
  }
  form.Control_List.set_visible(false);
  form.Control_List.resize(0, 0);
  form.Control_List.move(0, 0);
  form.Control_List.set_colours(platform::Colour{0xffffff}, platform::Colour{});
  form.Control_List.set_accent(std::nullopt);
}

// At the end of a load, so that the window does not flicker where the skin has what it needs.
void Skin::forget_background(const LineApplier& applied) const {
  constexpr int width = 6000;
  constexpr int height = 3000;
  if (!applied.sized())
    uses_.form.window.resize(width, height);
  if (!applied.has_background())
    uses_.form.window.clear_background();
}

void Skin::LoadSkin(const std::wstring& name) {
  const unsigned turn = ++turn_;
  uses_.settings.LTskin = name;
  uses_.session.skin = base::KeptSkinFields{};
  forget_pictures();
  forget_labels();
  LineApplier applier({uses_.settings, uses_.session, uses_.form}, picture_path(L""));
  const std::wstring wrong = load(name, turn, applier);
  if (turn != turn_ || uses_.loop.quitting())
    return;
  forget_background(applier);
  if (wrong.empty())
    uses_.settings.saved_skin = name;
  else
    uses_.error_log.add(L"LoadSkin", wrong);
}

std::wstring Skin::load(const std::wstring& name, unsigned turn, LineApplier& applier) const {
  const std::wstring path = uses_.folder.skins(name + L".skin");
  std::wstring excess = over_limits(uses_.folder.files(), uses_.form.window, path, picture_path(L""));
  if (!excess.empty())
    return excess;
  const auto text = uses_.folder.read_text(path);
  if (!text)
    return path + L": cannot be read";
  const auto lines = split_lines(*text);
  if (!fits(lines))
    return path + L": window larger than ten work areas";
  return apply_lines(path, lines, turn, applier);
}

// Asked before the first line is applied, so that such a skin is not half used.
bool Skin::fits(const std::vector<std::wstring>& lines) const {
  return std::none_of(lines.begin(), lines.end(), [this](const std::wstring& each) {
    const auto line = SkinLine::parse(each);
    return line && line->names(L"LTform") &&
           too_large(uses_.form.window, line->number(1).value_or(0), line->number(2).value_or(0));
  });
}

std::wstring Skin::apply_lines(const std::wstring& path, const std::vector<std::wstring>& lines, unsigned turn,
                               LineApplier& applier) const {
  std::size_t number = 0;
  for (const std::wstring& each : lines) {
    ++number;
    if (const auto line = SkinLine::parse(each)) {
      const std::wstring wrong = applier.apply(*line);
      if (!wrong.empty())
        return path + L" line " + std::to_wstring(number) + L": " + wrong;
    }
    uses_.loop.run_pending();
    if (turn != turn_ || uses_.loop.quitting())
      break;
  }
  return {};
}

void Skin::ZobrazCoMas(const std::wstring& play_button_text) {
  const bool playing = base::equal_ignoring_case(play_button_text, base::caption_stop);
  // A missing picture leaves this skin's other one; the visibility below must follow the state all the same.
  (void)uses_.form.Control_Play.load_picture(picture_path(playing ? L"\\stop.gif" : L"\\play.gif"));
  uses_.form.Control_Rec.set_neutral(!playing);
  player::show_controls(player::visible_controls(playing, uses_.session.panel, uses_.session.skin), uses_.form);
}

void Skin::SkinVolume(int percent) {
  const int level = volume_level(percent);
  // A skin without that picture keeps the one it shows.
  (void)uses_.form.Control_Volume.load_picture(picture_path(L"\\vol" + std::to_wstring(level) + L".gif"));
}

void Skin::load_play_picture() {
  // A skin without it keeps the picture it shows.
  (void)uses_.form.Control_Play.load_picture(picture_path(L"\\play.gif"));
}

} // namespace lumotune::skin
