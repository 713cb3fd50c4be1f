// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/address.h"

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using Addresses = std::vector<std::string>;

TEST(Address, HasAKind) {
  EXPECT_EQ(address_kind(""), AddressKind::none);
  EXPECT_EQ(address_kind(" \r\n"), AddressKind::none);
  for (const char* each : {"http://a/", "HTTPS://a/", "mms://a/", "mmsh://a/", "mmst://a/", "rtsp://a/", " http://a/ "})
    EXPECT_EQ(address_kind(each), AddressKind::network) << each;
  for (const char* each : {"C:\\x.mp3", "c:/x", "/home/x", "file:///x", "x.mp3", "Složka: x"})
    EXPECT_EQ(address_kind(each), AddressKind::local) << each;
  // Protocols that FFmpeg knows and that a station list must not reach.
  for (const char* each : {"concat:a|b", "pipe:0", "subfile,,start,0,end,1,,:x", "ftp://a/", "javascript:x"})
    EXPECT_NE(address_kind(each), AddressKind::network) << each;
  for (const char* each : {"concat:a|b", "pipe:0", "ftp://a/", "javascript:x"})
    EXPECT_EQ(address_kind(each), AddressKind::unsupported) << each;
}

TEST(Address, OfMmsIsTriedInTwoWays) {
  EXPECT_EQ(openable_addresses("mms://a:80/x?y"), (Addresses{"mmsh://a:80/x?y", "mmst://a:80/x?y"}));
  EXPECT_EQ(openable_addresses("MMS://a/"), (Addresses{"mmsh://a/", "mmst://a/"}));
  EXPECT_EQ(openable_addresses("mmst://a/"), (Addresses{"mmst://a/"}));
}

TEST(Address, OfTheNetworkStaysButForItsSchemesLetters) {
  EXPECT_EQ(openable_addresses("HTTP://A/X%20Y;stream"), (Addresses{"http://A/X%20Y;stream"}));
  EXPECT_TRUE(openable_addresses("pipe:0").empty());
  EXPECT_TRUE(openable_addresses("").empty());
}

TEST(Address, OfAFileBecomesAPath) {
  EXPECT_EQ(openable_addresses("file:///C:/a%20b/x.mp3"), (Addresses{"file:C:/a b/x.mp3"}));
  EXPECT_EQ(openable_addresses("file:///home/%C5%99/x"), (Addresses{"file:/home/\xc5\x99/x"}));
  EXPECT_EQ(openable_addresses("file://localhost/C:/x"), (Addresses{"file:C:/x"}));
  EXPECT_EQ(openable_addresses("file://server/share/x"), (Addresses{"file://server/share/x"}));
  EXPECT_EQ(openable_addresses("C:\\a b\\100%.mp3"), (Addresses{"file:C:\\a b\\100%.mp3"}));
  EXPECT_EQ(openable_addresses("\"C:\\x.mp3\""), (Addresses{"file:C:\\x.mp3"}));
  EXPECT_EQ(openable_addresses("file:///a%00b"), (Addresses{"file:/a%00b"})); // no end in the middle
}

TEST(Address, OfAListsEntryIsMadeWhole) {
  EXPECT_EQ(resolve_address("http://a/b/list.pls", "http://c/d"), "http://c/d");
  EXPECT_EQ(resolve_address("http://a/b/list.pls", "x.mp3"), "http://a/b/x.mp3");
  EXPECT_EQ(resolve_address("http://a/b/list.pls?p=/q/", "x.mp3"), "http://a/b/x.mp3");
  EXPECT_EQ(resolve_address("http://a:80/b/list.pls", "/x.mp3"), "http://a:80/x.mp3");
  EXPECT_EQ(resolve_address("https://a/b/list.pls", "//c/x"), "https://c/x");
  EXPECT_EQ(resolve_address("http://a", "x"), "http://a/x");
  EXPECT_EQ(resolve_address("file:/music/list.m3u", "x.mp3"), "file:/music/x.mp3");
  EXPECT_EQ(resolve_address("file:C:\\m\\list.m3u", "x.mp3"), "file:C:\\m\\x.mp3");
  EXPECT_EQ(resolve_address("file:/music/list.m3u", "/other/x.mp3"), "/other/x.mp3");
}

} // namespace
} // namespace lumotune::media
