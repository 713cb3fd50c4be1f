// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/wiring.h"

#include "app/program.h"

namespace lumotune::app {

using platform::MouseEvent;

namespace {

void bind_window(Program& program, const Platform& platform, platform::Window& window) {
  window.on_mouse_move = [&](const MouseEvent& event) { program.chrome.Form_MouseMove(event); };
  window.on_wheel = [&](int notches) { program.gestures.wheel(notches); };
  window.on_middle_click = [&] { program.gestures.middle_click(); };
  window.on_key = [&](platform::WindowKey key) {
    if (key == platform::WindowKey::f5) // a copy: the current skin is set anew
      program.menu_commands.LT_Menu_Skins_SKIN_Click(std::wstring(program.settings.LTskin));
    else
      program.gestures.key(key);
  };
  window.on_menu = [&] { program.menus.open_main(); };
  window.on_drop = [&](const platform::Drop& drop) {
    if (!skin::SkinInstaller::is_archive(drop))
      return program.drops.dropped(drop);
    const std::wstring name = program.skin_installer.install(drop);
    if (!name.empty())
      program.menu_commands.LT_Menu_Skins_SKIN_Click(name);
  };
  window.on_close = [&] { program.shutdown.Form_Unload(); };
  window.on_session_end = [&] { program.shutdown.Konec(); };
  window.on_suspend = [&player = platform.player] { player.system_suspended(); };
  window.on_resume = [&player = platform.player] { player.system_resumed(); };
}

void bind_frame(Program& program, base::LumotuneForm& form) {
  skin::Chrome& chrome = program.chrome;
  form.LineMenu_OnTop.on_click = [&] { chrome.LineMenu_OnTop_Click(); };
  form.LineMenu_Min.on_click = [&] { chrome.LineMenu_Min_Click(); };
  form.LineMenu_End.on_click = [&] { program.shutdown.Konec(); };
  form.TrayIcon.on_mouse_move = [&](const MouseEvent& event) { program.tray_events.TrayIcon_MouseMove(event); };
  form.InfoName.on_mouse_move = [&](const MouseEvent&) { chrome.InfoName_MouseMove(); };
  form.InfoNaladit.on_mouse_move = [&](const MouseEvent&) { chrome.InfoNaladit_MouseMove(); };
  form.LTDisplay.on_mouse_move = [&](const MouseEvent&) { chrome.LTDisplay_MouseMove(); };
}

void bind_buttons(Program& program, base::LumotuneForm& form) {
  form.PlayTL.on_click = [&] { program.playback.PlayTL_Click(); };
  form.Control_Play.on_click = [&] { program.playback.Control_Play_Click(); };
  form.Control_Sat.on_click = [&] { program.directory.Naladit(); };
  form.Control_Volume.on_click = [&] { program.menus.open_volume(); };
  form.Control_Rec.on_click = [&] { program.menu_commands.Control_Rec_Click(); };
  form.Control_ShowUser.on_click = [&] { program.client_link.Control_ShowUser_Click(); };
  form.Control_Menu.on_click = [&] { program.menus.open_main(); };
  form.Orbwww.on_click = [&] { program.menu_commands.Orbwww_Click(); };
  form.InfoName.on_click = [&] { program.menus.open_station(); };
  form.InfoNaladit.on_click = [&] { program.directory.Naladit(); };
}

void bind_favourites(Program& program, base::LumotuneForm& form) {
  form.Control_List.on_click = [&] { program.favourites.Control_List_Click(); };
  form.Control_List.on_double_click = [&] { program.favourites.Control_List_DblClick(); };
  form.Control_List.on_mouse_down = [&](const MouseEvent& event) {
    if (program.favourites.Control_List_MouseDown(event))
      program.menus.open_favourite();
  };
  // When the skin shows no menu button, the keyboard must not reach the main menu either.
  form.Control_List.on_menu_key = [&] {
    if (form.Control_List.selected() != platform::ListBox::none && form.Control_Menu.visible())
      program.menus.open_favourite();
    else
      program.menus.open_main();
  };
}

} // namespace

void bind_ports(Program& program) {
  program.playback.skin.bind(program.skin);
  program.playback.favourites.bind(program.favourites);
  program.startup.skin.bind(program.skin);
  program.startup.chrome.bind(program.chrome_parts);
  program.commands.chrome.bind(program.chrome_parts);
  program.shutdown.chrome.bind(program.chrome_parts);
  program.status.title.bind(program.tray_icon);
  program.favourites.directory.bind(program.directory);
}

void bind_events(Program& program, const Platform& platform, base::LumotuneForm& form) {
  bind_window(program, platform, form.window);
  bind_buttons(program, form);
  bind_favourites(program, form);
  bind_frame(program, form);
  platform.player.on_play_state_change = [&](int state) { program.status.PlayStateChange(state); };
  platform.player.on_status_change = [&] { program.status.StatusChange(); };
}

} // namespace lumotune::app
