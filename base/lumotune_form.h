// SPDX-License-Identifier: LGPL-2.1-or-later
// The main window `Lumotune` and its controls by their designer names, made in tab order; no behaviour.
#pragma once

#include "platform/window.h"

namespace lumotune::base {

// Other programs find the main window by this caption; no other window of ours has it.
inline constexpr const wchar_t* main_caption = L"Lumotune";

// The two states of PlayTL, told apart by its caption, case-insensitively.
inline constexpr const wchar_t* caption_play = L"Zapnout";
inline constexpr const wchar_t* caption_stop = L"Stop";

// Created once on a new window, on the user-interface thread; the window owns the controls and must outlive the form.
struct LumotuneForm {
  explicit LumotuneForm(platform::Window& window_made);

  platform::Window& window;

  platform::PictureBox& Control_Play;
  platform::ListBox& Control_List;
  platform::Label& InfoNaladit; // the hint, clickable like a link
  platform::Label& InfoName;
  platform::PictureBox& Control_Sat;
  platform::PictureBox& Control_Volume;
  platform::PictureBox& Control_Rec;
  platform::PictureBox& Control_ShowUser;
  platform::PictureBox& Control_Menu;
  platform::PictureBox& Orbwww;
  platform::PictureBox& LineMenu_OnTop;
  platform::PictureBox& LineMenu_Min;
  platform::PictureBox& LineMenu_End;
  platform::Label& InfoTime;
  platform::Label& InfoStatus;
  platform::PictureBox& LTDisplay; // behind the labels and the list
  platform::Button& PlayTL;        // never shown; Control_Play triggers it
  platform::PictureBox& TrayIcon;  // never shown; tray events arrive as mouse moves over it
};

} // namespace lumotune::base
