// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/line_applier.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace lumotune::skin {
namespace {

std::wstring bad_number(const SkinLine& line) {
  return L"'" + line.field(0) + L"': bad number";
}

// An optional last field of a label's line. Any other word, or none, is the left edge, as it was before there was one.
platform::Alignment alignment(const SkinLine& line, std::size_t index) {
  if (line.says(index, L"right"))
    return platform::Alignment::right;
  return line.says(index, L"centre") ? platform::Alignment::centre : platform::Alignment::left;
}

base::KeptSkinFields::LogoSeen logo_seen(const SkinLine& line) {
  using Seen = base::KeptSkinFields::LogoSeen;
  if (line.says(4, L"showevery"))
    return Seen::always;
  return line.says(4, L"showstop") ? Seen::while_stopped : Seen::while_playing;
}

} // namespace

std::wstring LineApplier::apply(const SkinLine& line) {
  struct Simple {
    const wchar_t* name;
    platform::PictureBox* control;
    const wchar_t* picture; // empty: another procedure shows it
  };
  auto& form = uses_.form;
  const bool on_top = uses_.settings.LTTop != L"0";
  const std::array<Simple, 9> pictures = {
      {{L"LineMenu_OnTop", &form.LineMenu_OnTop, on_top ? L"\\ot.gif" : L"\\otn.gif"},
       {L"LineMenu_Min", &form.LineMenu_Min, L"\\min.gif"},
       {L"LineMenu_End", &form.LineMenu_End, L"\\end.gif"},
       {L"Control_Play", &form.Control_Play, L""},
       {L"Control_Rec", &form.Control_Rec, L"\\rec.gif"},
       {L"Control_ShowUser", &form.Control_ShowUser, L"\\show.gif"},
       {L"Control_Menu", &form.Control_Menu, L"\\menu.gif"},
       {L"Control_Sat", &form.Control_Sat, L"\\sat.gif"},
       {L"Control_Volume", &form.Control_Volume, L""}}};
  if (line.names(L"LTform"))
    return apply_form(line);
  for (const Simple& each : pictures) {
    if (line.names(each.name))
      return apply_picture(line, *each.control, each.picture);
  }
  if (line.names(L"Control_List"))
    return apply_list(line);
  if (line.names(L"InfoName"))
    return apply_label(line, form.InfoName);
  if (line.names(L"InfoTime"))
    return apply_label(line, form.InfoTime);
  if (line.names(L"InfoNaladit"))
    return apply_label(line, form.InfoNaladit);
  if (line.names(L"InfoStatus"))
    return apply_status(line);
  return apply_kept(line);
}

// However small a skin wants the window, there is something of it to take hold of.
std::wstring LineApplier::apply_form(const SkinLine& line) {
  constexpr int least = 480;
  const auto width = line.size(1);
  const auto height = line.size(2);
  if (!width || !height)
    return bad_number(line);
  uses_.form.window.resize(std::max(*width, least), std::max(*height, least));
  sized_ = true;
  const std::wstring picture = folder_ + L"\\form.gif";
  has_background_ = uses_.form.window.load_background(picture);
  return has_background_ ? L"" : picture;
}

std::wstring LineApplier::apply_picture(const SkinLine& line, platform::PictureBox& control,
                                        const std::wstring& picture) {
  if (!line.shows())
    return L"";
  std::wstring wrong = place_picture(line, control, picture);
  control.set_visible(wrong.empty());
  return wrong;
}

// The play state may show this one without "show". A line that hides it and gives it no place has nothing to place.
std::wstring LineApplier::apply_state_picture(const SkinLine& line, platform::PictureBox& control,
                                              const std::wstring& picture) {
  if (!line.shows() && line.blank(2) && line.blank(3))
    return L"";
  std::wstring wrong = place_picture(line, control, picture);
  control.set_visible(wrong.empty() && line.shows());
  return wrong;
}

std::wstring LineApplier::place_picture(const SkinLine& line, platform::PictureBox& control,
                                        const std::wstring& picture) {
  const auto top = line.twips(2);
  const auto left = line.twips(3);
  if (!top || !left)
    return bad_number(line);
  if (!picture.empty() && !control.load_picture(folder_ + picture))
    return folder_ + picture;
  control.move(*left, *top);
  return L"";
}

std::wstring LineApplier::apply_list(const SkinLine& line) {
  auto& kept = uses_.session.skin;
  kept.list = line.shows();
  kept.list_hidden_while_playing = line.says(4, L"hideplay");
  if (!line.shows())
    return L"";
  const auto top = line.twips(2);
  const auto left = line.twips(3);
  const auto width = line.size(5);
  const auto height = line.size(6);
  const auto background = line.colour(7);
  const auto text = line.colour(8);
  if (!top || !left || !width || !height || !background || !text)
    return bad_number(line);
  auto& list = uses_.form.Control_List;
  list.move(*left, *top);
  list.resize(*width, *height);
  list.set_colours(*background, *text);
  list.set_accent(line.colour(9));
  list.set_visible(true);
  return L"";
}

std::wstring LineApplier::apply_label(const SkinLine& line, platform::Label& label) {
  const auto top = line.twips(1);
  const auto left = line.twips(2);
  const auto width = line.size(3);
  const auto height = line.size(4);
  const auto colour = line.colour(5);
  if (!top || !left || !width || !height || !colour)
    return bad_number(line);
  label.move(*left, *top);
  label.resize(*width, *height);
  label.set_text_colour(*colour);
  label.set_alignment(alignment(line, 6));
  return L"";
}

// A field that is empty counts as 0 here.
std::wstring LineApplier::apply_status(const SkinLine& line) {
  const auto or_0 = [&](std::size_t index, auto read) {
    using Number = decltype((line.*read)(index));
    return line.blank(index) ? Number(typename Number::value_type{}) : (line.*read)(index);
  };
  const auto top_1 = or_0(2, &SkinLine::twips);
  const auto top_2 = or_0(3, &SkinLine::twips);
  const auto left = or_0(4, &SkinLine::twips);
  const auto width = or_0(5, &SkinLine::size);
  const auto height_1 = or_0(6, &SkinLine::size);
  const auto height_2 = or_0(7, &SkinLine::size);
  const auto colour = or_0(8, &SkinLine::colour);
  if (!top_1 || !top_2 || !left || !width || !height_1 || !height_2 || !colour)
    return bad_number(line);
  auto& kept = uses_.session.skin;
  kept.status_has_first_layout = line.says(1, L"1");
  kept.status_top_1 = *top_1;
  kept.status_top_2 = *top_2;
  kept.status_height_1 = *height_1;
  kept.status_height_2 = *height_2;
  auto& label = uses_.form.InfoStatus;
  label.move(*left, *top_1);
  label.resize(*width, *height_1);
  label.set_text_colour(*colour);
  label.set_alignment(alignment(line, 9));
  return L"";
}

std::wstring LineApplier::apply_needle(const SkinLine& line) {
  const auto top = line.twips(1);
  const auto height = line.size(2);
  const auto from = line.twips(3);
  const auto to = line.twips(4);
  const auto colour = line.colour(5);
  if (!top || !height || !from || !to || !colour)
    return bad_number(line);
  uses_.session.skin.needle = {*top, *height, *from, *to, static_cast<std::uint32_t>(*colour)};
  return L"";
}

// The display and the logo: what they show follows the play state too. A line that names no control is passed over.
std::wstring LineApplier::apply_kept(const SkinLine& line) {
  auto& kept = uses_.session.skin;
  if (line.names(L"LTNeedle"))
    return apply_needle(line);
  if (line.names(L"LTDisplay")) {
    kept.display = line.shows();
    kept.display_while_stopped = line.says(4, L"showevery");
    kept.display_behind_empty_list = line.says(5, L"showifnulllist");
    return apply_state_picture(line, uses_.form.LTDisplay, L"\\display.gif");
  }
  if (line.names(L"Orbwww")) {
    kept.logo = line.shows();
    kept.logo_seen = logo_seen(line);
    return apply_state_picture(line, uses_.form.Orbwww, L"\\orb.gif");
  }
  return L"";
}

} // namespace lumotune::skin
