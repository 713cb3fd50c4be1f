// SPDX-License-Identifier: LGPL-2.1-or-later
// Which skin the settings keep when it is missing or fails.
#include "tests/app/program_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;
using platform::WindowState;

// The skin's name that the settings file keeps.
struct SavedSkinTest : ProgramWorld {
  void start_with(const std::string& skin) {
    auto lines = option_lines();
    lines[21] = "#021:LTskin:" + skin;
    put(L"Orb_Data\\options.ini", joined(lines));
    ASSERT_TRUE(program.start());
  }
  [[nodiscard]] std::wstring settings_skin() const { return program.settings.LTskin; }
  void choose(std::size_t index) {
    popups.choices.push_back(L"LT_Menu_Skins_SKIN(" + std::to_wstring(index) + L")");
    window.user_right_click();
  }
  void expect_saved(const std::string& skin) {
    window.on_close();
    EXPECT_NE(get(L"Orb_Data\\options.ini").find("\r\n#021:LTskin:" + skin + "\r\n"), std::string::npos)
        << get(L"Orb_Data\\options.ini");
  }
};

TEST_F(SavedSkinTest, AMissingOneIsReplacedForThisRunOnly) {
  start_with("Neni");
  EXPECT_EQ(settings_skin(), L"Lumo");
  EXPECT_TRUE(form.Control_Menu.visible());
  expect_saved("Neni");
}

TEST_F(SavedSkinTest, TheListenersChoiceAfterThatIsKept) {
  start_with("Neni");
  choose(0);
  expect_saved("Lumo");
}

TEST_F(SavedSkinTest, OneThatFailsIsNotKept) {
  put(L"Orb_Data\\skins\\Vadna.skin", "LTform|900|900\r\n");
  start_with("Lumo");
  choose(1);
  EXPECT_EQ(settings_skin(), L"Vadna");
  EXPECT_FALSE(form.Control_Menu.visible());
  expect_saved("Lumo");
}

TEST_F(SavedSkinTest, OneThatIsThereAndFailsAtStartStaysTheListenersChoice) {
  put(L"Orb_Data\\skins\\Vadna.skin", "LTform|900|900\r\n");
  start_with("Vadna");
  EXPECT_EQ(settings_skin(), L"Vadna");
  expect_saved("Vadna");
}

} // namespace
} // namespace lumotune::test
