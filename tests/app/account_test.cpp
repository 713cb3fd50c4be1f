// SPDX-License-Identifier: LGPL-2.1-or-later
// The account's identity and check value go to the companions and pages that need them, and nowhere else: into no log
// or other file, no box, no label, no tip.
#include "tests/app/program_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;

const std::wstring identity = L"TAJNAIDENTITA";
const std::wstring check_value = L"TAJNAKONTROLA";

bool tells(const std::wstring& text) {
  return text.find(identity) != std::wstring::npos || text.find(check_value) != std::wstring::npos;
}

struct AccountTest : ProgramWorld {
  AccountTest() {
    auto lines = option_lines();
    lines[5] = "#005:AAAAA:" + codec.encode(identity);
    lines[6] = "#006:BBBBBBB:" + codec.encode(check_value);
    put(L"Orb_Data\\options.ini", joined(lines));
    put(L"Orb_Data\\skins\\Lumo.skin", "LTform|x|y\r\nControl_Menu|show|1|2\r\n"); // logged
    put(L"Orb_Data\\orb_server.tt", "a\r\n");                                      // logged, too
    files.make_readonly(machine.folder + L"\\list.tt");
  }
  void serve() { put(L"Orb_Data\\orb_server.tt", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n123456789012345http://s.example\r\n"); }
  void use(const wchar_t* item, void (menus::Menus::*open)()) {
    popups.choices = {item};
    (program.menus.*open)();
  }
  void use_the_menus() {
    for (const wchar_t* item :
         {L"LT_Menu_Orbcz", L"LT_Menu_ShowUsers", L"LT_Menu_Disk", L"LT_Menu_Potize", L"LT_Menu_Mp3rec", L"LT_Menu_OM",
          L"LT_Menu_LTadd", L"LT_Menu_FAQ", L"LT_Menu_Skins_SKIN(0)"})
      use(item, &menus::Menus::open_main);
    for (const wchar_t* item : {L"LT_MenuRadia_Naladit", L"LT_MenuRadia_Disk", L"LT_MenuRadia_Potize"})
      use(item, &menus::Menus::open_favourite);
    for (const wchar_t* item : {L"LT_MenuPlRaria_www", L"LT_MenuPlRaria_Disk", L"LT_MenuPlRaria_Err"})
      use(item, &menus::Menus::open_station);
    loop.advance(5000); // the report of what plays
  }
  void use_the_directory() {
    program.directory.Naladit();
    ASSERT_TRUE(program.directory.open());
    put(L"orb_test_size.tt", "size:99\r\n");
    loop.advance(2000);
    auto& made = *framed_windows.last;
    (void)made.find<platform::memory::ListView>(L"ListView1")->user_pick(1, MouseButton::left);
    for (const wchar_t* link : {L"Label4", L"Label5", L"Label6", L"Label7", L"Label9", L"Label10"})
      (void)made.find<platform::memory::Label>(link)->user_click();
    (void)made.find<platform::memory::PictureBox>(L"Image3")->user_click();
    for (const wchar_t* name : {L"Label1", L"Label2", L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8",
                                L"Label9", L"Label10", L"InfoPanel"})
      EXPECT_FALSE(
          tells(made.find<platform::memory::Label>(name)->text() + made.find<platform::memory::Label>(name)->tooltip()))
          << name;
    EXPECT_FALSE(tells(made.caption()));
    made.user_close();
    loop.advance(500);
  }
  void expect_no_trace() {
    std::size_t looked_at = 0;
    for (const std::wstring& change : files.changes()) {
      const std::wstring path = change.substr(change.find(L"C:\\"));
      if (path.ends_with(L"options.ini"))
        continue; // where the client keeps them
      ++looked_at;
      EXPECT_FALSE(tells(codec.decode(files.read(path).value_or("")))) << testing::PrintToString(path);
    }
    EXPECT_GT(looked_at, 0U);
    EXPECT_FALSE(dialogs.shown.empty());
    for (const auto& box : dialogs.shown)
      EXPECT_FALSE(tells(box.text + box.title)) << testing::PrintToString(box.text);
    for (const auto& menu : popups.opened) {
      for (const platform::MenuItem& item : menu.items)
        EXPECT_FALSE(tells(item.caption));
    }
    for (platform::Label* label : {&form.InfoName, &form.InfoTime, &form.InfoStatus, &form.InfoNaladit})
      EXPECT_FALSE(tells(label->text() + label->tooltip()));
    EXPECT_FALSE(tells(tray.tip + window.caption() + player.url()));
  }
};

TEST_F(AccountTest, IsToldToCompanionsOnly) {
  ASSERT_TRUE(program.start());
  use_the_menus(); // no server yet: boxes
  serve();
  use_the_menus();
  use_the_directory();
  std::size_t told = 0;
  for (const auto& started : shell.started)
    told += tells(started.command_line) ? 1U : 0U;
  EXPECT_GT(told, 8U) << "those that need it have it";
  EXPECT_NE(get(L"Orb_Data\\error.log").find("LoadOptionsServer"), std::string::npos);
  EXPECT_NE(get(L"Orb_Data\\error.log").find("LoadSkin"), std::string::npos);
  expect_no_trace();
}

TEST_F(AccountTest, IsNotToldWhenACompanionIsMissing) {
  shell.start_works = false;
  shell.open_answer = 2;
  messages.remove_window(L"Orb - Lumotune");
  ASSERT_TRUE(program.start());
  serve();
  use_the_menus();
  use_the_directory();
  dialogs.shown.push_back({}); // none is needed
  expect_no_trace();
}

} // namespace
} // namespace lumotune::test
