// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/report_programs.h"

#include "platform/memory/messages.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::ShowWindow;

TEST(ReportPrograms, TheReportIsOfTheStationAndTheValuesOfTheMoment) {
  platform::memory::MemoryShell shell;
  platform::memory::MemoryMachine machine;
  base::Settings settings;
  player::ReportPrograms programs({settings, machine, shell});
  settings.server_address = L"http://s.example";
  settings.idh = L"I";
  settings.h = L"H";
  settings.IDlastRadio = L"RADIO9";
  programs.start_client();
  programs.start_report(false);
  ASSERT_EQ(shell.started.size(), 2U);
  EXPECT_EQ(shell.started[0].command_line, L"C:\\Orb\\orb.exe m");
  EXPECT_EQ(shell.started[0].application, L"C:\\Orb\\orb.exe");
  EXPECT_EQ(shell.started[0].show, ShowWindow::normal_no_focus);
  EXPECT_EQ(shell.started[1].command_line, L"load.exe http://s.example/orb/lt_all.php?idh=I&h=H&orbw=off&lt=on&stanice="
                                           L"RADIO9/@/C:\\Orb\\orblt.tt");
}

} // namespace
} // namespace lumotune::test
