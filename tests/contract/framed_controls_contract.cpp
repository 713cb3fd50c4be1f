// SPDX-License-Identifier: LGPL-2.1-or-later
// The controls of a framed window.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace lumotune::contract {
namespace {

using platform::Colour;
using platform::LabelFont;
using platform::LabelKind;
using platform::PictureKind;
using platform::TwipsRect;

struct FramedControlsContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
};

TEST_F(FramedControlsContract, EveryControlHasItsNameAndIsSeen) {
  const platform::Control* controls[] = {&window->make_tree(L"A"),
                                         &window->make_list_view(L"B"),
                                         &window->make_label(L"C", LabelKind::link, LabelFont::heading),
                                         &window->make_button(L"D"),
                                         &window->make_picture(L"E", PictureKind::button),
                                         &window->make_text_box(L"F"),
                                         &window->make_progress(L"G"),
                                         &window->make_frame(L"H"),
                                         &window->make_browser(L"I"),
                                         &window->make_text_entry(L"J")};
  std::wstring names;
  for (const auto* control : controls) {
    names += control->name();
    EXPECT_TRUE(control->visible());
    EXPECT_TRUE(control->enabled());
  }
  EXPECT_EQ(names, L"ABCDEFGHIJ");
}

TEST_F(FramedControlsContract, EveryControlKeepsWhatItIsGiven) {
  platform::Control* controls[] = {&window->make_tree(L"A"),
                                   &window->make_list_view(L"B"),
                                   &window->make_label(L"C", LabelKind::text, {}),
                                   &window->make_button(L"D"),
                                   &window->make_text_box(L"F"),
                                   &window->make_progress(L"G"),
                                   &window->make_frame(L"H"),
                                   &window->make_browser(L"I"),
                                   &window->make_label(L"J", LabelKind::link, {}),
                                   &window->make_text_entry(L"K"),
                                   &window->make_picture(L"E", PictureKind::decoration)};
  for (auto* control : controls) {
    control->move(150, 300);
    control->resize(3000, 1500);
    control->set_text(L"Rádio & přátelé");
    control->set_tooltip(L"celé jméno");
    control->set_visible(false);
    control->set_enabled(false);
    EXPECT_EQ(control->rect(), (TwipsRect{150, 300, 3000, 1500})) << static_cast<char>(control->name()[0]);
    EXPECT_EQ(control->text(), L"Rádio & přátelé");
    EXPECT_EQ(control->tooltip(), L"celé jméno");
    EXPECT_FALSE(control->visible());
    EXPECT_FALSE(control->enabled());
  }
}

TEST_F(FramedControlsContract, NoSizeIsTooLarge) {
  auto& browser = window->make_browser(L"WebBrowser1");
  window->set_visible(true);
  constexpr int most = 2147483647;
  for (const int size : {most, -most, 0}) {
    browser.move(most, size);
    browser.resize(size, most);
    b.loop.run_pending();
    EXPECT_EQ(browser.rect(), (TwipsRect{most, size, std::max(size, 0), most}));
    window->resize(most, size);
    window->set_minimum(size, most);
  }
}

TEST_F(FramedControlsContract, ALabelHasItsLook) {
  auto& label = window->make_label(L"Label4", LabelKind::link, LabelFont::normal);
  label.set_underline(true);
  label.set_bold(true);
  label.set_text_colour(Colour{0xc00000});
  EXPECT_TRUE(label.underline());
  EXPECT_TRUE(label.bold());
  EXPECT_EQ(label.text_colour(), Colour{0xc00000});
  label.set_text_colour(Colour{0});
  EXPECT_EQ(label.text_colour(), Colour{0});
}

// What cannot be seen is announced as well: a status line that has no room at the moment still tells the blind.
TEST_F(FramedControlsContract, ALabelIsAnnouncedWhetherOrNotItIsSeen) {
  auto& label = window->make_label(L"Label1", LabelKind::text, {});
  const auto told = [&] { return b.announced(*window, label, [&] { label.announce(); }); };
  EXPECT_EQ(told(), 1U) << "in a hidden window, without a size";
  window->set_visible(true);
  EXPECT_EQ(told(), 1U) << "without a size";
  label.resize(1500, 300);
  EXPECT_EQ(told(), 1U);
  label.set_visible(false);
  EXPECT_EQ(told(), 1U) << "hidden";
  EXPECT_EQ(b.announced(*window, label, [&] { label.set_text(L"Novinka"); }), 0U) << "a text alone tells nothing";
}

TEST_F(FramedControlsContract, AButtonIsPressedUnlessItIsDisabled) {
  auto& button = window->make_button(L"Command1");
  int pressed = 0;
  button.on_click = [&] { ++pressed; };
  button.press();
  EXPECT_EQ(pressed, 1);
  button.set_enabled(false);
  button.press();
  EXPECT_EQ(pressed, 1);
}

TEST_F(FramedControlsContract, ProgressStaysBetweenNothingAndAll) {
  auto& progress = window->make_progress(L"Progress");
  EXPECT_EQ(progress.percent(), 0);
  progress.set_percent(37);
  EXPECT_EQ(progress.percent(), 37);
  progress.set_percent(1000);
  EXPECT_EQ(progress.percent(), 100);
  progress.set_percent(-5);
  EXPECT_EQ(progress.percent(), 0);
}

TEST_F(FramedControlsContract, ATextBoxTakesAnyText) {
  auto& box = window->make_text_box(L"Text1");
  box.resize(3000, 1500);
  for (const std::wstring& text : {std::wstring(L"jeden\ndva\r\ntři\rčtyři"), std::wstring(1000000, L'ž'),
                                   std::wstring(L"a\0b", 3), std::wstring()}) {
    box.set_text(text);
    EXPECT_EQ(box.text(), text);
  }
}

TEST_F(FramedControlsContract, AHugeTextHarmsNoLabel) {
  auto& label = window->make_label(L"Label2", LabelKind::text, LabelFont::heading);
  label.resize(3000, 1500);
  window->set_visible(true);
  const std::wstring huge(1000000, L'x');
  label.set_text(huge);
  label.set_tooltip(huge);
  b.loop.run_pending();
  EXPECT_EQ(label.text(), huge);
}

} // namespace
} // namespace lumotune::contract
