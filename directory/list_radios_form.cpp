// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/list_radios_form.h"

#include "player/status_display.h"

namespace lumotune::directory {

using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;

ListRadiosForm::ListRadiosForm(platform::FramedWindow& window_made)
    : window(window_made),
      TreeView1(window.make_tree(L"TreeView1")),
      Filter(window.make_text_entry(L"Filter")),
      FilterCount(window.make_label(L"FilterCount", LabelKind::text, LabelFont::normal)),
      ListView1(window.make_list_view(L"ListView1")),
      Label2(window.make_label(L"Label2", LabelKind::text, LabelFont::heading)),
      Image3(window.make_picture(L"Image3", PictureKind::button)),
      Label3(window.make_label(L"Label3", LabelKind::text, LabelFont::normal)),
      Label4(window.make_label(L"Label4", LabelKind::link, LabelFont::normal)),
      Text1(window.make_text_box(L"Text1")),
      Label8(window.make_label(L"Label8", LabelKind::text, LabelFont::normal)),
      Label7(window.make_label(L"Label7", LabelKind::link, LabelFont::normal)),
      Label5(window.make_label(L"Label5", LabelKind::link, LabelFont::normal)),
      Label9(window.make_label(L"Label9", LabelKind::link, LabelFont::normal)),
      Label10(window.make_label(L"Label10", LabelKind::link, LabelFont::normal)),
      Label6(window.make_label(L"Label6", LabelKind::link, LabelFont::normal)),
      Command1(window.make_button(L"Command1")),
      Label1(window.make_label(L"Label1", LabelKind::text, LabelFont::normal)),
      Progress(window.make_progress(L"Progress")),
      ImageInPan(window.make_picture(L"ImageInPan", PictureKind::decoration)),
      InfoPanel(window.make_label(L"InfoPanel", LabelKind::link, LabelFont::normal)),
      WebBrowser1(window.make_browser(L"WebBrowser1")),
      Image1(window.make_picture(L"Image1", PictureKind::decoration)),
      Frame1(window.make_frame(L"Frame1")) {}

void tell_refused(ListRadiosForm& form) {
  form.Label1.set_text(player::address_refused);
  form.Label1.announce();
}

} // namespace lumotune::directory
