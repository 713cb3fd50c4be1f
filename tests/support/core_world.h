// SPDX-License-Identifier: LGPL-2.1-or-later
// The core on the backend in memory, with ports that record what they are asked.
#pragma once

#include "core/shutdown.h"
#include "core/startup.h"
#include "core/status_display.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/media_player.h"
#include "platform/memory/messages.h"
#include "platform/memory/window.h"
#include "tests/support/memory_platform.h"

#include <string>
#include <vector>

namespace lumotune::test {

using Journal = std::vector<std::wstring>;

struct RecordingSkin final : core::SkinPort {
  explicit RecordingSkin(Journal& journal_used) : journal(journal_used) {}
  void LoadSkin(const std::wstring& name) override { journal.push_back(L"LoadSkin " + name); }
  void ZobrazCoMas(const std::wstring& text) override { journal.push_back(L"ZobrazCoMas " + text); }
  void SkinVolume(int percent) override { journal.push_back(L"SkinVolume " + std::to_wstring(percent)); }
  void load_play_picture() override { journal.emplace_back(L"play picture"); }
  Journal& journal;
};

struct RecordingChrome final : core::ChromePort {
  explicit RecordingChrome(Journal& journal_used) : journal(journal_used) {}
  void OnTopYES() override { journal.emplace_back(L"OnTopYES"); }
  void OnTopNO() override { journal.emplace_back(L"OnTopNO"); }
  void FormMax() override { journal.emplace_back(L"FormMax"); }
  void Tray() override { journal.emplace_back(L"Tray"); }
  void remove_tray() override { journal.emplace_back(L"remove tray"); }
  Journal& journal;
};

struct RecordingMenus final : core::MenuPort {
  explicit RecordingMenus(Journal& journal_used) : journal(journal_used) {}
  void check_auto_start(bool on) override {
    journal.emplace_back(on ? L"auto start checked" : L"auto start unchecked");
  }
  void check_on_top(bool on) override { journal.emplace_back(on ? L"on top checked" : L"on top unchecked"); }
  void check_volume(int level) override { journal.push_back(L"volume level " + std::to_wstring(level)); }
  void open_volume() override { journal.emplace_back(L"volume menu"); }
  void open_station() override { journal.emplace_back(L"station menu"); }
  Journal& journal;
};

struct RecordingFavourites final : core::FavouritesPort {
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

struct RecordingDirectory final : core::DirectoryPort {
  explicit RecordingDirectory(Journal& journal_used) : journal(journal_used) {}
  void Naladit() override { journal.emplace_back(L"Naladit"); }
  Journal& journal;
};

struct RecordingReport final : core::PlayReportPort {
  explicit RecordingReport(Journal& journal_used) : journal(journal_used) {}
  void enable_Timer1() override { journal.emplace_back(L"Timer1"); }
  Journal& journal;
};

// A client that has logged in: 24 lines, some with Czech letters.
inline std::vector<std::string> option_lines() {
  std::vector<std::string> lines;
  for (int i = 0; i < 24; ++i)
    lines.push_back("#0" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ":klient " + std::to_string(i));
  lines[5] = "#005:AAAAA:idhhodnota";
  lines[6] = "#006:BBBBBBB:tajne";
  lines[7] = "#007:CCCCCCC:P\xf8"
             "ezd\xed"
             "vka";
  lines[11] = "#011:LTTop:0";
  lines[12] = "#012:LTLast:RADIO1/2";
  lines[13] = "#013:LTautoStart:0";
  lines[18] = "#018:DDD:on";
  lines[20] = "#020:LTvolume:40";
  lines[21] = "#021:LTskin:Lumo";
  lines[22] = "#022:LTpleft:3000";
  lines[23] = "#023:LTptop:4500";
  return lines;
}

inline std::string joined(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines)
    bytes += line + "\r\n";
  return bytes + "\r\n";
}

struct CoreWorld : MemoryPlatform {
  platform::memory::MemoryWindow window{files};
  core::LumotuneForm form{window};
  core::Settings settings;
  core::Session session;

  core::ErrorLog error_log{{files, codec, machine}};
  core::SettingsFiles options{{files, codec, machine, loop, window, error_log, settings, session}};
  core::StationLookup stations{{files, codec, machine}};
  core::Playback playback{{settings, session, form, player, stations, loop}};
  core::StatusDisplay status{{session, form, player, loop}};
  core::CommandSender sender{{loop, messages, shell, codec}};
  core::ClientCommands commands{{settings, session, form, loop, messages, dialogs, codec, playback}};
  core::Startup startup{{settings, session, form, loop, files, machine, messages, shell, dialogs, player, options,
                         playback, commands, sender}};
  core::Shutdown shutdown{{session, loop, machine, messages, player, options, commands, sender}};

  Journal journal;
  RecordingSkin skin{journal};
  RecordingChrome chrome{journal};
  RecordingMenus menus{journal};
  RecordingFavourites favourites{journal};
  RecordingDirectory directory{journal};
  RecordingReport report{journal};

  CoreWorld() {
    playback.skin.bind(skin);
    playback.favourites.bind(favourites);
    playback.directory.bind(directory);
    playback.report.bind(report);
    playback.menus.bind(menus);
    commands.favourites.bind(favourites);
    commands.chrome.bind(chrome);
    startup.skin.bind(skin);
    startup.chrome.bind(chrome);
    startup.menus.bind(menus);
    startup.favourites.bind(favourites);
    shutdown.chrome.bind(chrome);
    form.PlayTL.on_click = [this] { playback.PlayTL_Click(); };
    form.Control_Play.on_click = [this] { playback.Control_Play_Click(); };
    put(L"Orb_Data\\options.ini", joined(option_lines()));
    put(L"Orb_Data\\skins\\Lumo.skin", "LTform|6000|3000\r\n");
    put(L"Orb_Data\\orb_server.tt", "navnada\r\n\r\nb\r\nc\r\nd\r\ne\r\n123456789012345http://server.example\r\n");
    put(L"radios.tt", record("RADIO1", "Prvn\xed", "u1a", "u2a") + record("radio2", "Druh\xe9", "u1b", "u2b"));
    messages.add_window(L"Orb - Lumotune", platform::WindowRef{77});
  }

  static std::string record(const std::string& id, const std::string& name, const std::string& u1,
                            const std::string& u2) {
    return id + "/@/" + name + "/@/tip/@/x/@/Zeme/@/100001" + "/@/" + u1 + "/@/" + u2 +
           "/@/u3/@/u4/@/u5/@/64/@/128/@/192/@/256/@/320/@/www.example/@/zbytek\r\n";
  }
  [[nodiscard]] std::wstring path(const std::wstring& name) const { return machine.folder + L"\\" + name; }
  void put(const std::wstring& name, const std::string& bytes) { (void)files.replace(path(name), bytes); }
  [[nodiscard]] std::string get(const std::wstring& name) const { return files.read(path(name)).value_or("(none)"); }
  void set_option(std::size_t number, const std::string& text) {
    auto lines = option_lines();
    lines[number] = text;
    put(L"Orb_Data\\options.ini", joined(lines));
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
