// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/clipboard.h"
#include "player/gestures.h"
#include "tests/support/player_world.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using platform::WindowKey;

struct GesturesTest : testing::Test {
  PlayerWorld w;
  platform::memory::Clipboard clipboard;
  player::FavouriteLists favourite_lists{{w.folder, w.station_files, w.dialogs, w.favourites}};
  player::Gestures gestures{
      {w.settings, w.form, w.folder, w.shell, w.dialogs, clipboard, w.player, w.playback, w.status, favourite_lists}};

  GesturesTest() {
    w.player.set_auto_start(false);
    w.settings.LTvolume = L"40";
    w.form.InfoStatus.resize(3000, 300);
    w.session.skin.status_height_1 = w.session.skin.status_height_2 = 300;
  }
  void play(const std::wstring& title) {
    w.playback.PlayAll(L"http://a");
    platform::StreamStatus status;
    status.phase = platform::StreamPhase::playing;
    status.title = title;
    w.player.reported = status;
  }
};

TEST_F(GesturesTest, TheWheelChangesTheVolumeByFiveANotch) {
  gestures.wheel(1);
  EXPECT_EQ(w.player.volume(), 45);
  EXPECT_EQ(w.settings.LTvolume, L"45");
  EXPECT_TRUE(w.did(L"SkinVolume 45"));
  gestures.wheel(-3);
  EXPECT_EQ(w.player.volume(), 30);
  gestures.wheel(1000000000);
  EXPECT_EQ(w.player.volume(), 100);
  gestures.wheel(-1000000000);
  EXPECT_EQ(w.player.volume(), 0);
}

TEST_F(GesturesTest, ArrowsChangeTheVolumeAndItIsTold) {
  play(L"");
  gestures.key(WindowKey::up);
  EXPECT_EQ(w.player.volume(), 45);
  EXPECT_EQ(w.form.InfoStatus.text(), L"Hlasitost 45 %");
  gestures.key(WindowKey::down);
  gestures.key(WindowKey::down);
  EXPECT_EQ(w.player.volume(), 35);
  EXPECT_EQ(w.form.InfoStatus.text(), L"Hlasitost 35 %");
}

TEST_F(GesturesTest, WhereTheLineIsHiddenThePictureIsEnough) {
  w.form.InfoStatus.set_visible(false);
  gestures.wheel(1);
  EXPECT_EQ(w.player.volume(), 45);
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(GesturesTest, SpaceAndTheMiddleButtonPlayAndStop) {
  gestures.key(WindowKey::space);
  gestures.middle_click();
  EXPECT_FALSE(w.player.playing()) << "nothing is prepared";
  w.playback.PripravHrani(L"http://a");
  gestures.key(WindowKey::space);
  EXPECT_TRUE(w.player.playing());
  gestures.middle_click();
  EXPECT_FALSE(w.player.playing());
  EXPECT_EQ(w.form.PlayTL.text(), L"Zapnout");
}

TEST_F(GesturesTest, F1OpensTheManualBesideTheProgram) {
  w.put(L"prirucka.html", "<html>");
  gestures.key(WindowKey::f1);
  EXPECT_EQ(w.shell.opened, std::vector<std::wstring>{L"\"C:\\Orb\\prirucka.html\""});
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(GesturesTest, AManualThatIsMissingOrCannotBeShownIsTold) {
  w.form.InfoStatus.set_visible(false);
  gestures.key(WindowKey::f1);
  EXPECT_TRUE(w.shell.opened.empty());
  ASSERT_EQ(w.dialogs.shown.size(), 1U);
  EXPECT_EQ(w.dialogs.shown[0].text, player::manual_missing);
  w.put(L"prirucka.html", "<html>");
  w.shell.open_answer = 31;
  gestures.key(WindowKey::f1);
  EXPECT_EQ(w.dialogs.shown.size(), 2U);
}

TEST_F(GesturesTest, CtrlCCopiesTheTitleThatPlays) {
  play(L"Jaromír Nohavica - Kometa");
  gestures.key(WindowKey::ctrl_c);
  EXPECT_EQ(clipboard.text, L"Jaromír Nohavica - Kometa");
  EXPECT_EQ(w.form.InfoStatus.text(), player::title_copied);
}

TEST_F(GesturesTest, CtrlEExportsTheFavourites) {
  gestures.key(WindowKey::ctrl_e);
  EXPECT_EQ(w.get(L"oblibene.m3u"), "#EXTM3U\r\n");
}

TEST_F(GesturesTest, WithoutATitleTheClipboardStaysAsItIs) {
  clipboard.text = L"moje";
  play(L"");
  gestures.key(WindowKey::ctrl_c);
  EXPECT_EQ(clipboard.text, L"moje");
  EXPECT_EQ(w.form.InfoStatus.text(), player::title_unknown);
}

TEST_F(GesturesTest, AClipboardThatAnotherProgramHoldsIsTold) {
  clipboard.held = true;
  play(L"a");
  gestures.key(WindowKey::ctrl_c);
  EXPECT_EQ(w.form.InfoStatus.text(), player::clipboard_held);
}

} // namespace
} // namespace lumotune::test
