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

TEST_F(ListRadiosPanel, FollowsTheWindowsSize) {
  advert.ZobrazReklamu(L"1050/@/7125/@/1/@/http://server/1");
  line.ZobrazInfoPanel(L"0/@//@/1/@/t");
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
