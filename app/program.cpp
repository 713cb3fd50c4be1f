// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/program.h"

#include "app/wiring.h"

namespace lumotune::app {

Program::Program(const Platform& p, base::LumotuneForm& form)
    : error_log({p.files, p.codec, p.machine}),
      options({p.files, p.codec, p.machine, p.loop, p.window, error_log, settings, session}),
      station_files({p.files, p.codec, p.machine}),
      stations({station_files, p.codec}),
      sender({p.loop, p.messages, p.shell, p.codec}),
      web_pages(p.shell),
      identity({p.files, p.codec, p.machine, p.loop, settings}),
      report_programs({settings, p.machine, p.shell}),
      client_link({p.files, p.codec, p.machine, p.loop, p.dialogs, settings, options, sender, report_programs}),
      media_keys({form, session}),
      playback({settings, session, form, p.player, stations, p.loop, client_link, media_keys}),
      status({session, form, p.player, p.loop}),
      favourites({p.files, p.codec, p.machine, settings, session, form, playback, station_files, p.dialogs, p.loop,
                  p.pointer}),
      console({session, p.loop, p.input_box, p.dialogs, playback}),
      commands({settings, session, form, p.loop, p.messages, p.dialogs, p.codec, playback, favourites}),
      startup({settings, session, form, p.loop, p.files, p.machine, p.messages, p.shell, p.dialogs, p.player, options,
               playback, commands, sender, favourites, menu_tree}),
      shutdown({session, p.loop, p.machine, p.messages, p.player, options, commands, sender}),
      skin({settings, session, form, p.files, p.codec, p.machine, p.loop, error_log, menu_tree}),
      chrome({settings, session, form, p.machine, menu_tree}),
      tray_icon(p.tray),
      directory({settings,   session, form,      error_log,    station_files, stations,        playback,
                 favourites, sender,  identity,  web_pages,    p.loop,        p.files,         p.codec,
                 p.machine,  p.shell, p.dialogs, p.connection, p.popups,      p.framed_windows}),
      skin_menu({p.files, p.machine, menu_tree}),
      menu_commands({settings,  session,  form,       p.loop,      p.machine, p.shell,  p.dialogs,
                     options,   stations, playback,   client_link, skin,      chrome,   web_pages,
                     menu_tree, status,   favourites, console,     directory, shutdown, identity}),
      menus({settings, form, p.loop, p.popups, stations, favourites, skin_menu, menu_tree, menu_commands}),
      tray_events({form, menu_tree, chrome, menus}),
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
  media_keys.start(keys_);
  return true;
}

} // namespace lumotune::app
