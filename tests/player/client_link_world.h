// SPDX-License-Identifier: LGPL-2.1-or-later
// The link to the client in the player's world: what its reports start, and the reply file.
#pragma once

#include "player/client_link.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

#include <functional>

namespace lumotune::test {

// What a report starts, read from the command lines, and the reply file of that moment.
struct StartedPrograms {
  explicit StartedPrograms(PlayerWorld& world) : w(world) {
    w.shell.on_start = [this](const auto& started) { note(started.command_line); };
  }
  void note(const std::wstring& line) {
    const auto part = [&](const std::wstring& from, const std::wstring& to) {
      const std::size_t at = line.find(from) + from.size();
      return line.substr(at, line.find(to, at) - at);
    };
    if (!line.starts_with(L"load.exe "))
      return w.journal.emplace_back(L"client"), void();
    w.journal.push_back(part(L"orbw=", L"&") + L" " + part(L"stanice=", L"/@/"));
    server = part(L"load.exe ", L"/orb/");
    idh = part(L"idh=", L"&");
    h = part(L"&h=", L"&");
    reply_there = w.files.exists(w.path(L"orblt.tt"));
    if (during)
      during();
  }
  PlayerWorld& w;
  std::function<void()> during;
  std::wstring server;
  std::wstring idh;
  std::wstring h;
  bool reply_there = false;
};

struct ClientLinkWorld : testing::Test {
  PlayerWorld w;
  player::ClientLink& link = w.client_link;
  StartedPrograms programs{w};

  ClientLinkWorld() { w.settings.IDlastRadio = L"RADIO1"; }
  void switch_off() { w.set_option(18, "#018:DDD:OFF"); }
  // After this the reply file is looked for.
  void report_off() {
    switch_off();
    link.enable_Timer1();
    w.loop.advance(3000);
    w.journal.clear();
    w.shell.started.clear();
  }
  void reply(const std::string& bytes) {
    w.put(L"orblt.tt", bytes);
    w.loop.advance(500);
  }
  // The reply is there, and both timers are due when the loop comes to them.
  void late_reports() {
    w.loop.advance(10);
    link.enable_Timer1();
    w.loop.at(2985, [&] {
      w.put(L"orblt.tt", "inf:a\r\n");
      w.loop.set_wait_step(20);
      (void)w.loop.wait_a_little();
    });
    w.loop.advance(2985);
  }
  [[nodiscard]] bool reply_there() const { return w.files.exists(w.path(L"orblt.tt")); }
};

} // namespace lumotune::test
