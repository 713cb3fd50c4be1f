// SPDX-License-Identifier: LGPL-2.1-or-later
// What only the real backend's boxes have: the system's controls, pictures, the end of the program.
#include "tests/contract/fixture_hand.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::contract {
namespace {

struct Win32Boxes : testing::Test {
  HandBackend b;
};

TEST_F(Win32Boxes, TheInputBoxIsBuiltAsItShouldBe) {
  b.show_in_front();
  std::wstring prompt;
  std::wstring title;
  std::wstring text;
  bool owner_enabled = true;
  bool marked = false;
  b.while_open([&] {
    const HWND box = seen_windows(L"#32770").front();
    title = text_of(box);
    prompt = text_of(GetDlgItem(box, 100));
    text = text_of(GetDlgItem(box, 101));
    EXPECT_EQ(text_of(GetDlgItem(box, IDOK)), L"OK");
    EXPECT_EQ(text_of(GetDlgItem(box, IDCANCEL)), L"Storno");
    EXPECT_EQ(GetFocus(), GetDlgItem(box, 101));
    EXPECT_NE(GetWindowLongPtrW(GetDlgItem(box, 100), GWL_STYLE) & SS_NOPREFIX, 0);
    owner_enabled = IsWindowEnabled(b.window.handle()) != 0;
    marked = GetPropW(box, L"InputBox.Form") != nullptr && GetPropW(GetFocus(), L"InputBox.Text") != nullptr;
  });
  b.cancel();
  EXPECT_EQ(b.input_box.ask(L"Lumotune & console", L"Lumotune - rádio", L"vol=50"), std::nullopt);
  EXPECT_EQ(title, L"Lumotune - rádio");
  EXPECT_EQ(prompt, L"Lumotune & console");
  EXPECT_EQ(text, L"vol=50");
  EXPECT_FALSE(owner_enabled);
  EXPECT_TRUE(marked);
  EXPECT_NE(IsWindowEnabled(b.window.handle()), 0);
  EXPECT_TRUE(seen_windows(L"#32770").empty());
}

TEST_F(Win32Boxes, TheInputBoxClosesByItsCaptionAndByItsButtons) {
  b.hand.add([] { return !seen_windows(L"#32770").empty(); });
  b.hand.add([] {
    PostMessageW(seen_windows(L"#32770").front(), WM_CLOSE, 0, 0);
    return true;
  });
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"x"), std::nullopt);
  b.hand.add([] { return !seen_windows(L"#32770").empty(); });
  b.hand.add([] {
    PostMessageW(GetDlgItem(seen_windows(L"#32770").front(), IDOK), BM_CLICK, 0, 0);
    return true;
  });
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"x"), L"x");
}

TEST_F(Win32Boxes, TheEndOfTheProgramClosesTheInputBox) {
  const auto ending = b.loop.make_timer(100, [&] { b.loop.quit(); });
  ending->start();
  b.hand.add([] { return false; }); // should it stay open, the hand closes it in the end
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"x"), std::nullopt);
  EXPECT_EQ(b.input_box.ask(L"Dotaz", L"Okno", L"x"), std::nullopt) << "none opens any more";
}

TEST_F(Win32Boxes, TheEndOfTheProgramClosesABox) {
  const auto ending = b.loop.make_timer(100, [&] { b.loop.quit(); });
  ending->start();
  b.hand.add([] { return false; }); // should it stay open, the hand closes it in the end
  EXPECT_EQ(b.dialogs.message(L"Otázka", L"Okno", platform::BoxIcon::information, platform::BoxButtons::yes_no),
            platform::BoxAnswer::no);
  b.loop.run_pending();
  EXPECT_TRUE(seen_windows(L"#32770").empty());
  EXPECT_EQ(b.dialogs.message(L"Zpráva", L"Okno", platform::BoxIcon::none, platform::BoxButtons::ok),
            platform::BoxAnswer::ok)
      << "none opens any more";
}

TEST_F(Win32Boxes, ABoxShowsItsTextAndTitle) {
  std::wstring title;
  std::vector<std::wstring> texts;
  b.while_open([&] {
    const HWND box = seen_windows(L"#32770").front();
    title = text_of(box);
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
      texts.push_back(text_of(child));
  });
  b.answer(platform::BoxAnswer::no);
  EXPECT_EQ(b.dialogs.message(L"Pro & proti\r\nDruhý řádek", L"Nepřečtené zprávy na Orb",
                              platform::BoxIcon::information, platform::BoxButtons::yes_no),
            platform::BoxAnswer::no);
  EXPECT_EQ(title, L"Nepřečtené zprávy na Orb");
  EXPECT_NE(std::find(texts.begin(), texts.end(), L"Pro & proti\r\nDruhý řádek"), texts.end());
}

// The picture of a box; nullptr where it has none.
HICON picture_of_box() {
  for (HWND child = GetWindow(seen_windows(L"#32770").front(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
    if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON && icon != nullptr)
      return icon;
  }
  return nullptr;
}

TEST_F(Win32Boxes, ABoxHasThePictureThatItIsGiven) {
  HICON picture = nullptr;
  b.while_open([&] { picture = picture_of_box(); });
  b.answer(platform::BoxAnswer::ok);
  EXPECT_EQ(b.dialogs.message(L"Zpráva", L"Okno", platform::BoxIcon::information, platform::BoxButtons::ok),
            platform::BoxAnswer::ok);
  EXPECT_EQ(picture, LoadIconW(nullptr, IDI_INFORMATION)) << "not that of a warning";
  b.while_open([&] { picture = picture_of_box(); });
  b.answer(platform::BoxAnswer::ok);
  EXPECT_EQ(b.dialogs.message(L"Zpráva", L"Okno", platform::BoxIcon::none, platform::BoxButtons::ok),
            platform::BoxAnswer::ok);
  EXPECT_EQ(picture, nullptr);
}

} // namespace
} // namespace lumotune::contract
