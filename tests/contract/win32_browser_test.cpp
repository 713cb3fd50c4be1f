// SPDX-License-Identifier: LGPL-2.1-or-later
// The browser's area, its site and the request that really leaves the machine, as far as the next port.
#include <winsock2.h> // before the system's other headers

#include "platform/win32/browser.h"
#include "platform/win32/browser_site.h"
#include "tests/contract/fixture_hand_win32.h"

#include <gtest/gtest.h>

#include <exdisp.h>
#include <exdispid.h>
#include <mshtmdid.h>
#include <oleauto.h>

#include <array>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace lumotune::contract {
namespace {

using platform::win32::BrowserSite;

// Serves one small page to whoever asks, on a port of the loopback, and notes the first line of each request.
class Pages {
public:
  Pages() {
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bind(listener_, reinterpret_cast<sockaddr*>(&address), size);
    listen(listener_, 5);
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  Pages(const Pages&) = delete;
  Pages& operator=(const Pages&) = delete;
  ~Pages() {
    closesocket(listener_);
    thread_.join();
    WSACleanup();
  }
  [[nodiscard]] std::wstring address(const std::wstring& path) const {
    return L"http://127.0.0.1:" + std::to_wstring(port_) + path;
  }
  [[nodiscard]] std::vector<std::string> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

private:
  void serve() {
    for (SOCKET peer = accept(listener_, nullptr, nullptr); peer != INVALID_SOCKET;
         peer = accept(listener_, nullptr, nullptr)) {
      std::array<char, 4096> bytes{};
      const int got = recv(peer, bytes.data(), static_cast<int>(bytes.size()) - 1, 0);
      const std::string request(bytes.data(), static_cast<std::size_t>(got > 0 ? got : 0));
      {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request.substr(0, request.find('\r')));
      }
      const std::string answer =
          "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<p>Reklama</p>";
      send(peer, answer.data(), static_cast<int>(answer.size()), 0);
      shutdown(peer, SD_SEND);
      closesocket(peer);
    }
  }

  SOCKET listener_ = INVALID_SOCKET;
  int port_ = 0;
  std::thread thread_;
  std::mutex mutex_;
  std::vector<std::string> requests_;
};

struct Win32BrowserTest : testing::Test {
  Backend b;
  Pages pages;
  std::unique_ptr<platform::win32::Browser> browser =
      std::make_unique<platform::win32::Browser>(b.window, L"WebBrowser1");

  void SetUp() override {
    b.window.resize(9000, 6000);
    browser->move(300, 300);
    browser->resize(6000, 1500);
    b.window.set_visible(true);
    b.loop.run_pending();
  }
  [[nodiscard]] HWND inside() const { return GetWindow(browser->handle(), GW_CHILD); }
  bool wait_for_requests(std::size_t count) {
    return b.until([&] { return pages.requests().size() >= count; });
  }
};

TEST_F(Win32BrowserTest, ThePageIsAskedForAndNotBefore) {
  EXPECT_EQ(inside(), nullptr);
  browser->navigate(pages.address(L"/reklama.php?x=1&y=2"));
  ASSERT_TRUE(wait_for_requests(1));
  EXPECT_EQ(pages.requests()[0], "GET /reklama.php?x=1&y=2 HTTP/1.1");
  EXPECT_NE(inside(), nullptr);
  browser->navigate(pages.address(L"/druha"));
  ASSERT_TRUE(wait_for_requests(2));
  EXPECT_EQ(pages.requests().back(), "GET /druha HTTP/1.1");
}

TEST_F(Win32BrowserTest, NothingButWebPagesIsAskedFor) {
  for (const wchar_t* address : {L"", L"file:///c:/windows/win.ini", L"c:\\windows\\win.ini", L"javascript:alert(1)",
                                 L"ftp://127.0.0.1/", L"about:blank", L"res://ieframe.dll/x", L"httpx://127.0.0.1/"})
    browser->navigate(address);
  for (const wchar_t* host :
       {L"localhost", L"user:secret@127.0.0.1", L"localhost.", L"2130706433", L"127.0.0.1@localhost"})
    browser->navigate(L"http://" + std::wstring(host) + pages.address(L"/").substr(16));
  browser->navigate(pages.address(L"/a\r\nX-Other: 1"));
  browser->navigate(pages.address(L"/" + std::wstring(3000, L'x')));
  EXPECT_EQ(inside(), nullptr) << "no control was made that could ask";
  browser->navigate(pages.address(L"/dobra"));
  ASSERT_TRUE(wait_for_requests(1));
  EXPECT_EQ(pages.requests().front(), "GET /dobra HTTP/1.1");
}

// As a link in the page would: the control itself is told to go there, past our own door.
TEST_F(Win32BrowserTest, ThePageCannotGoToFiles) {
  EXPECT_EQ(browser->control(), nullptr);
  browser->navigate(pages.address(L"/"));
  ASSERT_TRUE(wait_for_requests(1));
  b.pass(200);
  IWebBrowser2* control = nullptr;
  ASSERT_EQ(browser->control()->QueryInterface(__uuidof(IWebBrowser2), reinterpret_cast<void**>(&control)), S_OK);
  const auto place_after = [&](const std::wstring& address) {
    const BSTR wished = SysAllocString(address.c_str());
    control->Navigate(wished, nullptr, nullptr, nullptr, nullptr);
    SysFreeString(wished);
    b.pass(500);
    BSTR place = nullptr;
    control->get_LocationURL(&place);
    const std::wstring text = place == nullptr ? L"" : place;
    SysFreeString(place);
    return text;
  };
  EXPECT_EQ(place_after(pages.address(L"/")), pages.address(L"/"));
  EXPECT_EQ(place_after(L"file:///c:/windows/win.ini"), pages.address(L"/"));
  EXPECT_EQ(place_after(pages.address(L"/dalsi")), pages.address(L"/dalsi"));
  control->Release();
}

TEST_F(Win32BrowserTest, ThePageKeepsTheSizeOfItsArea) {
  browser->navigate(pages.address(L"/"));
  ASSERT_TRUE(wait_for_requests(1));
  RECT place{};
  GetClientRect(inside(), &place);
  EXPECT_EQ(place.right, 400);
  EXPECT_EQ(place.bottom, 100);
  browser->resize(3000, 3000);
  EXPECT_TRUE(b.until([&] { return GetClientRect(inside(), &place) != 0 && place.right == 200; }));
  EXPECT_EQ(place.bottom, 200);
  browser->resize(3000, 0);
  EXPECT_TRUE(b.until([&] { return GetClientRect(inside(), &place) != 0 && place.bottom == 0; }));
}

TEST_F(Win32BrowserTest, ItGoesAndComesAgainWithoutATrace) {
  for (int i = 0; i < 10; ++i) {
    browser->navigate(pages.address(L"/" + std::to_wstring(i)));
    if (i % 2 == 0)
      b.pass(30); // others go while the page is on its way
    browser.reset();
    EXPECT_EQ(GetWindow(b.window.handle(), GW_CHILD), nullptr);
    browser = std::make_unique<platform::win32::Browser>(b.window, L"WebBrowser1");
  }
  browser->resize(3000, 1500);
  browser->navigate(pages.address(L"/posledni"));
  EXPECT_TRUE(
      b.until([this] { return !pages.requests().empty() && pages.requests().back() == "GET /posledni HTTP/1.1"; }));
}

TEST_F(Win32BrowserTest, AnUnreachableServerLeavesNoBox) {
  browser->navigate(L"http://127.0.0.1:1/");
  b.pass(1500);
  EXPECT_TRUE(seen_windows(L"#32770").empty());
}

// What the parts of a page would be fetched by: the system's own way to open an address.
HRESULT opened(const std::wstring& address) {
  IStream* stream = nullptr;
  const HRESULT result = URLOpenBlockingStreamW(nullptr, address.c_str(), &stream, 0, nullptr);
  if (stream != nullptr)
    stream->Release();
  return result;
}

TEST_F(Win32BrowserTest, ThePartsOfAPageComeFromTheWebAlone) {
  wchar_t windows[MAX_PATH];
  GetWindowsDirectoryW(windows, MAX_PATH);
  const std::wstring file = L"file:///" + std::wstring(windows) + L"/win.ini";
  const std::wstring own_network = L"http://localhost" + pages.address(L"/").substr(16) + L"obrazek.png";
  EXPECT_EQ(opened(file), S_OK) << "before there is a page, nobody is in the way";
  browser->navigate(pages.address(L"/"));
  ASSERT_TRUE(wait_for_requests(1));
  EXPECT_TRUE(FAILED(opened(file)));
  EXPECT_TRUE(FAILED(opened(L"file://server.invalid/share/obrazek.png")));
  EXPECT_TRUE(FAILED(opened(L"ftp://127.0.0.1/obrazek.png")));
  EXPECT_TRUE(FAILED(opened(own_network)));
  EXPECT_EQ(pages.requests().size(), 1U);
  EXPECT_EQ(opened(pages.address(L"/obrazek.png")), S_OK);
  ASSERT_EQ(pages.requests().size(), 2U);
  EXPECT_EQ(pages.requests()[1], "GET /obrazek.png HTTP/1.1");
  browser.reset();
  EXPECT_EQ(opened(file), S_OK) << "the gate goes with the page";
}

} // namespace
} // namespace lumotune::contract
