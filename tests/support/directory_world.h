// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory and its window on the backend in memory.
#pragma once

#include "directory/directory.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/menus.h"
#include "tests/support/player_world.h"

#include <string>
#include <vector>

namespace lumotune::test {

// The addresses that the system was asked to open: those for the explorer program, then the others.
inline std::vector<std::wstring> opened_pages(const platform::memory::Shell& shell) {
  constexpr std::wstring_view explorer = L"explorer ";
  std::vector<std::wstring> addresses;
  for (const auto& started : shell.started) {
    if (started.command_line.starts_with(explorer))
      addresses.push_back(started.command_line.substr(explorer.size()));
  }
  for (const std::wstring& quoted : shell.opened)
    addresses.push_back(quoted.substr(1, quoted.size() - 2));
  return addresses;
}

// A record by its parts; what is left out is empty.
struct Record {
  std::string id{};
  std::string name{};
  std::string marker{};
  std::string country = "\xc8"
                        "esko";
  std::string category = "1000011";
  std::vector<std::string> addresses{};
  std::vector<std::string> rates{};
  std::string web{};
  std::string rest{};

  [[nodiscard]] std::string line() const {
    std::vector<std::string> fields = {id, name, marker, "", country, category};
    for (std::size_t n = 0; n < 5; ++n)
      fields.push_back(n < addresses.size() ? addresses[n] : "");
    for (std::size_t n = 0; n < 5; ++n)
      fields.push_back(n < rates.size() ? rates[n] : "");
    fields.push_back(web + (rest.empty() ? "" : "/@/" + rest));
    std::string text;
    for (const auto& field : fields)
      text += (text.empty() && &field == &fields[0] ? "" : "/@/") + field;
    return text + "\r\n";
  }
};

struct DirectoryWorld : PlayerWorld {
  platform::memory::Pointer pointer;
  platform::memory::Connection connection;
  platform::memory::PopupMenus popups{loop};
  platform::memory::FramedWindowMaker windows{files};
  player::Favourites favourite_list{{folder, settings, session, form, playback, station_files, dialogs, loop, pointer}};
  companions::Identity identity{{folder, loop, settings}};
  companions::WebPages pages{shell};
  directory::Directory directory{{settings,       session, form,       error_log, station_files, stations, playback,
                                  favourite_list, sender,  identity,   pages,     loop,          folder,   machine,
                                  shell,          dialogs, connection, popups,    windows,       worker}};

  DirectoryWorld() {
    popups.modal.lets_run(loop);
    write(L"Orb_Data\\options.ini", joined(option_lines()));
    write(L"Orb_Data\\orb_server.tt", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\nOrbServerAddr::http://server\r\n");
    write(L"kategories.tt", "new//100000/@/V\xb9"
                            "echna r\xe1"
                            "dia\r\nadd//1000001/@/Pro ka\x9e"
                            "d\xe9"
                            "ho\r\n"
                            "new//100001/@/\xc8"
                            "esk\xe9\r\nadd//1000011/@/Praha\r\nnew//100002/@/Slovensk\xe9\r\n"
                            "new//100003/@/Televize\r\n\r\n");
    write(L"radios.tt", stations_text());
    settings.IDlastRadio = L"RADIO2";
    settings.KvalitaLT = L"1";
  }
  [[nodiscard]] static std::string stations_text() {
    return Record{"RADIO1",
                  "Prvn\xed",
                  "",
                  "\xc8"
                  "esko",
                  "1000011",
                  {"http://r/1a", "", "http://r/1c"},
                  {"128", "", "64"},
                  "www.prvni.example",
                  "O prvn\xedm"}
               .line() +
           Record{"RADIO2",
                  "Druh\xe9",
                  "tip",
                  "\xc8"
                  "esko",
                  "1000012",
                  {"http://r/2"},
                  {"96"},
                  "",
                  ""}
               .line() +
           Record{"RADIO3",
                  "T\xf8"
                  "et\xed",
                  "tip- novinka",
                  "Slovensko",
                  "1000021",
                  {"http://r/3"},
                  {"96"},
                  "",
                  ""}
               .line() +
           Record{"TELKA1",
                  "Televize",
                  "",
                  "\xc8"
                  "esko",
                  "1000031",
                  {"http://t/1", "http://t/2"},
                  {"500", "900"},
                  "",
                  ""}
               .line();
  }
  void write(const std::wstring& name, const std::string& bytes) {
    (void)files.replace(machine.folder + L"\\" + name, bytes);
  }
  [[nodiscard]] std::string content(const std::wstring& name) const {
    return files.read(machine.folder + L"\\" + name).value_or("(missing)");
  }
  [[nodiscard]] platform::memory::FramedWindow& window_shown() const { return *windows.last; }
  template <typename Kind>
  [[nodiscard]] Kind& part(const std::wstring& name) const {
    return *windows.last->find<Kind>(name);
  }
  [[nodiscard]] platform::memory::TreeView& tree() const { return part<platform::memory::TreeView>(L"TreeView1"); }
  [[nodiscard]] platform::memory::ListView& list() const { return part<platform::memory::ListView>(L"ListView1"); }
  [[nodiscard]] platform::memory::Label& label(const std::wstring& name) const {
    return part<platform::memory::Label>(name);
  }
  [[nodiscard]] std::wstring status() const { return label(L"Label1").text(); }
  [[nodiscard]] std::vector<std::wstring> names() const {
    std::vector<std::wstring> all;
    for (std::size_t row = 1; row <= list().count(); ++row)
      all.push_back(list().cell(row, 0));
    return all;
  }
  // A second window, made after something was prepared.
  void open_again() {
    window_shown().user_close();
    loop.advance(200);
    directory.Naladit();
  }
  // Whether the favourites of the main window were filled since the last call.
  [[nodiscard]] bool favourites_shown_anew() {
    const bool anew = form.Control_List.count() != 1 || form.Control_List.item(0) != L"mark";
    form.Control_List.set_items({L"mark"});
    return anew;
  }
  void pick_node(const std::wstring& key) { (void)tree().user_pick(tree().find(key)); }
};

} // namespace lumotune::test
