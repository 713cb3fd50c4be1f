// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/program.h"

#include "app/wiring.h"

namespace lumotune::app {

Program::Program(const Platform& p, base::LumotuneForm& form)
    : folder(p.files, p.codec, p.machine),
      error_log({folder, p.machine}),
      options({folder, p.loop, p.window, error_log, settings, session}),
      station_files(folder),
      stations({station_files, p.codec}),
      sender({p.loop, p.messages, p.shell, p.codec}),
      web_pages(p.shell),
      identity({folder, p.loop, settings}),
      report_programs({settings, folder, p.shell}),
      client_link({folder, p.loop, p.dialogs, settings, options, sender, report_programs}),
      media_keys({form, session}),
      playback({settings, session, form, p.player, stations, p.loop, client_link, media_keys}),
      status({settings, session, form, p.player, p.loop}),
      quality_backup({settings, session, p.player, p.loop, stations, playback, status}),
      title_history({session, folder, p.machine, p.player, p.loop}),
      favourites({folder, settings, session, form, playback, station_files, p.dialogs, p.loop, p.pointer}),
      console({session, p.loop, p.input_box, p.dialogs, playback}),
      favourite_lists({folder, station_files, p.dialogs, favourites}),
      drops({session, form, folder, p.dialogs, playback, status, favourite_lists}),
      gestures({settings, form, folder, p.shell, p.dialogs, p.clipboard, p.player, playback, status, favourite_lists}),
      commands({settings, session, form, p.loop, p.messages, p.dialogs, p.codec, playback, favourites}),
      startup({settings, session, form, p.loop, folder, p.machine, p.messages, p.shell, p.dialogs, p.player, options,
               error_log, playback, commands, sender, favourites}),
      shutdown({session, p.loop, p.machine, p.messages, p.player, options, commands, sender, title_history}),
      skin({settings, session, form, folder, p.loop, error_log}),
      chrome({settings, session, form, folder}),
      tray_icon(p.tray),
      skin_installer({form, folder, p.loop, p.dialogs, status}),
      directory({settings,   session,   form,         error_log, station_files,    stations, playback,
                 favourites, sender,    identity,     web_pages, p.loop,           folder,   p.machine,
                 p.shell,    p.dialogs, p.connection, p.popups,  p.framed_windows, p.worker}),
      skin_menu(folder),
      menu_commands({settings, session,    form,     p.loop,      folder,   p.shell, p.dialogs,
                     options,  stations,   playback, client_link, skin,     chrome,  web_pages,
                     status,   favourites, console,  directory,   shutdown, identity}),
      menus({settings, form, p.loop, p.popups, stations, favourites, skin_menu, menu_commands}),
      tray_events({form, chrome, menus}),
      chrome_parts(chrome, tray_icon),
      keys_(p.media_keys) {
  bind_ports(*this);
  bind_events(*this, p, form);
}

bool Program::start() {
  if (!startup.Form_Load())
    return false;
  status.tick();
  status.start();
  quality_backup.start();
  title_history.start();
  media_keys.start(keys_);
  return true;
}

} // namespace lumotune::app
