// SPDX-License-Identifier: LGPL-2.1-or-later
// The directory window as it is made: what stands where, which events it hears, and that it goes when it is closed.
#include "tests/directory/update_world.h"
#include "tests/support/skin_world.h"

#include <map>
#include <memory>

namespace lumotune::test {
namespace {

using platform::MouseButton;

struct ListRadiosForm : UpdateWorld {
  // Gone as soon as the window is destroyed.
  [[nodiscard]] std::weak_ptr<int> life_of_window() {
    auto life = std::make_shared<int>(0);
    window_shown().on_resize = [life] { ++*life; };
    return life;
  }
};

TEST_F(ListRadiosForm, EverythingHasItsText) {
  EXPECT_EQ(window_shown().caption(), L"Seznam rádií");
  const std::map<std::wstring, std::wstring> texts = {{L"Label8", L"Vybrané rádio:"},
                                                      {L"Label7", L"Naladit rádio"},
                                                      {L"Label5", L"Přidat rádio do rychlého seznamu"},
                                                      {L"Label9", L"Zobrazit posluchače"},
                                                      {L"Label10", L"Diskuze k rádiové stanici"},
                                                      {L"Label6", L"Mám potíže s poslechem tohoto rádia"}};
  for (const auto& [name, text] : texts)
    EXPECT_EQ(label(name).text(), text) << name;
  EXPECT_EQ(Command1().text(), L"Aktualizovat seznam");
}

// What carries no text of its own says by name what it is.
TEST_F(ListRadiosForm, ScreenReadersAreToldWhatIsWhat) {
  EXPECT_EQ(tree().text(), L"Kategorie rádií");
  EXPECT_EQ(list().text(), L"Rádia");
  EXPECT_EQ(part<platform::memory::TextBox>(L"Text1").tooltip(), L"O rádiu");
  EXPECT_EQ(part<platform::memory::PictureBox>(L"Image3").text(), L"Orb");
  EXPECT_EQ(part<platform::memory::PictureBox>(L"Image3").tooltip(), L"Přihlásit se na Orb");
}

TEST_F(ListRadiosForm, WhatComesLaterIsHiddenAtFirst) {
  EXPECT_FALSE(label(L"InfoPanel").visible());
  EXPECT_FALSE(part<platform::memory::PictureBox>(L"ImageInPan").visible());
  EXPECT_FALSE(progress().visible());
}

TEST_F(ListRadiosForm, ShowsItsPicturesWhereTheyAre) {
  EXPECT_EQ(part<platform::memory::PictureBox>(L"Image3").picture(), L"") << "without them it works all the same";
  write(L"Orb_Data\\pictures\\logo.gif", gif(32, 32));
  write(L"Orb_Data\\pictures\\info.gif", gif(16, 16));
  open_again();
  EXPECT_EQ(part<platform::memory::PictureBox>(L"Image3").picture(), path(L"Orb_Data\\pictures\\logo.gif"));
  EXPECT_EQ(part<platform::memory::PictureBox>(L"ImageInPan").picture(), path(L"Orb_Data\\pictures\\info.gif"));
  EXPECT_EQ(part<platform::memory::PictureBox>(L"Image3").rect().width, 480) << "in its place, whatever its own size";
}

TEST_F(ListRadiosForm, TheControlsFollowTheWindowsSize) {
  const auto tree_before = tree().rect();
  const auto list_before = list().rect();
  const auto button_before = Command1().rect();
  EXPECT_GT(tree_before.width, 1000);
  EXPECT_GT(list_before.width, 2000);
  EXPECT_EQ(list_before.left, tree_before.left + tree_before.width + 120) << "side by side";
  const auto size = window_shown().rect();
  window_shown().user_resize(size.width + 1500, size.height + 600);
  EXPECT_EQ(tree().rect().width + list().rect().width, tree_before.width + list_before.width + 1500);
  EXPECT_EQ(list().rect().height, list_before.height + 600);
  EXPECT_EQ(Command1().rect().left, button_before.left + 1500);
  EXPECT_EQ(Command1().rect().top, button_before.top + 600);
  window_shown().user_resize(1, 1);
  EXPECT_GT(tree().rect().width, 500);
  EXPECT_GT(list().rect().width, 1000);
  EXPECT_GT(part<platform::memory::TextBox>(L"Text1").rect().height, 0);
}

// Name, country and address above, the text between, the links below; none over another, all inside their frame.
TEST_F(ListRadiosForm, TheLabelsStandBelowEachOtherInTheirFrame) {
  const auto check = [this] {
    const auto frame = part<platform::memory::Frame>(L"Frame1").rect();
    int bottom = frame.top;
    const auto follows = [&](const platform::TwipsRect& place, const wchar_t* name) {
      EXPECT_GE(place.top, bottom) << name;
      EXPECT_GT(place.height, 0) << name;
      EXPECT_GE(place.left, frame.left) << name;
      EXPECT_LE(place.left + place.width, frame.left + frame.width) << name;
      EXPECT_GT(place.width, 2000) << name;
      bottom = place.top + place.height;
    };
    for (const wchar_t* name : {L"Label2", L"Label3", L"Label4"})
      follows(label(name).rect(), name);
    follows(part<platform::memory::TextBox>(L"Text1").rect(), L"Text1");
    for (const wchar_t* name : {L"Label8", L"Label7", L"Label5", L"Label9", L"Label10", L"Label6"})
      follows(label(name).rect(), name);
    EXPECT_LE(bottom, frame.top + frame.height);
  };
  check();
  const int links_before = label(L"Label6").rect().top;
  const int name_before = label(L"Label2").rect().top;
  const auto size = window_shown().rect();
  window_shown().user_resize(size.width + 1500, size.height + 600);
  check();
  EXPECT_EQ(label(L"Label6").rect().top, links_before + 600) << "the links stay at the bottom";
  EXPECT_EQ(label(L"Label2").rect().top, name_before) << "and the name at the top";
  window_shown().user_resize(1, 1);
  check();
}

TEST_F(ListRadiosForm, TheStatusLineBarAndButtonLieBelowTheLists) {
  const auto status_line = label(L"Label1").rect();
  const auto bar = progress().rect();
  EXPECT_GE(status_line.top, list().rect().top + list().rect().height);
  EXPECT_LE(status_line.left + status_line.width, bar.left);
  EXPECT_LE(bar.left + bar.width, Command1().rect().left);
}

TEST_F(ListRadiosForm, TheUnderlineGoesWithTheMouse) {
  const auto leaves = [this](const char* where, const auto& move) {
    (void)label(L"Label9").user_mouse_move({});
    EXPECT_TRUE(label(L"Label9").underline());
    (void)move();
    EXPECT_FALSE(label(L"Label9").underline()) << where;
  };
  leaves("the frame", [this] { return part<platform::memory::Frame>(L"Frame1").user_mouse_move({}); });
  leaves("its ground", [this] { return part<platform::memory::PictureBox>(L"Image1").user_mouse_move({}); });
  leaves("the list", [this] { return list().user_mouse_move({}); });
  leaves("the text", [this] { return part<platform::memory::TextBox>(L"Text1").user_mouse_move({}); });
}

TEST_F(ListRadiosForm, TheInformationLineHearsTheMouse) {
  bring("orb:i:0/@//@/10/@/Zpr\xe1va/@//@/openurl/@/x\r\n" + stations_text());
  auto& line = label(L"InfoPanel");
  (void)line.user_mouse_move({});
  EXPECT_TRUE(line.underline());
  (void)line.user_mouse_down({MouseButton::left, 1, 1});
  EXPECT_FALSE(line.underline());
  (void)line.user_mouse_move({});
  (void)part<platform::memory::PictureBox>(L"ImageInPan").user_mouse_move({});
  EXPECT_FALSE(line.underline());
  (void)line.user_click();
  ASSERT_EQ(test::opened_pages(shell).size(), 1U);
  EXPECT_EQ(test::opened_pages(shell)[0].find(L"http://server/login/"), 0U);
}

TEST_F(ListRadiosForm, BeingBroughtToAStationShowsItsDetailsAgain) {
  (void)list().user_pick(4, MouseButton::right);
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_FALSE(label(name).visible()) << name;
  EXPECT_FALSE(part<platform::memory::TextBox>(L"Text1").visible());
  directory.Naladit();
  for (const wchar_t* name : {L"Label3", L"Label4", L"Label5", L"Label6", L"Label7", L"Label8", L"Label9", L"Label10"})
    EXPECT_TRUE(label(name).visible()) << name;
  EXPECT_TRUE(part<platform::memory::TextBox>(L"Text1").visible());
  EXPECT_EQ(label(L"Label2").text(), L"Druhé");
}

TEST_F(ListRadiosForm, ARightClickIsRememberedToo) {
  (void)list().user_pick(3, MouseButton::right);
  pick_node(L"a100000");
  EXPECT_EQ(list().selected(), 3U);
}

TEST_F(ListRadiosForm, ABlankWebAddressIsNotOffered) {
  write(L"radios.tt", Record{"BLANK1", "Bez webu", "", "", "", {}, {}, "  \t"}.line());
  open_again();
  (void)list().user_pick(1, MouseButton::right);
  EXPECT_EQ(platform::memory::find_item(popups.opened.back().items, L"WebRadia")->caption, L"Web rádia");
  EXPECT_FALSE(platform::memory::find_item(popups.opened.back().items, L"WebRadia")->enabled);
}

TEST_F(ListRadiosForm, ARowWithoutAnIdentifierHasItsDetailsAndItsMenu) {
  write(L"radios.tt", Record{"", "Bez", "", "Polsko", "", {}, {}, "www.b"}.line());
  open_again();
  (void)list().user_pick(1, MouseButton::right);
  ASSERT_EQ(popups.opened.size(), 1U);
  EXPECT_EQ(platform::memory::find_item(popups.opened[0].items, L"WebRadia")->caption, L"www.b");
  (void)list().user_pick(1, MouseButton::left);
  EXPECT_TRUE(label(L"Label9").visible());
  EXPECT_EQ(label(L"Label2").text(), L"Bez");
}

// The order of making is that of Tab: the keyboard comes first to what was made first.
TEST_F(ListRadiosForm, TabVisitsTheControlsInTheOrderOfMaking) {
  bring("orb:i:0/@//@/10/@/Zprava/@//@//@/\r\n" + stations_text());
  Names visited;
  for (int i = 0; i < 12; ++i) {
    visited.push_back(window_shown().keyboard_at());
    window_shown().user_tab(false);
  }
  EXPECT_EQ(visited, (Names{L"TreeView1", L"ListView1", L"Image3", L"Label4", L"Text1", L"Label7", L"Label5", L"Label9",
                            L"Label10", L"Label6", L"Command1", L"InfoPanel"}));
  EXPECT_EQ(window_shown().keyboard_at(), L"TreeView1") << "and round";
  visited.insert(visited.begin() + 1, L"Filter"); // hidden as long as nobody searches
  EXPECT_EQ(window_shown().made_stops(), visited);
}

TEST_F(ListRadiosForm, AClickThatSelectsNothingOpensNothing) {
  list().select(0);
  (void)list().user_mouse_down({MouseButton::right, 5, 5});
  (void)list().user_click();
  EXPECT_TRUE(popups.opened.empty());
  label(L"Label9").set_visible(false);
  (void)list().user_mouse_down({MouseButton::left, 5, 5});
  (void)list().user_click();
  EXPECT_FALSE(label(L"Label9").visible());
}

TEST_F(ListRadiosForm, ClosingHidesItAndStopsItsTyping) {
  bring("orb:i:0/@//@/10/@/Zpr\xe1va\r\n" + stations_text());
  auto& line = label(L"InfoPanel");
  const std::wstring typed = line.text();
  const platform::memory::EventLoop::Nested waiting(loop); // something does: the closed window is not destroyed
  window_shown().user_close();
  EXPECT_FALSE(window_shown().visible());
  loop.advance(500);
  EXPECT_EQ(line.text(), typed);
}

TEST_F(ListRadiosForm, AClosedWindowIsDestroyedSoon) {
  const auto life = life_of_window();
  window_shown().user_close();
  EXPECT_FALSE(life.expired()) << "its own event is still running";
  loop.advance(200);
  EXPECT_TRUE(life.expired());
  directory.Naladit();
  const auto second = life_of_window();
  window_shown().user_close();
  loop.advance(200);
  EXPECT_TRUE(second.expired()) << "and so is the next one";
}

TEST_F(ListRadiosForm, AWindowClosedUnderItsOwnBoxIsDestroyedAfterIt) {
  const auto life = life_of_window();
  connection.now.connected = false;
  dialogs.while_open = [this, &life] {
    window_shown().user_close();
    loop.advance(1000);
    EXPECT_FALSE(life.expired());
  };
  Command1().press();
  loop.advance(200);
  EXPECT_TRUE(life.expired());
}

TEST_F(ListRadiosForm, AWindowIsClosedOnce) {
  auto& old = window_shown();
  old.user_close();
  old.user_close();
  EXPECT_FALSE(directory.open());
  directory.Naladit();
  old.user_close();
  EXPECT_TRUE(directory.open()) << "it is not the new window that was closed";
  loop.advance(1000);
  EXPECT_TRUE(directory.open());
  EXPECT_TRUE(window_shown().visible());
}

TEST_F(ListRadiosForm, ASecondCopyShowsNothing) {
  window_shown().user_close();
  loop.advance(200);
  machine.previous = true;
  const auto started = shell.started.size();
  directory.Naladit();
  EXPECT_TRUE(loop.quitting());
  EXPECT_FALSE(window_shown().visible());
  EXPECT_EQ(tree().count(), 0U);
  EXPECT_EQ(shell.started.size(), started);
}

} // namespace
} // namespace lumotune::test
