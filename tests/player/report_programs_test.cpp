// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/report_programs.h"

#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::ShowWindow;

TEST(ReportPrograms, TheReportIsOfTheStationAndTheValuesOfTheMoment) {
  MemoryPlatform p;
  base::Settings settings;
  player::ReportPrograms programs({settings, p.folder, p.shell});
  settings.server_address = L"http://s.example";
  settings.idh = L"I";
  settings.h = L"H";
  settings.IDlastRadio = L"RADIO9";
  programs.start_client();
  programs.start_report(false);
  ASSERT_EQ(p.shell.started.size(), 2U);
  EXPECT_EQ(p.shell.started[0].command_line, L"C:\\Orb\\orb.exe m");
  EXPECT_EQ(p.shell.started[0].application, L"C:\\Orb\\orb.exe");
  EXPECT_EQ(p.shell.started[0].show, ShowWindow::normal_no_focus);
  EXPECT_EQ(p.shell.started[1].command_line,
            L"load.exe http://s.example/orb/lt_all.php?idh=I&h=H&orbw=off&lt=on&stanice="
            L"RADIO9/@/C:\\Orb\\orblt.tt");
}

} // namespace
} // namespace lumotune::test
