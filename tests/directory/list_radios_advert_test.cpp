// SPDX-License-Identifier: LGPL-2.1-or-later
// The advertising area of the directory window.
#include "tests/directory/panel_world.h"

namespace lumotune::directory {
namespace {

TEST_F(ListRadiosPanel, ShowsAnAdvertisement) {
  advert.ReklamaTest();
  EXPECT_TRUE(browser.visited.empty());
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/reklama");
  EXPECT_EQ(browser.rect().top, 5280);
  EXPECT_EQ(browser.rect().height, 1050);
  EXPECT_EQ(window.rect().height, 7125);
  EXPECT_EQ(browser.visited, std::vector<std::wstring>{L"http://server/reklama"});
  advert.ReklamaTest();
  EXPECT_EQ(browser.visited.size(), 2U);
}

TEST_F(ListRadiosPanel, AnAddressWithoutASchemeGetsOne) {
  EXPECT_EQ(page_address(L"www.server.cz/a?b#c"), L"http://www.server.cz/a?b#c");
  EXPECT_EQ(page_address(L"  server/x "), L"http://server/x");
  EXPECT_EQ(page_address(L"server:8000"), L"http://server:8000");
  EXPECT_EQ(page_address(L"server:8000/x:y"), L"http://server:8000/x:y");
  EXPECT_EQ(page_address(L"server/a:b"), L"http://server/a:b");
  EXPECT_EQ(page_address(L"C:\\x.html"), L"http://C:\\x.html");
  EXPECT_EQ(page_address(L"\\\\host\\share"), L"http://\\\\host\\share");
  EXPECT_EQ(page_address(L""), L"");
  for (const wchar_t* address : {L"http://a", L"HTTPS://a/b:c", L"about:blank", L"javascript:1x", L"file:///C:/x"})
    EXPECT_EQ(page_address(address), address);
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/server/reklama");
  EXPECT_EQ(browser.visited, std::vector<std::wstring>{L"http://server/reklama"});
}

TEST_F(ListRadiosPanel, ACollapsedAdvertisementIsStillAskedFor) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  advert.ZobrazReklamu(L"1050/@/7125/@/0/@/http://server/2");
  EXPECT_EQ(browser.rect().height, 0);
  EXPECT_EQ(browser.rect().top, 10280);
  EXPECT_TRUE(browser.visible());
  EXPECT_EQ(browser.visited.back(), L"http://server/2");
}

TEST_F(ListRadiosPanel, ABadAdvertisementEndsWhereItIsBad) {
  for (const wchar_t* bad :
       {L"", L"1050", L"1050/@/7125", L"x/@/7125/@/1/@/http://a", L"1050/@/x/@/1/@/http://a", L"1050/@/7125/@/1"}) {
    advert.ZobrazReklamu(bad);
    EXPECT_FALSE(state.present);
    EXPECT_TRUE(browser.visited.empty());
  }
  EXPECT_EQ(browser.rect().height, 1050) << "the last one was good as far as it went";
  EXPECT_EQ(window.rect().height, 7125);
  browser.set_visible(false);
  advert.ZobrazReklamu(L"x/@/8000/@/1/@/http://a");
  EXPECT_TRUE(browser.visible());
  EXPECT_EQ(browser.rect().height, 1050);
  advert.ZobrazReklamu(L"1200/@/x/@/1/@/http://a");
  EXPECT_EQ(browser.rect().height, 1200);
  EXPECT_EQ(window.rect().height, 7125);
}

TEST_F(ListRadiosPanel, TheOrderedHeightIsTheHeightWhateverWasNeededBefore) {
  for (const int now : {0, 1, 2}) {
    advert.ZobrazReklamu(L"2925/@/9000/@/1/@/http://server/1");
    ASSERT_EQ(window.rect().height, 9000);
    ASSERT_GT(window.minimum.second, 7125);
    if (now == 1)
      window.user_maximize();
    if (now == 2)
      window.user_minimize();
    advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/2");
    window.user_restore();
    EXPECT_EQ(window.rect().height, 7125) << now;
    EXPECT_EQ(browser.rect().top, 5280) << now;
    EXPECT_EQ(window.minimum.second, 4800 + 1050 + 120) << now;
    window.user_resize(9000, 100);
    EXPECT_EQ(window.rect().height, 4800 + 1050 + 120) << now;
    EXPECT_EQ(browser.rect().top + 1050 + 120, window.client_height()) << now;
    if (now == 1)
      window.user_maximize();
    if (now == 2)
      window.user_minimize();
    line.ZobrazInfoPanel(L"0/@//@/1/@/t");
    window.user_restore();
    EXPECT_EQ(window.rect().height, 6045) << now;
    EXPECT_EQ(browser.rect().top, 5280) << now;
    EXPECT_EQ(window.minimum.second, 4800 + 300 + 6045 - 675 - 5280) << now;
    form.InfoPanel.set_visible(false);
  }
}

TEST_F(ListRadiosPanel, AGrowingWindowShowsTheWholeAdvertisementFirst) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t");
  ASSERT_EQ(window.client_height() - browser.rect().top, 90);
  const int list = form.ListView1.rect().height;
  window.user_resize(9000, 6045 + 600);
  EXPECT_EQ(browser.rect().top, 5280);
  EXPECT_EQ(form.ListView1.rect().height, list);
  window.user_maximize();
  EXPECT_EQ(browser.rect().top + 1050 + 120, window.client_height());
  EXPECT_GT(form.ListView1.rect().height, list);
}

TEST_F(ListRadiosPanel, AShrinkingWindowTakesTheEmptySpaceBelowTheAdvertisementFirst) {
  advert.ZobrazReklamu(L"1050/@/12000/@/1/@/http://server/1");
  EXPECT_EQ(browser.rect().top, 5280) << "as ordered";
  EXPECT_EQ(window.minimum.second, 4800 + 1050 + 120);
  window.user_resize(9000, 100);
  EXPECT_EQ(browser.rect().top + 1050 + 120, window.client_height());
  EXPECT_GT(form.ListView1.rect().height, 2000);
  EXPECT_GT(form.Text1.rect().height, 0);
}

TEST_F(ListRadiosPanel, ABadOrderLeavesTheAdvertisementWhereItIs) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  window.user_resize(9000, 9000);
  const auto place = browser.rect();
  advert.ZobrazReklamu(L"x/@/7125/@/1/@/http://server/1");
  EXPECT_EQ(browser.rect(), place);
}

// The lists keep their room whatever is ordered, and no order makes the window taller than its monitor.
TEST_F(ListRadiosPanel, NoOrderLeavesTheListsWithoutRoom) {
  const std::vector<std::wstring> heights = {L"0", L"1", L"1050", L"30000", L"60000"};
  const std::vector<std::wstring> windows = {L"0", L"4800", L"4900", L"6045", L"20000", L"60000"};
  for (const std::wstring& height : heights) {
    for (const std::wstring& outer : windows) {
      advert.ZobrazReklamu(height + L"/@/" + outer + L"/@/1/@/http://a/");
      for (const int wanted : {100, 6000, 15000}) {
        window.user_resize(9000, wanted);
        EXPECT_LE(window.rect().height, window.work_area.height);
        EXPECT_GE(form.ListView1.rect().height, 3300) << testing::PrintToString(height + L" " + outer) << wanted;
      }
    }
  }
}

TEST_F(ListRadiosPanel, FollowsTheWindowsSize) {
  line.ZobrazInfoPanel(L"0/@//@/1/@/t");
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  const auto below = [&] { return form.window.client_height() - browser.rect().top; };
  const int distance = below();
  window.user_resize(15000, 9000);
  EXPECT_EQ(below(), distance) << "it keeps its distance from the lower edge";
  EXPECT_GT(shown.rect().top, form.ListView1.rect().top + form.ListView1.rect().height);
  EXPECT_LE(shown.rect().top + shown.rect().height, browser.rect().top);
  EXPECT_GT(form.ListView1.rect().width, 5000);
  window.user_resize(100, 100);
  EXPECT_EQ(window.rect().width, window.minimum.first);
  EXPECT_GT(form.ListView1.rect().width, 2000);
  EXPECT_GT(form.Text1.rect().height, 0);
}

} // namespace
} // namespace lumotune::directory
