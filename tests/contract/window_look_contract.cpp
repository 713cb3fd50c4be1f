// SPDX-License-Identifier: LGPL-2.1-or-later
// What a skin gives the controls of the main window beside place, picture and colour.
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

namespace lumotune::contract {
namespace {

TEST(WindowLookContract, ControlsKeepTheLooksTheyAreGiven) {
  Backend b;
  auto& button = b.window.make_picture(L"Control_Rec", platform::PictureKind::button);
  auto& display = b.window.make_picture(L"LTDisplay", platform::PictureKind::decoration);
  auto& label = b.window.make_label(L"InfoName", platform::LabelKind::link, platform::LabelFont::heading);
  auto& list = b.window.make_list(L"Control_List");
  EXPECT_FALSE(button.neutral());
  EXPECT_FALSE(button.closes());
  EXPECT_FALSE(display.needle());
  EXPECT_EQ(label.alignment(), platform::Alignment::left);
  EXPECT_EQ(label.pointed_to(), nullptr);
  EXPECT_FALSE(list.accent());
  EXPECT_EQ(list.mark(), L"");
  button.set_neutral(true);
  button.set_closes(true);
  display.set_needle(platform::Needle{1, 2, 3, platform::Colour{4}});
  label.set_alignment(platform::Alignment::right);
  label.point_to(&button);
  list.set_accent(platform::Colour{5});
  list.set_mark(L"1LUMO01");
  EXPECT_TRUE(button.neutral());
  EXPECT_TRUE(button.closes());
  EXPECT_EQ(display.needle(), (platform::Needle{1, 2, 3, platform::Colour{4}}));
  EXPECT_EQ(label.alignment(), platform::Alignment::right);
  EXPECT_EQ(label.pointed_to(), &button);
  EXPECT_EQ(list.accent(), platform::Colour{5});
  EXPECT_EQ(list.mark(), L"1LUMO01");
  display.set_needle(std::nullopt);
  EXPECT_FALSE(display.needle());
}

} // namespace
} // namespace lumotune::contract
