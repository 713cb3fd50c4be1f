// SPDX-License-Identifier: LGPL-2.1-or-later
// What each line of a skin file does, and what follows the play state and the volume.
#include "tests/skin/loaded_skin.h"

namespace lumotune::test {
namespace {

using platform::Colour;
using platform::TwipsRect;

struct SkinTest : LoadedSkin {};

TEST_F(SkinTest, SizesTheWindowAndLoadsItsBackground) {
  load("ltFORM|6300|3480\r\n");
  EXPECT_EQ(w.window.rect().width, 6300);
  EXPECT_EQ(w.window.rect().height, 3480);
  EXPECT_EQ(w.file_name(w.window.background()), L"form.gif");
  EXPECT_EQ(w.settings.LTskin, L"Tmava");
  EXPECT_EQ(w.log(), "");
}

TEST_F(SkinTest, ShowsOnlyWhatItNames) {
  load("Control_Rec|show|100|200\r\nControl_Sat|hide|1|2\r\nControl_ShowUser\r\n");
  EXPECT_TRUE(w.form.Control_Rec.visible());
  EXPECT_EQ(w.form.Control_Rec.rect(), (TwipsRect{200, 100, 300, 150})) << "the picture gives the size";
  EXPECT_EQ(w.file_name(w.form.Control_Rec.picture()), L"rec.gif");
  for (const platform::Control* hidden : std::initializer_list<platform::Control*>{
           &w.form.Control_Sat, &w.form.Control_ShowUser, &w.form.Control_Play, &w.form.LTDisplay, &w.form.Orbwww,
           &w.form.Control_List, &w.form.LineMenu_End, &w.form.LineMenu_Min, &w.form.LineMenu_OnTop})
    EXPECT_FALSE(hidden->visible()) << hidden->name().size();
}

TEST_F(SkinTest, TheOnTopPictureFollowsTheFlag) {
  w.settings.LTTop = L"0";
  load("LineMenu_OnTop|show|1|2\r\n");
  EXPECT_EQ(w.file_name(w.form.LineMenu_OnTop.picture()), L"otn.gif");
  for (const wchar_t* flag : {L"1", L"", L"ano"}) {
    w.settings.LTTop = flag;
    load("LineMenu_OnTop|show|1|2\r\n");
    EXPECT_EQ(w.file_name(w.form.LineMenu_OnTop.picture()), L"ot.gif") << "everything but \"0\"";
  }
}

TEST_F(SkinTest, PlacesTheListWithItsColours) {
  load("Control_List|show|600|240|hideplay|5820|1800|255|16711680\r\n");
  EXPECT_TRUE(w.form.Control_List.visible());
  EXPECT_EQ(w.form.Control_List.rect(), (TwipsRect{240, 600, 5820, 1800}));
  EXPECT_EQ(w.form.Control_List.background_colour(), Colour{255});
  EXPECT_EQ(w.form.Control_List.text_colour(), Colour{0xff0000});
  EXPECT_TRUE(w.session.skin.list);
  EXPECT_TRUE(w.session.skin.list_hidden_while_playing);
}

TEST_F(SkinTest, ALabelsLastFieldSaysWhereItsTextStands) {
  using platform::Alignment;
  load("InfoName|1|2|3|4|5|right\r\nInfoTime|1|2|3|4|5|CENTRE\r\nInfoNaladit|1|2|3|4|5|no\r\n"
       "InfoStatus|1|1|1|1|1|1|1|1|right\r\n");
  EXPECT_EQ(w.form.InfoName.alignment(), Alignment::right);
  EXPECT_EQ(w.form.InfoTime.alignment(), Alignment::centre);
  EXPECT_EQ(w.form.InfoNaladit.alignment(), Alignment::left);
  EXPECT_EQ(w.form.InfoStatus.alignment(), Alignment::right);
  EXPECT_EQ(w.log(), "") << "an unknown word is the left edge, as it always was";
  load("InfoName|1|2|3|4|5\r\n");
  for (const platform::Label* label : {&w.form.InfoName, &w.form.InfoTime, &w.form.InfoStatus})
    EXPECT_EQ(label->alignment(), Alignment::left) << "nothing of the last skin stays";
}

TEST_F(SkinTest, TheListsLastFieldIsItsAccent) {
  load("Control_List|show|600|240|hideplay|5820|1800|255|16711680|65280\r\n");
  EXPECT_EQ(w.form.Control_List.accent(), Colour{0xff00});
  load("Control_List|show|600|240|hideplay|5820|1800|255|16711680|x\r\n");
  EXPECT_TRUE(w.form.Control_List.visible()) << "old skins may say anything there";
  EXPECT_FALSE(w.form.Control_List.accent());
}

TEST_F(SkinTest, RecordingHasItsColourWhileSomethingPlays) {
  load("Control_Rec|show|100|200\r\n");
  EXPECT_TRUE(w.form.Control_Rec.neutral());
  w.look.ZobrazCoMas(L"Stop");
  EXPECT_FALSE(w.form.Control_Rec.neutral());
  w.look.ZobrazCoMas(L"Zapnout");
  EXPECT_TRUE(w.form.Control_Rec.neutral());
}

TEST_F(SkinTest, TheNeedleHasAScale) {
  load("LTNeedle|2160|210|450|2520|255\r\n");
  const auto& needle = w.session.skin.needle;
  EXPECT_EQ(needle.top, 2160);
  EXPECT_EQ(needle.height, 210);
  EXPECT_EQ(needle.from, 450);
  EXPECT_EQ(needle.to, 2520);
  EXPECT_EQ(needle.colour, 255U);
  w.form.LTDisplay.set_needle(platform::Needle{1, 2, 3, Colour{4}});
  load("LTform|6300|3480\r\n");
  EXPECT_EQ(w.session.skin.needle.height, 0);
  EXPECT_FALSE(w.form.LTDisplay.needle());
  load("LTNeedle|1|2|x|4|5\r\n");
  EXPECT_NE(w.log().find("'LTNeedle': bad number"), std::string::npos);
}

TEST_F(SkinTest, AHiddenListNeedsNoNumbersButKeepsItsFields) {
  load("Control_List|hide|||hideplay\r\nInfoTime|1|2|3|4|5\r\n");
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_FALSE(w.session.skin.list);
  EXPECT_TRUE(w.session.skin.list_hidden_while_playing);
  EXPECT_EQ(w.form.InfoTime.rect(), (TwipsRect{2, 1, 3, 4}));
}

TEST_F(SkinTest, KeepsTheFieldsOfDisplayLogoAndStatus) {
  load("LTDisplay|show|10|20|showevery|showifnulllist\r\nOrbwww|show|30|40|showstop\r\n"
       "InfoStatus|1|111|222|333|444|555|666|65280\r\n");
  const auto& kept = w.session.skin;
  EXPECT_TRUE(kept.display && kept.display_while_stopped && kept.display_behind_empty_list);
  EXPECT_TRUE(kept.logo);
  EXPECT_EQ(kept.logo_seen, base::KeptSkinFields::LogoSeen::while_stopped);
  EXPECT_TRUE(kept.status_has_first_layout);
  EXPECT_EQ(kept.status_top_1, 111);
  EXPECT_EQ(kept.status_top_2, 222);
  EXPECT_EQ(kept.status_height_1, 555);
  EXPECT_EQ(kept.status_height_2, 666);
  EXPECT_EQ(w.form.InfoStatus.rect(), (TwipsRect{333, 111, 444, 555}));
  EXPECT_EQ(w.form.InfoStatus.text_colour(), Colour{65280});
}

TEST_F(SkinTest, DisplayAndLogoHaveTheirPictureAndPlaceAlsoWhereTheyAreNotShown) {
  load("LTDisplay|hide|10|20|showevery\r\nOrbwww||30|40|showstop\r\n");
  EXPECT_FALSE(w.form.LTDisplay.visible());
  EXPECT_FALSE(w.form.Orbwww.visible());
  w.look.ZobrazCoMas(L"Stop");
  EXPECT_TRUE(w.form.LTDisplay.visible());
  EXPECT_TRUE(w.form.Orbwww.visible());
  EXPECT_EQ(w.form.LTDisplay.rect(), (TwipsRect{20, 10, 300, 150}));
  EXPECT_EQ(w.form.Orbwww.rect(), (TwipsRect{40, 30, 300, 150}));
  EXPECT_EQ(w.file_name(w.form.Orbwww.picture()), L"orb.gif");
  w.look.ZobrazCoMas(L"Zapnout");
  EXPECT_FALSE(w.form.LTDisplay.visible());
  EXPECT_FALSE(w.form.Orbwww.visible());
}

TEST_F(SkinTest, AHiddenLogoWithoutAPlaceNeedsNoPicture) {
  (void)w.files.remove(w.machine.folder + L"\\Orb_Data\\skins\\Tmava\\orb.gif");
  load("Orbwww|hide\r\nControl_Menu|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Menu.visible());
  load("Orbwww|hide|1|2\r\nControl_Menu|show|1|2\r\n");
  EXPECT_FALSE(w.form.Control_Menu.visible()) << "the playing state would show it";
  EXPECT_NE(w.log().find("orb.gif"), std::string::npos);
}

TEST_F(SkinTest, EmptyFieldsOfTheStatusCountAsZero) {
  load("InfoStatus||100| |300\r\nControl_Menu|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Menu.visible()) << w.log();
  EXPECT_EQ(w.form.InfoStatus.rect(), (TwipsRect{300, 100, 0, 0}));
  EXPECT_EQ(w.session.skin.status_top_2, 0);
  load("InfoStatus|1|100|x|300\r\nControl_Menu|show|1|2\r\n");
  EXPECT_FALSE(w.form.Control_Menu.visible());
}

TEST_F(SkinTest, NumbersOutOfRangeAreClampedAndNegativeColoursTheSystems) {
  load("Control_List|show|-99999999999|99999999999|x|-5|99999999999|-2147483643|99999999999\r\n"
       "InfoName|1|2|3|4|-2147483640\r\nLTform|-7|0\r\n");
  EXPECT_EQ(w.log(), "");
  EXPECT_EQ(w.form.Control_List.rect(), (TwipsRect{120000, -120000, 0, 120000}));
  EXPECT_EQ(w.form.Control_List.background_colour(), Colour{0x80000005});
  EXPECT_EQ(w.form.Control_List.text_colour(), Colour{0xffffff});
  EXPECT_EQ(w.form.InfoName.text_colour(), Colour{0x80000008});
  EXPECT_EQ(w.window.rect().width, 480) << "something to take hold of";
  EXPECT_EQ(w.window.rect().height, 480);
}

TEST_F(SkinTest, AMissingPictureEndsTheLoadAndIsLogged) {
  (void)w.files.remove(w.machine.folder + L"\\Orb_Data\\skins\\Tmava\\rec.gif");
  load("Control_Menu|show|1|2\r\nControl_Rec|show|1|2\r\nControl_Sat|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Menu.visible());
  EXPECT_FALSE(w.form.Control_Rec.visible());
  EXPECT_FALSE(w.form.Control_Sat.visible());
  EXPECT_EQ(w.log(), "1. 2. 2024 3:04:05 Lumotune (LoadSkin) C:\\Orb\\Orb_Data\\skins\\Tmava.skin line 2: "
                     "C:\\Orb\\Orb_Data\\skins\\Tmava\\rec.gif\r\n");
}

TEST_F(SkinTest, AMissingSkinHidesEverythingAndIsLogged) {
  load("Control_Menu|show|1|2\r\n");
  w.look.LoadSkin(L"Neni");
  EXPECT_EQ(w.settings.LTskin, L"Neni");
  EXPECT_FALSE(w.form.Control_Menu.visible());
  EXPECT_NE(w.log().find("Neni.skin"), std::string::npos);
}

TEST_F(SkinTest, ABadNumberEndsTheLoadWithoutAHalfPlacedControl) {
  load("Control_Menu|show|abc|2\r\nControl_Sat|show|1|2\r\n");
  EXPECT_FALSE(w.form.Control_Menu.visible());
  EXPECT_FALSE(w.form.Control_Sat.visible());
  EXPECT_NE(w.log().find("line 1: 'Control_Menu': bad number"), std::string::npos);
}

TEST_F(SkinTest, EveryPictureHasItsOwnFile) {
  load("LineMenu_Min|show|1|2\r\nLineMenu_End|show|3|4\r\nControl_Rec|show|5|6\r\nControl_ShowUser|show|7|8\r\n"
       "Control_Menu|show|9|10\r\nControl_Sat|show|11|12\r\nLTDisplay|show|13|14\r\nOrbwww|show|15|16\r\n");
  struct Expected {
    const platform::PictureBox& control;
    const wchar_t* file;
    int top, left;
  };
  for (const Expected& each :
       {Expected{w.form.LineMenu_Min, L"min.gif", 1, 2}, Expected{w.form.LineMenu_End, L"end.gif", 3, 4},
        Expected{w.form.Control_Rec, L"rec.gif", 5, 6}, Expected{w.form.Control_ShowUser, L"show.gif", 7, 8},
        Expected{w.form.Control_Menu, L"menu.gif", 9, 10}, Expected{w.form.Control_Sat, L"sat.gif", 11, 12},
        Expected{w.form.LTDisplay, L"display.gif", 13, 14}, Expected{w.form.Orbwww, L"orb.gif", 15, 16}}) {
    EXPECT_EQ(w.file_name(each.control.picture()), each.file);
    EXPECT_EQ(each.control.rect().top, each.top) << each.file;
    EXPECT_EQ(each.control.rect().left, each.left) << each.file;
    EXPECT_TRUE(each.control.visible()) << each.file;
  }
}

TEST_F(SkinTest, EveryLabelHasItsOwnPlaceAndColour) {
  load("InfoName|1|2|3|4|5\r\nInfoTime|11|12|13|14|15\r\nInfoNaladit|21|22|23|24|25\r\n");
  EXPECT_EQ(w.form.InfoName.rect(), (TwipsRect{2, 1, 3, 4}));
  EXPECT_EQ(w.form.InfoTime.rect(), (TwipsRect{12, 11, 13, 14}));
  EXPECT_EQ(w.form.InfoNaladit.rect(), (TwipsRect{22, 21, 23, 24}));
  EXPECT_EQ(w.form.InfoName.text_colour(), Colour{5});
  EXPECT_EQ(w.form.InfoTime.text_colour(), Colour{15});
  EXPECT_EQ(w.form.InfoNaladit.text_colour(), Colour{25});
}

TEST_F(SkinTest, TheWordsOfALineAreReadWhateverTheirCase) {
  using Seen = base::KeptSkinFields::LogoSeen;
  const auto& kept = w.session.skin;
  load("Control_List|SHOW|1|2|HidePlay|3|4|5|6\r\nLTDisplay|Show|1|2|ShowEvery|ShowIfNullList\r\n"
       "Orbwww|shoW|1|2|SHOWEVERY\r\n");
  EXPECT_TRUE(kept.list && kept.list_hidden_while_playing);
  EXPECT_TRUE(kept.display && kept.display_while_stopped && kept.display_behind_empty_list);
  EXPECT_TRUE(kept.logo);
  EXPECT_EQ(kept.logo_seen, Seen::always);
  load("Control_List|shown|1|2|hideplay |3|4|5|6\r\nLTDisplay||1|2|showstop|\r\nOrbwww|hide|1|2|\r\nInfoStatus|2\r\n");
  EXPECT_FALSE(kept.list || kept.list_hidden_while_playing || kept.display || kept.display_while_stopped ||
               kept.display_behind_empty_list || kept.logo || kept.status_has_first_layout)
      << "any other word is none of these";
  EXPECT_EQ(kept.logo_seen, Seen::while_playing);
}

TEST_F(SkinTest, TheDisplaysShowFieldIsKept) {
  load("LTDisplay|show|1|2|showevery\r\n");
  EXPECT_TRUE(w.session.skin.display);
  w.look.ZobrazCoMas(L"Zapnout");
  EXPECT_TRUE(w.form.LTDisplay.visible());
}

TEST_F(SkinTest, TheListFollowsThePlayState) {
  load("Control_List|show|600|240|hideplay|5820|1800|255|16711680\r\n");
  w.look.ZobrazCoMas(L"Stop");
  EXPECT_FALSE(w.form.Control_List.visible());
  EXPECT_TRUE(w.form.LTDisplay.visible()) << "seen even without a line of its own";
  w.look.ZobrazCoMas(L"Zapnout");
  EXPECT_TRUE(w.form.Control_List.visible());
  EXPECT_FALSE(w.form.LTDisplay.visible());
}

TEST_F(SkinTest, TheFirstMatchingNameOfALineWinsAndRepeatedLinesApplyInTurn) {
  load("Control_Menu|show|10|20\r\nControl_Menu|show|30|40\r\n");
  EXPECT_EQ(w.form.Control_Menu.rect().top, 30);
}

TEST_F(SkinTest, SurvivesABinaryFile) {
  std::string bytes;
  for (int i = 0; i < 20000; ++i)
    bytes += static_cast<char>(i * 37 % 256);
  load(bytes);
  SUCCEED();
}

TEST_F(SkinTest, VolumeShowsItsPicture) {
  load("Control_Volume|show|1|2\r\n");
  const std::pair<int, int> levels[] = {{0, 0},  {1, 1},  {20, 1}, {21, 2}, {40, 2}, {41, 3},
                                        {60, 3}, {61, 4}, {80, 4}, {81, 5}, {100, 5}};
  for (const auto& [percent, level] : levels) {
    w.look.SkinVolume(percent);
    EXPECT_EQ(w.file_name(w.form.Control_Volume.picture()), L"vol" + std::to_wstring(level) + L".gif") << percent;
  }
}

TEST_F(SkinTest, ThePlayPictureFollowsTheButton) {
  load("Control_Play|show|1|2\r\n");
  w.look.ZobrazCoMas(L"sTOP");
  EXPECT_EQ(w.file_name(w.form.Control_Play.picture()), L"stop.gif");
  w.look.ZobrazCoMas(L"Zapnout");
  EXPECT_EQ(w.file_name(w.form.Control_Play.picture()), L"play.gif");
  w.look.ZobrazCoMas(L"Stop");
  w.look.load_play_picture();
  EXPECT_EQ(w.file_name(w.form.Control_Play.picture()), L"play.gif");
}

} // namespace
} // namespace lumotune::test
