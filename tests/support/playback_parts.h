// SPDX-License-Identifier: LGPL-2.1-or-later
// A playback with all that it calls, on any backend. Nothing is seen of its skin.
#pragma once

#include "platform/dialogs.h"
#include "platform/shell.h"
#include "platform/window_messages.h"
#include "player/client_link.h"
#include "player/media_key_rule.h"
#include "player/playback.h"
#include "player/report_programs.h"
#include "stations/station_files.h"

namespace lumotune::test {

struct UnseenSkin final : player::SkinPort {
  void LoadSkin(const std::wstring& /*name*/) override {}
  void ZobrazCoMas(const std::wstring& /*play_button_text*/) override {}
  void SkinVolume(int /*percent*/) override {}
  void load_play_picture() override {}
};

struct PlaybackParts {
  struct Uses {
    platform::Files& files;
    const platform::AnsiCodec& codec;
    const platform::Machine& machine;
    platform::EventLoop& loop;
    platform::Window& window;
    platform::WindowMessages& messages;
    platform::Shell& shell;
    platform::Dialogs& dialogs;
    platform::MediaPlayer& player;
  };
  explicit PlaybackParts(const Uses& u)
      : form(u.window),
        folder(u.files, u.codec, u.machine),
        error_log({folder, u.machine}),
        options({folder, u.loop, u.window, error_log, settings, session}),
        station_files(folder),
        stations({station_files, u.codec}),
        sender({u.loop, u.messages, u.shell, u.codec}),
        programs({settings, folder, u.shell}),
        client_link({folder, u.loop, u.dialogs, settings, options, sender, programs}),
        media_keys({form, session}),
        playback({settings, session, form, u.player, stations, u.loop, client_link, media_keys}) {
    playback.skin.bind(skin);
  }

  base::Settings settings;
  base::Session session;
  base::LumotuneForm form;
  base::ProgramFolder folder;
  base::ErrorLog error_log;
  base::SettingsFiles options;
  stations::StationFiles station_files;
  stations::StationLookup stations;
  companions::CommandSender sender;
  player::ReportPrograms programs;
  player::ClientLink client_link;
  player::MediaKeyRule media_keys;
  player::Playback playback;
  UnseenSkin skin;
};

} // namespace lumotune::test
