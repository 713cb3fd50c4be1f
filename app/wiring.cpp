// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/wiring.h"

#include "app/program.h"

namespace lumotune::app {

using platform::MouseEvent;

void bind_ports(Program& program) {
  program.playback.skin.bind(program.skin);
  program.playback.favourites.bind(program.favourites);
  program.playback.directory.bind(program.directory);
  program.playback.report.bind(program.client_link);
  program.playback.menus.bind(program.menus);
  program.playback.playable.bind(program.media_keys);
  program.startup.skin.bind(program.skin);
  program.startup.chrome.bind(program.chrome_parts);
  program.startup.menus.bind(program.menus);
  program.startup.favourites.bind(program.favourites);
  program.commands.chrome.bind(program.chrome_parts);
  program.commands.favourites.bind(program.favourites);
  program.shutdown.chrome.bind(program.chrome_parts);
  program.status.title.bind(program.title_to_tray);
  program.favourites.directory.bind(program.directory);
  program.favourites.menu.bind(program.menus);
  program.client_link.programs.bind(program.report_programs);
  program.skin.menus.bind(program.menus);
  program.skin_menu.menu.bind(program.menus);
  program.chrome.menus.bind(program.menus);
  program.chrome.exit.bind(program.exit_to_shutdown);
  program.tray_icon.menu.bind(program.menus);
  program.menu_commands.favourites.bind(program.favourites);
  program.menu_commands.favourites_delete.bind(program.favourites);
  program.menu_commands.console.bind(program.console);
  program.menu_commands.directory.bind(program.directory);
  program.menu_commands.exit.bind(program.exit_to_shutdown);
  program.menu_commands.identity.bind(program.identity);
  program.directory.web.bind(program.web_to_pages);
  program.directory.favourites.bind(program.favourites);
}

void bind_events(Program& program, const Platform& platform, base::LumotuneForm& form) {
  auto& playback = program.playback;
  auto& chrome = program.chrome;
  auto& window = form.window;

  window.on_mouse_move = [&](const MouseEvent& event) { chrome.Form_MouseMove(event); };
  window.on_menu = [&] { program.menus.open_main(); };
  window.on_close = [&] { program.shutdown.Form_Unload(); };
  window.on_session_end = [&] { program.shutdown.Konec(); };
  window.on_suspend = [&platform_player = platform.player] { platform_player.system_suspended(); };
  window.on_resume = [&platform_player = platform.player] { platform_player.system_resumed(); };

  form.PlayTL.on_click = [&] { playback.PlayTL_Click(); };
  form.Control_Play.on_click = [&] { playback.Control_Play_Click(); };
  form.Control_Sat.on_click = [&] { playback.Control_Sat_Click(); };
  form.Control_Volume.on_click = [&] { playback.Control_Volume_Click(); };
  form.Control_Rec.on_click = [&] { program.menu_commands.Control_Rec_Click(); };
  form.Control_ShowUser.on_click = [&] { program.client_link.Control_ShowUser_Click(); };
  form.Control_Menu.on_click = [&] { program.menus.Control_Menu_Click(); };
  form.Orbwww.on_click = [&] { program.menu_commands.Orbwww_Click(); };
  form.Control_List.on_click = [&] { program.favourites.Control_List_Click(); };
  form.Control_List.on_double_click = [&] { program.favourites.Control_List_DblClick(); };
  form.Control_List.on_mouse_down = [&](const MouseEvent& event) { program.favourites.Control_List_MouseDown(event); };
  // Without the menu button nothing else that the keyboard reaches may lead to the main menu.
  form.Control_List.on_menu_key = [&] {
    if (form.Control_List.selected() != platform::ListBox::none && form.Control_Menu.visible())
      program.favourites.open_menu();
    else
      program.menus.open_main();
  };
  form.InfoName.on_click = [&] { playback.InfoName_Click(); };
  form.InfoName.on_mouse_move = [&](const MouseEvent&) { chrome.InfoName_MouseMove(); };
  form.InfoNaladit.on_click = [&] { playback.InfoNaladit_Click(); };
  form.InfoNaladit.on_mouse_move = [&](const MouseEvent&) { chrome.InfoNaladit_MouseMove(); };
  form.LTDisplay.on_mouse_move = [&](const MouseEvent&) { chrome.LTDisplay_MouseMove(); };
  form.LineMenu_OnTop.on_click = [&] { chrome.LineMenu_OnTop_Click(); };
  form.LineMenu_Min.on_click = [&] { chrome.LineMenu_Min_Click(); };
  form.LineMenu_End.on_click = [&] { chrome.LineMenu_End_Click(); };
  form.TrayIcon.on_mouse_move = [&](const MouseEvent& event) { program.tray_icon.TrayIcon_MouseMove(event); };

  platform.player.on_play_state_change = [&](int state) { program.status.PlayStateChange(state); };
  platform.player.on_status_change = [&] { program.status.StatusChange(); };
}

} // namespace lumotune::app
