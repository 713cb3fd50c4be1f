// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

using platform::Colour;
using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;
using platform::TwipsRect;

// A whole GIF of two by three pixels, the first of them clear.
const std::string small_gif = std::string("GIF89a\x02\0\x03\0\x80\0\0\xff\xff\xff\0\0\0!\xf9\x04\x01\0\0\0\0", 27) +
                              std::string(",\0\0\0\0\x02\0\x03\0\0\x02\x03\x44\x7e\x05\0;", 17);

struct WindowContract : testing::Test {
  Backend b;
};

TEST_F(WindowContract, IsMadeHiddenAndNormal) {
  EXPECT_FALSE(b.window.visible());
  EXPECT_EQ(b.window.state(), platform::WindowState::normal);
}

TEST_F(WindowContract, KeepsCaptionPlaceAndSize) {
  b.window.set_caption(L"Pokus č. 1");
  EXPECT_EQ(b.window.caption(), L"Pokus č. 1");
  b.window.move(1500, 2250);
  b.window.resize(6000, 3000);
  EXPECT_EQ(b.window.rect(), (TwipsRect{1500, 2250, 6000, 3000}));
  b.window.resize(-5, 10);
  EXPECT_EQ(b.window.rect().width, 0);
}

TEST_F(WindowContract, KnowsWhetherAPlaceCanBeSeen) {
  b.window.resize(6000, 3000);
  EXPECT_TRUE(b.window.on_some_monitor(1500, 1500));
  EXPECT_FALSE(b.window.on_some_monitor(900000, 900000));
  EXPECT_FALSE(b.window.on_some_monitor(-6000, 0)) << "just out of sight";
  EXPECT_FALSE(b.window.on_some_monitor(-2000000, 2000000));
}

TEST_F(WindowContract, TheWorkAreaIsAPlaceForWindows) {
  const TwipsRect work = b.window.work_area();
  EXPECT_GT(work.width, 6000);
  EXPECT_GT(work.height, 3000);
  b.window.resize(6000, 3000);
  EXPECT_TRUE(b.window.on_some_monitor(work.left, work.top));
}

TEST_F(WindowContract, TellsAPicturesPixelsWithoutDecodingIt) {
  const std::wstring picture = b.folder + L"\\obrázek.gif";
  EXPECT_EQ(b.window.picture_pixels(picture), 0) << "there is none";
  EXPECT_TRUE(b.files.replace(picture, std::string("GIF89a\x20\x03\x58\x02", 10)));
  EXPECT_EQ(b.window.picture_pixels(picture), 800 * 600);
  EXPECT_EQ(b.window.shown_pixels(b.files.read(picture).value_or("")), 0) << "a header alone";
  EXPECT_TRUE(b.files.replace(picture, "GIF89a\x20"));
  EXPECT_EQ(b.window.picture_pixels(picture), 0);
}

TEST_F(WindowContract, APictureThatIsTooLargeIsNone) {
  const std::wstring picture = b.folder + L"\\obrázek.gif";
  EXPECT_TRUE(b.files.replace(picture, std::string("GIF89a\xff\xff\xff\xff", 10)));
  EXPECT_FALSE(b.window.load_background(picture));
  EXPECT_EQ(b.window.background(), L"");
}

TEST_F(WindowContract, HidesAndComesBackInPlace) {
  b.window.resize(6000, 3000);
  b.window.move(3000, 3000);
  b.window.set_visible(true);
  EXPECT_TRUE(b.until([this] { return b.window.visible(); }));
  b.window.set_state(platform::WindowState::minimized);
  b.window.set_visible(false);
  EXPECT_TRUE(b.until([this] { return !b.window.visible(); }));
  EXPECT_EQ(b.window.rect(), (TwipsRect{3000, 3000, 6000, 3000}));
  b.window.set_visible(true);
  b.window.set_state(platform::WindowState::normal);
  b.pass(300);
  EXPECT_TRUE(b.window.visible());
  EXPECT_EQ(b.window.state(), platform::WindowState::normal);
  EXPECT_EQ(b.window.rect(), (TwipsRect{3000, 3000, 6000, 3000}));
}

TEST_F(WindowContract, ComesIntoViewWhenItIsShownWhereNoMonitorIs) {
  b.window.resize(6000, 3000);
  b.window.move(90000, 90000);
  EXPECT_EQ(b.window.rect().left, 90000) << "out of sight it may lie anywhere";
  b.window.set_visible(true);
  b.pass(500);
  const auto place = b.window.rect();
  EXPECT_TRUE(b.window.on_some_monitor(place.left, place.top)) << place.left << ", " << place.top;
  EXPECT_EQ(place.width, 6000);
}

TEST_F(WindowContract, AHiddenWindowStaysHidden) {
  b.window.set_state(platform::WindowState::minimized);
  EXPECT_FALSE(b.window.visible());
  EXPECT_EQ(b.window.state(), platform::WindowState::minimized);
  b.window.set_state(platform::WindowState::normal);
  b.window.activate();
  b.window.redraw();
  b.loop.run_pending();
  EXPECT_FALSE(b.window.visible());
  b.window.set_state(platform::WindowState::minimized);
  b.window.set_visible(true);
  EXPECT_TRUE(b.until([this] { return b.window.state() == platform::WindowState::normal; }))
      << "showing brings it back from the icon";
}

TEST_F(WindowContract, GoesIntoTheTopmostLayerAndBack) {
  EXPECT_TRUE(b.window.set_topmost(true));
  EXPECT_TRUE(b.window.topmost());
  EXPECT_TRUE(b.window.set_topmost(false));
  EXPECT_FALSE(b.window.topmost());
}

TEST_F(WindowContract, ControlsKeepWhatTheyAreGiven) {
  auto& label = b.window.make_label(L"InfoName", LabelKind::link, LabelFont::heading);
  EXPECT_EQ(label.name(), L"InfoName");
  EXPECT_TRUE(label.visible());
  EXPECT_TRUE(label.enabled());
  label.set_text(L"Rádio & přátelé");
  label.set_tooltip(L"celé jméno & víc");
  label.move(30, 45);
  label.resize(600, 300);
  label.set_text_colour(Colour{0x123456});
  label.set_underline(true);
  label.set_visible(false);
  label.set_enabled(false);
  EXPECT_EQ(label.text(), L"Rádio & přátelé");
  EXPECT_EQ(label.tooltip(), L"celé jméno & víc");
  EXPECT_EQ(label.rect(), (TwipsRect{30, 45, 600, 300}));
  EXPECT_EQ(label.text_colour(), Colour{0x123456});
  EXPECT_TRUE(label.underline());
  EXPECT_FALSE(label.visible());
  EXPECT_FALSE(label.enabled());
  label.resize(-1, -1);
  EXPECT_EQ(label.rect().width, 0);
}

TEST_F(WindowContract, VisibilityIsTheControlsOwn) {
  auto& label = b.window.make_label(L"A", LabelKind::text, LabelFont::normal);
  EXPECT_TRUE(label.visible()) << "although the window is hidden";
}

TEST_F(WindowContract, APictureTakesTheSizeOfItsFile) {
  auto& picture = b.window.make_picture(L"Obraz", PictureKind::button);
  const std::wstring path = b.folder + L"\\obraz.gif";
  ASSERT_TRUE(b.files.replace(path, small_gif));
  EXPECT_TRUE(picture.load_picture(path));
  EXPECT_EQ(picture.picture(), path);
  EXPECT_EQ(picture.rect(), (TwipsRect{0, 0, 30, 45}));
  EXPECT_TRUE(b.window.load_background(path));
  EXPECT_EQ(b.window.background(), path);
  EXPECT_TRUE(b.files.remove(path));
}

TEST_F(WindowContract, AMissingOrTornPictureLeavesTheOldOne) {
  auto& picture = b.window.make_picture(L"Obraz", PictureKind::decoration);
  const std::wstring path = b.folder + L"\\obraz.gif";
  const std::wstring torn = b.folder + L"\\roztrzeny.gif";
  ASSERT_TRUE(b.files.replace(path, small_gif));
  ASSERT_TRUE(b.files.replace(torn, "tohle neni obrazek"));
  EXPECT_TRUE(picture.load_picture(path));
  EXPECT_FALSE(picture.load_picture(torn));
  EXPECT_FALSE(picture.load_picture(b.folder + L"\\neni.gif"));
  EXPECT_EQ(picture.picture(), path);
  EXPECT_FALSE(b.window.load_background(torn));
  EXPECT_TRUE(b.files.remove(path));
  EXPECT_TRUE(b.files.remove(torn));
}

TEST_F(WindowContract, APictureIsReadAnewEachTimeItIsLoaded) {
  auto& picture = b.window.make_picture(L"Obraz", PictureKind::button);
  const std::wstring path = b.folder + L"\\obraz.gif";
  ASSERT_TRUE(b.files.replace(path, small_gif));
  ASSERT_TRUE(picture.load_picture(path));
  ASSERT_TRUE(b.window.load_background(path));
  std::string wider = small_gif; // the pixels it now lacks are clear
  wider[6] = '\x04';
  ASSERT_TRUE(b.files.replace(path, wider));
  EXPECT_TRUE(picture.load_picture(path));
  EXPECT_EQ(picture.rect(), (TwipsRect{0, 0, 60, 45}));
  EXPECT_TRUE(b.window.load_background(path));
  ASSERT_TRUE(b.files.remove(path));
  EXPECT_FALSE(picture.load_picture(path));
  EXPECT_FALSE(b.window.load_background(path));
  EXPECT_EQ(picture.rect().width, 60) << "the old one stays";
}

TEST_F(WindowContract, APictureThatEndsInItsMiddleIsNone) {
  auto& picture = b.window.make_picture(L"Obraz", PictureKind::button);
  const std::wstring path = b.folder + L"\\obraz.gif";
  ASSERT_TRUE(b.files.replace(path, small_gif.substr(0, small_gif.size() - 5)));
  EXPECT_FALSE(picture.load_picture(path));
  EXPECT_FALSE(b.window.load_background(path));
  std::string long_side = small_gif; // 4098 x 3: few pixels, but a side too long
  long_side[7] = '\x10';
  ASSERT_TRUE(b.files.replace(path, long_side));
  EXPECT_FALSE(picture.load_picture(path));
  EXPECT_FALSE(b.window.load_background(path));
  EXPECT_EQ(picture.picture(), L"");
}

TEST_F(WindowContract, AClearedPictureLeavesNothing) {
  auto& picture = b.window.make_picture(L"Obraz", PictureKind::button);
  const std::wstring path = b.folder + L"\\obraz.gif";
  ASSERT_TRUE(b.files.replace(path, small_gif));
  ASSERT_TRUE(picture.load_picture(path));
  ASSERT_TRUE(b.window.load_background(path));
  picture.move(150, 75);
  picture.clear_picture();
  EXPECT_EQ(picture.picture(), L"");
  EXPECT_EQ(picture.rect(), (TwipsRect{150, 75, 0, 0}));
  b.window.clear_background();
  EXPECT_EQ(b.window.background(), L"");
  EXPECT_TRUE(picture.load_picture(path));
  EXPECT_EQ(picture.rect(), (TwipsRect{150, 75, 30, 45}));
}

TEST_F(WindowContract, AListHoldsItsItems) {
  auto& list = b.window.make_list(L"Seznam");
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(list.selected(), platform::ListBox::none);
  int clicks = 0;
  list.on_click = [&] { ++clicks; };
  list.add(L"Žluté");
  list.add(std::wstring(93, L' ') + L"data za okrajem");
  EXPECT_EQ(list.count(), 2U);
  EXPECT_EQ(list.item(0), L"Žluté");
  EXPECT_EQ(list.item(1).substr(93), L"data za okrajem");
  EXPECT_EQ(list.item(2), L"");
  list.select(1);
  EXPECT_EQ(list.selected(), 1U);
  list.select(99);
  EXPECT_EQ(list.selected(), platform::ListBox::none);
  EXPECT_EQ(clicks, 0) << "selecting by program is no click";
  list.set_colours(Colour{1}, Colour{2});
  EXPECT_EQ(list.background_colour(), Colour{1});
  EXPECT_EQ(list.text_colour(), Colour{2});
  list.clear();
  EXPECT_EQ(list.count(), 0U);
}

TEST_F(WindowContract, AListTakesAllItsItemsAtOnce) {
  auto& list = b.window.make_list(L"Seznam");
  int clicks = 0;
  list.on_click = [&] { ++clicks; };
  list.add(L"starý");
  list.select(0);
  list.set_items({L"Žluté", L"", L"třetí"});
  EXPECT_EQ(list.count(), 3U);
  EXPECT_EQ(list.item(0), L"Žluté");
  EXPECT_EQ(list.item(1), L"");
  EXPECT_EQ(list.item(2), L"třetí");
  EXPECT_EQ(list.selected(), platform::ListBox::none);
  list.set_visible(false);
  list.set_items({L"jediný"});
  EXPECT_FALSE(list.visible());
  EXPECT_EQ(list.count(), 1U);
  list.set_items({});
  EXPECT_EQ(list.count(), 0U);
  EXPECT_EQ(clicks, 0);
}

TEST_F(WindowContract, AListKnowsWhichItemIsAtAPlace) {
  auto& list = b.window.make_list(L"Control_List");
  list.resize(3000, 1500);
  b.window.set_visible(true);
  list.set_items({L"První", L"Druhá", L"Třetí"});
  EXPECT_EQ(list.item_at(30, 30), 0U);
  EXPECT_EQ(list.item_at(2500, 330), 1U);
  EXPECT_EQ(list.item_at(30, 870), 2U);
  EXPECT_EQ(list.item_at(30, 930), platform::ListBox::none) << "below the last one";
  EXPECT_EQ(list.item_at(30, 1600), platform::ListBox::none) << "below the control";
  EXPECT_EQ(list.item_at(-30, 30), platform::ListBox::none);
  EXPECT_EQ(list.item_at(30, -30), platform::ListBox::none);
  EXPECT_EQ(list.item_at(3100, 30), platform::ListBox::none);
}

TEST_F(WindowContract, AHiddenButtonCanBePressedADisabledOneNot) {
  auto& button = b.window.make_button(L"PlayTL");
  int pressed = 0;
  button.on_click = [&] { ++pressed; };
  button.set_visible(false);
  button.press();
  EXPECT_EQ(pressed, 1);
  button.set_enabled(false);
  button.press();
  EXPECT_EQ(pressed, 1);
}

} // namespace
} // namespace lumotune::contract
