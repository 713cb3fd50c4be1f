// SPDX-License-Identifier: LGPL-2.1-or-later
// From one skin to the next: nothing of the last one stays, loads within loads, what is saved.
#include "tests/skin/loaded_skin.h"

namespace lumotune::test {
namespace {

using platform::Colour;
using platform::TwipsRect;

struct SkinChangeTest : LoadedSkin {};

// Every kind of line, with other numbers than "Tmava" has by itself.
constexpr const char* full_skin =
    "LTform|6300|3480\r\nLTDisplay|show|10|20|showevery|showifnulllist\r\nOrbwww|show|30|40|showevery\r\n"
    "Control_Play|show|1|2\r\nControl_Volume|show|1|2\r\nControl_Menu|show|1|2\r\nLineMenu_OnTop|show|1|2\r\n"
    "InfoName|1|2|3|4|5\r\nInfoTime|1|2|3|4|5\r\nInfoNaladit|1|2|3|4|5\r\nInfoStatus|1|1|2|3|4|5|6|7\r\n"
    "Control_List|show|1|2|hideplay|3|4|5|6\r\n";

struct NextSkinTest : LoadedSkin {
  void expect_nothing_of_the_last_one(bool its_ground = false) {
    for (const wchar_t* state : {L"Stop", L"Zapnout"}) {
      w.look.ZobrazCoMas(state);
      w.look.SkinVolume(60);
      for (const platform::PictureBox* each : std::initializer_list<const platform::PictureBox*>{
               &w.form.LTDisplay, &w.form.Orbwww, &w.form.Control_Menu, &w.form.LineMenu_OnTop, &w.form.Control_Play,
               &w.form.Control_Volume}) {
        EXPECT_EQ(each->picture(), L"") << testing::PrintToString(each->name());
        EXPECT_EQ(each->rect(), TwipsRect{}) << testing::PrintToString(each->name());
      }
      for (const platform::Label* each : std::initializer_list<const platform::Label*>{
               &w.form.InfoName, &w.form.InfoTime, &w.form.InfoNaladit, &w.form.InfoStatus}) {
        EXPECT_EQ(each->rect(), TwipsRect{}) << testing::PrintToString(each->name());
        EXPECT_EQ(each->text_colour(), Colour{0}) << testing::PrintToString(each->name());
      }
      EXPECT_FALSE(w.form.Control_List.visible());
    }
    EXPECT_EQ(w.form.Control_List.rect(), TwipsRect{});
    EXPECT_EQ(w.form.Control_List.background_colour(), Colour{0xffffff});
    EXPECT_FALSE(w.session.skin.display_behind_empty_list);
    EXPECT_FALSE(w.session.skin.status_has_first_layout);
    EXPECT_FALSE(w.session.skin.list);
    if (its_ground)
      return;
    EXPECT_EQ(w.window.background(), L"");
    EXPECT_EQ(w.window.rect().width, 6000);
    EXPECT_EQ(w.window.rect().height, 3000);
  }
};

TEST_F(NextSkinTest, HasNothingOfTheLastOneWhateverItLeavesOut) {
  w.picture(L"Jina", L"form", gif(5, 5));
  w.description(L"Jina", "Author|x\r\nLTform|900|1200\r\n");
  load(full_skin);
  w.look.ZobrazCoMas(L"Stop");
  w.look.SkinVolume(60);
  w.look.LoadSkin(L"Jina");
  expect_nothing_of_the_last_one(true);
  EXPECT_EQ(w.window.rect().width, 900);
  EXPECT_EQ(w.window.background(), w.machine.folder + L"\\Orb_Data\\skins\\Jina\\form.gif");
}

TEST_F(NextSkinTest, WithoutAFormHasTheWindowsOwnColourAndSize) {
  w.description(L"Jina", "Author|x\r\n");
  load(full_skin);
  w.look.LoadSkin(L"Jina");
  expect_nothing_of_the_last_one();
}

TEST_F(NextSkinTest, ThatFailsOrIsRefusedHasNothingOfTheLastOne) {
  load(full_skin);
  w.look.LoadSkin(L"Neni");
  expect_nothing_of_the_last_one();
  load(full_skin);
  w.description(L"Velka", "LTform|99999999999|3000\r\n");
  w.look.LoadSkin(L"Velka");
  expect_nothing_of_the_last_one();
  load(full_skin);
  w.description(L"Bez obrazku", "LTform|900|1200\r\n");
  w.look.LoadSkin(L"Bez obrazku");
  EXPECT_EQ(w.window.background(), L"");
  EXPECT_EQ(w.window.rect().width, 900) << "what it gave before it failed";
}

TEST_F(SkinChangeTest, TheCurrentSkinChosenAgainShowsAnEditedPictureAndMissesADeletedOne) {
  load("LTform|6300|3480\r\nControl_Rec|show|1|2\r\nControl_Sat|show|1|2\r\n");
  w.picture(L"Tmava", L"rec", gif(40, 30));
  w.look.LoadSkin(L"Tmava");
  EXPECT_EQ(w.form.Control_Rec.rect(), (TwipsRect{2, 1, 600, 450}));
  (void)w.files.remove(w.machine.folder + L"\\Orb_Data\\skins\\Tmava\\rec.gif");
  w.look.LoadSkin(L"Tmava");
  EXPECT_FALSE(w.form.Control_Rec.visible());
  EXPECT_FALSE(w.form.Control_Sat.visible());
}

TEST_F(SkinChangeTest, TheSavedNameIsThatOfTheLastSkinThatCouldBeRead) {
  w.settings.saved_skin = L"Drive";
  w.look.LoadSkin(L"Neni");
  EXPECT_EQ(w.settings.LTskin, L"Neni");
  EXPECT_EQ(w.settings.saved_skin, L"Drive");
  load("LTform|6300|3480\r\n");
  EXPECT_EQ(w.settings.saved_skin, L"Tmava");
  w.description(L"Bez obrazku", "LTform|900|1200\r\n");
  w.look.LoadSkin(L"Bez obrazku");
  EXPECT_EQ(w.settings.LTskin, L"Bez obrazku");
  EXPECT_EQ(w.settings.saved_skin, L"Tmava");
}

TEST_F(SkinChangeTest, ALoadThatIsInterruptedByTheEndIsNotSaved) {
  w.settings.saved_skin = L"Drive";
  w.loop.at(0, [this] { w.loop.quit(); });
  load("Author|x\r\nControl_Menu|show|1|2\r\n");
  EXPECT_EQ(w.settings.saved_skin, L"Drive");
}

TEST_F(SkinChangeTest, AnEndingProgramStopsTheLoad) {
  w.loop.at(0, [this] { w.loop.quit(); });
  load("Author|x\r\nControl_Menu|show|1|2\r\n");
  EXPECT_FALSE(w.form.Control_Menu.visible());
}

TEST_F(SkinChangeTest, EventsRunAfterEachLine) {
  const auto before = w.loop.pending_runs();
  load("a\r\nb\r\nAuthor|x\r\n");
  EXPECT_EQ(w.loop.pending_runs() - before, 3U);
}

TEST_F(SkinChangeTest, ALoadInsideAnotherOneWins) {
  w.description(L"Druha", "LTform|999|999\r\n");
  w.picture(L"Druha", L"form", gif(1, 1));
  w.picture(L"Druha", L"menu", gif(1, 1)); // so that nothing but the turn can stop the interrupted load
  w.loop.at(0, [this] { w.look.LoadSkin(L"Druha"); });
  load("Author|x\r\nControl_Menu|show|1|2\r\n");
  EXPECT_EQ(w.settings.LTskin, L"Druha");
  EXPECT_FALSE(w.form.Control_Menu.visible()) << "the interrupted load must not go on";
  EXPECT_EQ(w.window.rect().width, 999);
}

} // namespace
} // namespace lumotune::test
