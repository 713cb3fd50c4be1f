// SPDX-License-Identifier: LGPL-2.1-or-later
// The station directory window `ListRadios` and its controls by their designer names, made in the order of
// Tab; no behaviour.
#pragma once

#include "platform/framed_window.h"

namespace lumotune::directory {

// Made once on a fresh window, on the user-interface thread; the window owns the controls and must outlive the form.
struct ListRadiosForm {
  explicit ListRadiosForm(platform::FramedWindow& window_made);

  platform::FramedWindow& window;

  platform::TreeView& TreeView1;    // categories
  platform::TextEntry& Filter;      // what the shown stations are searched for; hidden until it is asked for
  platform::Label& FilterCount;     // how many it leaves
  platform::ListView& ListView1;    // stations of the category
  platform::Label& Label2;          // name of the station, heading of the details
  platform::PictureBox& Image3;     // logo: the site's login page
  platform::Label& Label3;          // its country
  platform::Label& Label4;          // its web address, a link
  platform::TextBox& Text1;         // what the record says beyond its fields
  platform::Label& Label8;          // caption of the details' actions
  platform::Label& Label7;          // tunes: opens the qualities to play
  platform::Label& Label5;          // adds to the favourites: opens the qualities to add
  platform::Label& Label9;          // listeners
  platform::Label& Label10;         // discussion
  platform::Label& Label6;          // trouble report
  platform::Button& Command1;       // update
  platform::Label& Label1;          // status line
  platform::ProgressBar& Progress;  // beside it while a download runs
  platform::PictureBox& ImageInPan; // beside the information line
  platform::Label& InfoPanel;       // information line
  platform::Browser& WebBrowser1;   // advertisement
  platform::PictureBox& Image1;     // ground of the details
  platform::Frame& Frame1;          // around the details
};

// Says in the status line, and to screen readers, that an address was refused.
void tell_refused(ListRadiosForm& form);

} // namespace lumotune::directory
