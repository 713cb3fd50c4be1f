// SPDX-License-Identifier: LGPL-2.1-or-later
// A tour of the real program on this desktop: each step goes on where the one before it ended. LUMOTUNE_SELFTEST_FOLDER
// names the program folder, which knows the small radio already.
#include "tests/desktop/aware.h"
#include "tests/selftest/desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace lumotune::selftest {
namespace {

const std::wstring directory = L"ListRadios";

std::wstring program_folder() {
  const wchar_t* const folder = _wgetenv(L"LUMOTUNE_SELFTEST_FOLDER");
  return folder == nullptr ? std::wstring() : folder;
}

class Tour : public testing::Test {
protected:
  static void SetUpTestSuite() {
    ::probe::become_aware_of_resolutions(); // places are pixels of the screen, as for the probe
    program = sandbox::start(program_folder() + L"\\lumotune.exe");
  }
  // Asks it to close when a step did not.
  static void TearDownTestSuite() {
    (void)probe(L"close");
    constexpr DWORD longest_ms = 10000;
    if (program != nullptr)
      WaitForSingleObject(program.get(), longest_ms);
    program.reset();
  }
  static sandbox::Handle program;
};
sandbox::Handle Tour::program;

// "0:03", which counts.
bool time_goes_on() {
  const std::string before = text("InfoTime");
  return !before.empty() && until([&] { return text("InfoTime") > before; });
}

TEST_F(Tour, Step01TheWindowAppears) {
  ASSERT_NE(program, nullptr);
  EXPECT_TRUE(until([] { return control("Form") && control("Form")->visible; }));
}

TEST_F(Tour, Step02TheLastStationPlays) {
  EXPECT_TRUE(until([] { return text("InfoName") == "Rádio Úsvit"; }));
  EXPECT_TRUE(until([] { return text("InfoStatus").find("MP3 128 kbps") != std::string::npos; }));
  EXPECT_TRUE(until([] { return text("InfoTime").starts_with("0:"); }));
  EXPECT_TRUE(time_goes_on());
}

TEST_F(Tour, Step03TheMenuOpensAndCloses) {
  ASSERT_TRUE(click("Control_Menu"));
  EXPECT_TRUE(until([] { return probe(L"menuitems").size() > 5; }));
  EXPECT_TRUE(until([] {
    (void)probe(L"cancel");
    return probe(L"menus").empty();
  }));
}

TEST_F(Tour, Step04ASkinIsChangedWhileItPlays) {
  const auto before = control("Form");
  ASSERT_TRUE(before);
  ASSERT_TRUE(click("Control_Menu"));
  ASSERT_TRUE(choose({"Skiny", "Papír"}));
  EXPECT_TRUE(until([&] {
    const auto now = control("Form");
    return now && (now->width != before->width || now->height != before->height);
  }));
  EXPECT_TRUE(time_goes_on());
}

TEST_F(Tour, Step05TheDirectoryLoadsItsList) {
  ASSERT_TRUE(click("Control_Sat"));
  EXPECT_TRUE(until([] { return text("Label1", directory) == "Hotovo, připraven..."; }));
  EXPECT_GT(probe(L"rows").size(), 250U);
}

TEST_F(Tour, Step06AStationOfTheDirectoryPlays) {
  const auto rows = probe(L"rows");
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [](const auto& each) { return each.size() == 4 && each[2] == "Jazzový sklep"; });
  ASSERT_NE(row, rows.end());
  click(std::atoi((*row)[0].c_str()), std::atoi((*row)[1].c_str()), 2);
  ASSERT_TRUE(choose({"128 kbps"})) << "it has two qualities";
  EXPECT_TRUE(until([] { return text("InfoName") == "Jazzový sklep"; }));
  EXPECT_TRUE(until([] { return text("InfoTime").starts_with("0:"); }));
  (void)probe(L"close " + directory);
  EXPECT_TRUE(until([] { return !control("Form", directory); }));
}

TEST_F(Tour, Step07TheButtonStopsAndPlays) {
  ASSERT_EQ(text("PlayTL"), "Stop");
  ASSERT_TRUE(click("Control_Play"));
  EXPECT_TRUE(until([] { return text("PlayTL") == "Zapnout"; }));
  ASSERT_TRUE(click("Control_Play"));
  EXPECT_TRUE(until([] { return text("PlayTL") == "Stop"; }));
}

TEST_F(Tour, Step08ItEndsAndKeepsItsSettings) {
  (void)probe(L"close");
  constexpr DWORD longest_ms = 30000;
  ASSERT_EQ(WaitForSingleObject(program.get(), longest_ms), WAIT_OBJECT_0);
  DWORD code = 1;
  GetExitCodeProcess(program.get(), &code);
  EXPECT_EQ(code, 0U);
  std::ifstream source(std::filesystem::path(program_folder()) / L"Orb_Data" / L"options.ini", std::ios::binary);
  const std::string options{std::istreambuf_iterator<char>(source), {}};
  EXPECT_NE(options.find("LTskin:Pap\xEDr"), std::string::npos);
}

TEST_F(Tour, Step09NothingWasLoggedAndNothingCrashed) {
  const std::filesystem::path data = std::filesystem::path(program_folder()) / L"Orb_Data";
  EXPECT_FALSE(std::filesystem::exists(data / L"pad.txt"));
  EXPECT_FALSE(std::filesystem::exists(data / L"error.log"));
}

} // namespace
} // namespace lumotune::selftest
