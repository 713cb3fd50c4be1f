// SPDX-License-Identifier: LGPL-2.1-or-later
// Web addresses at the borders of what may be handed to the system.
#include "companions/web_address.h"

#include <gtest/gtest.h>

#include <string>

namespace lumotune::companions {
namespace {

TEST(WebAddress, HostsHaveLettersDigitsAndDotsInside) {
  for (const wchar_t* host :
       {L"a.cz", L"žluť-oučký_1.cz", L"A0.Z9", L"a.b.c", L"a.cz:1", L"a.cz:12345/x", L"a.cz?x", L"a.cz#x"})
    EXPECT_TRUE(looks_like_web_host(host)) << host;
  for (const wchar_t* other :
       {L"a",          L".cz",          L"a.",          L"a..cz",    L"a{b.cz",    L"a[b.cz", L"a@b.cz", L"a`b.cz",
        L"a;b.cz",     L"a.cz:",        L"a.cz:123456", L"a.cz:80:", L"a.cz:8/..", L"a.cz:x", L"a.cz: ", L"a.cz/\x7f",
        L"a.cz/x.exe", L"a.cz/x.exe?y", L"a.exe",       L"a.com",    L"a.com/",    L"www.com"})
    EXPECT_FALSE(looks_like_web_host(other)) << other;
  EXPECT_TRUE(looks_like_web_host(L"a.com/x"));
  EXPECT_TRUE(looks_like_web_host(L"www.a.com"));
}

// A comma begins another argument of the program that opens it.
TEST(WebAddress, EachCommaBeginsAHarmlessArgument) {
  for (const wchar_t* address :
       {L"http://a/", L"http://a/,x", L"http://a/,x,y,z", L"http://a/,x.js jse", L"http://a/,x.exe!", L"http://a/,,"})
    EXPECT_TRUE(stays_one_argument(address)) << address;
  for (const wchar_t* address :
       {L"http://a/,/x", L"http://a/, /x", L"http://a/,x,/y", L"http://a/,,/x", L"http://a/,x.exe,y",
        L"http://a/,x,y.exe", L"http://a/,x.exe ", L"http://a/,x.exe. ", L"http://a/,c:x", L"http://a/,x,\\y",
        L"http://a/\"", L"http://a/\x7f", L"http://a/\x1f"})
    EXPECT_FALSE(stays_one_argument(address)) << address;
  EXPECT_EQ(with_harmless_commas(L"a,b"), L"a,b");
  EXPECT_EQ(with_harmless_commas(L"a,/b,c"), L"a%2C/b%2Cc");
}

TEST(WebAddress, MayBeAsLongAsItsLimit) {
  const auto of_length = [](std::wstring start) { return start + std::wstring(max_web_address - start.size(), L'a'); };
  EXPECT_TRUE(looks_like_web_host(of_length(L"a.cz/")));
  EXPECT_FALSE(looks_like_web_host(of_length(L"a.cz/") + L"a"));
  EXPECT_TRUE(is_stream_address(of_length(L"http://a")));
  EXPECT_FALSE(is_stream_address(of_length(L"http://a") + L"a"));
  EXPECT_TRUE(is_station_web(of_length(L"http://a")));
  EXPECT_FALSE(is_station_web(of_length(L"http://a") + L"a"));
}

TEST(WebAddress, SharesAndSchemesLeadElsewhere) {
  for (const wchar_t* target : {L"\\\\host\\share", L"//", L" \\/x", L"ab:x", L"ab:", L"javascript:x", L"file:///c:/"})
    EXPECT_TRUE(is_foreign_target(target)) << target;
  for (const wchar_t* target : {L"/", L"\\x", L"a", L"a.cz:x", L"ab:8", L"host:80/x", L"a:x", L"", L"x?y:z"})
    EXPECT_FALSE(is_foreign_target(target)) << target;
}

} // namespace
} // namespace lumotune::companions
