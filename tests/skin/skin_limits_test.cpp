// SPDX-License-Identifier: LGPL-2.1-or-later
// Of a skin that asks for too much nothing is used.
#include "tests/skin/loaded_skin.h"

namespace lumotune::test {
namespace {

struct SkinLimitsTest : LoadedSkin {
  void expect_refused(const std::string& why) {
    load("Control_Menu|show|1|2\r\nLTform|6300|3480\r\n");
    EXPECT_FALSE(w.form.Control_Menu.visible());
    EXPECT_NE(w.window.rect().width, 6300);
    EXPECT_NE(w.log().find(why), std::string::npos) << w.log();
  }
};

TEST_F(SkinLimitsTest, ADescriptionOfOneMebibyteIsReadAndALargerOneNot) {
  const std::string line = "Control_Menu|show|1|2\r\n";
  load(line + std::string(1024 * 1024 - line.size(), 'x'));
  EXPECT_TRUE(w.form.Control_Menu.visible());
  load(line + std::string(1024 * 1024 - line.size() + 1, 'x'));
  EXPECT_FALSE(w.form.Control_Menu.visible());
  EXPECT_NE(w.log().find("Tmava.skin: larger than 1 MiB"), std::string::npos);
}

TEST_F(SkinLimitsTest, APictureOfMoreThanEightAndAHalfMegapixelsIsRefused) {
  w.picture(L"Tmava", L"sat", gif(3400, 2500));
  load("Control_Sat|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Sat.visible()) << "8,500,000 pixels";
  w.picture(L"Tmava", L"sat", gif(3401, 2500));
  expect_refused("sat.gif: more than 8.5 megapixels");
}

TEST_F(SkinLimitsTest, ALargePictureThatIsShownLaterCountsAsWell) {
  w.picture(L"Tmava", L"vol5", gif(65535, 65535));
  expect_refused("vol5.gif: more than 8.5 megapixels");
}

TEST_F(SkinLimitsTest, PicturesOfMoreThan24MegapixelsTogetherAreRefused) {
  for (const wchar_t* name : {L"vol0", L"vol1", L"vol2"})
    w.picture(L"Tmava", name, gif(3200, 2495)); // 7,984,000 each; the other sixteen have 200
  load("Control_Menu|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Menu.visible());
  w.picture(L"Tmava", L"vol2", gif(3215, 2500));
  expect_refused("Tmava: pictures of more than 24 megapixels");
}

TEST_F(SkinLimitsTest, PicturesOfTwiceTheSizeCountWhereTheyAreRead) {
  for (const wchar_t* name : {L"vol0@2x", L"vol1@2x", L"vol2@2x"})
    w.picture(L"Tmava", name, gif(3215, 2500));
  load("Control_Menu|show|1|2\r\n");
  EXPECT_TRUE(w.form.Control_Menu.visible());
  w.window.twips_per_pixel = 10;
  expect_refused("Tmava: pictures of more than 24 megapixels");
  w.picture(L"Tmava", L"vol2@2x", gif(3401, 2500));
  expect_refused("vol2@2x.gif: more than 8.5 megapixels");
}

TEST_F(SkinLimitsTest, AWindowLargerThanTenWorkAreasIsRefused) {
  w.window.monitors = {{0, 0, 12000, 9000}};
  load("LTform|90000|12000\r\nControl_Menu|show|1|2\r\n");
  EXPECT_EQ(w.window.rect().width, 90000) << "ten times the area";
  for (const char* form :
       {"LTform|90001|12000\r\n", "ltform|120000|100\r\nLTform|120001|1\r\nLTform|110000|90000\r\n"}) {
    load(std::string("Control_Menu|show|1|2\r\n") + form);
    EXPECT_FALSE(w.form.Control_Menu.visible()) << form;
    EXPECT_EQ(w.window.rect().width, 6000) << form;
  }
  w.window.monitors = {{0, 0, 9000, 9000}};
  load("LTform|90001|1\r\n");
  EXPECT_EQ(w.window.rect().width, 6000) << "a side";
  EXPECT_NE(w.log().find("Tmava.skin: window larger than ten work areas"), std::string::npos);
}

TEST_F(SkinLimitsTest, WithoutAMonitorTheSizeIsTaken) {
  w.window.monitors.clear();
  load("LTform|6300|3480\r\n");
  EXPECT_EQ(w.window.rect().width, 6300);
}

} // namespace
} // namespace lumotune::test
