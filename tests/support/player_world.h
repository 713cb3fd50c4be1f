// SPDX-License-Identifier: LGPL-2.1-or-later
// The player on the backend in memory, with ports that record what they are asked.
#pragma once

#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"
#include "player/client_link.h"
#include "player/report_programs.h"
#include "player/shutdown.h"
#include "player/startup.h"
#include "player/status_display.h"
#include "player/visible_controls.h"
#include "tests/support/stations_world.h"

#include <string>
#include <vector>

namespace lumotune::test {

using Journal = std::vector<std::wstring>;

struct RecordingSkin final : player::SkinPort {
  RecordingSkin(Journal& journal_used, const base::Session& session_used, base::LumotuneForm& form_used)
      : journal(journal_used), session(session_used), form(form_used) {}
  void LoadSkin(const std::wstring& name) override { journal.push_back(L"LoadSkin " + name); }
  void ZobrazCoMas(const std::wstring& text) override {
    journal.push_back(L"ZobrazCoMas " + text);
    player::show_controls(player::visible_controls(text == base::caption_stop, session.panel, session.skin), form);
  }
  void SkinVolume(int percent) override { journal.push_back(L"SkinVolume " + std::to_wstring(percent)); }
  void load_play_picture() override { journal.emplace_back(L"play picture"); }
  Journal& journal;
  const base::Session& session;
  base::LumotuneForm& form;
};

struct RecordingChrome final : player::ChromePort {
  explicit RecordingChrome(Journal& journal_used) : journal(journal_used) {}
  void OnTopYES() override { journal.emplace_back(L"OnTopYES"); }
  void OnTopNO() override { journal.emplace_back(L"OnTopNO"); }
  void FormMax() override { journal.emplace_back(L"FormMax"); }
  void Tray() override { journal.emplace_back(L"Tray"); }
  void remove_tray() override { journal.emplace_back(L"remove tray"); }
  Journal& journal;
};

struct RecordingFavourites final : player::FavouritesPort {
  explicit RecordingFavourites(Journal& journal_used) : journal(journal_used) {}
  void ZobrazOblibene() override {
    journal.emplace_back(L"ZobrazOblibene");
    if (during)
      during();
  }
  void show_in_place() override { journal.emplace_back(L"list in its place"); }
  Journal& journal;
  std::function<void()> during;
};

struct RecordingDirectory final : player::DirectoryPort {
  explicit RecordingDirectory(Journal& journal_used) : journal(journal_used) {}
  void Naladit() override { journal.emplace_back(L"Naladit"); }
  Journal& journal;
};

struct SilentTitle final : player::TitlePort {
  void show_title(const std::wstring& /*title*/) override {}
};

struct PlayerWorld : StationsWorld {
  Journal journal;
  RecordingSkin skin{journal, session, form};
  RecordingChrome chrome{journal};
  RecordingFavourites favourites{journal};
  RecordingDirectory directory{journal};

  companions::CommandSender sender{{loop, messages, shell, codec}};
  player::ReportPrograms report_programs{{settings, folder, shell}};
  player::ClientLink client_link{{folder, loop, dialogs, settings, options, sender, report_programs}};
  player::MediaKeyRule media_keys{{form, session}};
  player::Playback playback{{settings, session, form, player, stations, loop, client_link, media_keys}};
  player::StatusDisplay status{{settings, session, form, player, loop}};
  player::ClientCommands commands{{settings, session, form, loop, messages, dialogs, codec, playback, favourites}};
  player::Startup startup{{settings, session, form, loop, folder, machine, messages, shell, dialogs, player, options,
                           error_log, playback, commands, sender, favourites}};
  player::TitleHistory title_history{{session, folder, machine, player, loop}};
  player::Shutdown shutdown{{session, loop, machine, messages, player, options, commands, sender, title_history}};
  SilentTitle title;

  PlayerWorld() {
    playback.skin.bind(skin);
    playback.favourites.bind(favourites);
    commands.chrome.bind(chrome);
    startup.skin.bind(skin);
    startup.chrome.bind(chrome);
    shutdown.chrome.bind(chrome);
    status.title.bind(title);
    form.PlayTL.on_click = [this] { playback.PlayTL_Click(); };
    form.Control_Play.on_click = [this] { playback.Control_Play_Click(); };
    put(L"Orb_Data\\skins\\Lumo.skin", "LTform|6000|3000\r\n");
    messages.add_window(L"Orb - Lumotune", platform::WindowRef{77});
  }

  [[nodiscard]] bool did(const std::wstring& what) const {
    return std::find(journal.begin(), journal.end(), what) != journal.end();
  }
  [[nodiscard]] bool called(const std::wstring& what) const {
    return std::find(player.calls.begin(), player.calls.end(), what) != player.calls.end();
  }
  // The client sends a command, and it is carried out.
  int command(const std::string& text) {
    const int answer = messages.deliver(text);
    loop.run_pending();
    return answer;
  }
};

} // namespace lumotune::test
