// SPDX-License-Identifier: LGPL-2.1-or-later
#include "app/program.h"

#include "app/wiring.h"
#include "core/text.h"

namespace lumotune::app {

Program::Program(const Platform& p, core::LumotuneForm& form)
    : error_log({p.files, p.codec, p.machine}),
      options({p.files, p.codec, p.machine, p.window, error_log, settings, session}),
      stations({p.files, p.codec, p.machine}),
      playback({settings, session, form, p.player, stations}),
      status({session, form, p.player, p.loop}),
      sender({p.loop, p.messages, p.shell, p.codec}),
      commands({settings, session, form, p.loop, p.messages, p.codec, playback}),
      startup({settings, session, form, p.loop, p.files, p.machine, p.messages, p.shell, p.dialogs, p.player, options,
               playback, commands, sender}),
      shutdown({session, p.loop, p.messages, p.player, options, commands, sender}),
      skin({settings, session, form, p.files, p.codec, p.machine, p.loop, error_log}),
      skin_menu({p.files, p.machine}),
      chrome({settings, session, form, p.machine}),
      tray_icon({form, p.tray, chrome}),
      chrome_parts(chrome, tray_icon),
      title_to_tray(tray_icon),
      exit_to_shutdown(shutdown),
      favourites({session, form, playback}) {
  bind_ports(*this);
  bind_events(*this, p, form);
}

bool Program::start() {
  if (!startup.Form_Load())
    return false;
  status.tick();
  status.start();
  return true;
}

void EmptyFavourites::ZobrazOblibene() {
  if (!uses_.playback.stopped() || !uses_.session.OverrideURL.empty())
    return;
  auto& form = uses_.form;
  form.Control_List.clear();
  form.Control_List.set_visible(false);
  form.InfoName.set_visible(false);
  form.InfoTime.set_visible(false);
  form.InfoStatus.set_visible(false);
  form.InfoNaladit.set_visible(true);
  if (core::equal_ignoring_case(uses_.session.skin.display_value, L"showifnulllist"))
    form.LTDisplay.set_visible(true);
}

} // namespace lumotune::app
