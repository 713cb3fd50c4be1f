// SPDX-License-Identifier: LGPL-2.1-or-later
#include "base/lumotune_form.h"

namespace lumotune::base {

using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;

LumotuneForm::LumotuneForm(platform::Window& window_made)
    : window(window_made),
      Control_Play(window.make_picture(L"Control_Play", PictureKind::button)),
      Control_List(window.make_list(L"Control_List")),
      InfoNaladit(window.make_label(L"InfoNaladit", LabelKind::link, LabelFont::heading)),
      InfoName(window.make_label(L"InfoName", LabelKind::link, LabelFont::heading)),
      Control_Sat(window.make_picture(L"Control_Sat", PictureKind::button)),
      Control_Volume(window.make_picture(L"Control_Volume", PictureKind::button)),
      Control_Rec(window.make_picture(L"Control_Rec", PictureKind::button)),
      Control_ShowUser(window.make_picture(L"Control_ShowUser", PictureKind::button)),
      Control_Menu(window.make_picture(L"Control_Menu", PictureKind::button)),
      Orbwww(window.make_picture(L"Orbwww", PictureKind::button)),
      LineMenu_OnTop(window.make_picture(L"LineMenu_OnTop", PictureKind::button)),
      LineMenu_Min(window.make_picture(L"LineMenu_Min", PictureKind::button)),
      LineMenu_End(window.make_picture(L"LineMenu_End", PictureKind::button)),
      InfoTime(window.make_label(L"InfoTime", LabelKind::text, LabelFont::normal)),
      InfoStatus(window.make_label(L"InfoStatus", LabelKind::text, LabelFont::normal)),
      LTDisplay(window.make_picture(L"LTDisplay", PictureKind::decoration)),
      PlayTL(window.make_button(L"PlayTL")),
      TrayIcon(window.make_picture(L"TrayIcon", PictureKind::decoration)) {
  window.set_caption(main_caption);
  PlayTL.set_text(caption_play);
  PlayTL.set_visible(false);
  TrayIcon.set_visible(false);
  // Enabled once an address has been prepared.
  PlayTL.set_enabled(false);
  Control_Play.set_enabled(false);
  // After the visible columns an item carries its quality, identifier and address.
  Control_List.set_shown_columns(93);
  InfoNaladit.set_text(L"Klikněte na naladit...");
  InfoNaladit.point_to(&Control_Sat);
  // The text is what a screen reader announces for a picture; the tooltip shows the same.
  const auto tell = [](platform::PictureBox& picture, const wchar_t* what) {
    picture.set_text(what);
    picture.set_tooltip(what);
  };
  tell(Control_Play, caption_play);
  tell(Control_Sat, L"Naladit rádio");
  tell(Control_Volume, L"Hlasitost");
  tell(Control_Rec, L"Mp3 nahrávání");
  tell(Control_ShowUser, L"Zobrazit posluchače");
  tell(Control_Menu, L"Nabídka");
  tell(Orbwww, L"Orb");
  tell(LineMenu_OnTop, L"Vždy nahoře");
  tell(LineMenu_Min, L"Skrýt");
  tell(LineMenu_End, L"Konec");
  LineMenu_End.set_closes(true);
  Control_Rec.set_neutral(true); // while nothing plays there is nothing to record
}

} // namespace lumotune::base
