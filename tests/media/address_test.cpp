// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/address.h"

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using Addresses = std::vector<std::string>;

TEST(Address, HasAKind) {
  EXPECT_EQ(address_kind(""), AddressKind::none);
  EXPECT_EQ(address_kind(" \r\n"), AddressKind::none);
  for (const char* each : {"http://a/", "HTTPS://a/", "mms://a/", "mmsh://a/", "mmst://a/", " http://a/ "})
    EXPECT_EQ(address_kind(each), AddressKind::network) << each;
  for (const char* each : {"C:\\x.mp3", "c:/x", "/home/x", "file:///x", "x.mp3", "Složka: x"})
    EXPECT_EQ(address_kind(each), AddressKind::local) << each;
  // Protocols that FFmpeg knows and that a station list must not reach.
  for (const char* each : {"concat:a|b", "pipe:0", "subfile,,start,0,end,1,,:x", "ftp://a/", "javascript:x"})
    EXPECT_NE(address_kind(each), AddressKind::network) << each;
  for (const char* each : {"concat:a|b", "pipe:0", "ftp://a/", "javascript:x", "rtsp://a/", "rtp://a/", "udp://a:1"})
    EXPECT_EQ(address_kind(each), AddressKind::unsupported) << each;
}

using Origin = platform::AddressOrigin;

TEST(Address, OfWhatIsNoAddressIsUnsupported) {
  EXPECT_EQ(address_kind("http://a/" + std::string(max_address_bytes, 'x')), AddressKind::unsupported);
  EXPECT_EQ(address_kind(std::string(max_address_bytes, 'x')), AddressKind::local);
  for (const char* each : {"http://a/x\r\nHost: b", "http://a/\x01", "C:\\a\tb", "\v\\\\host\\share"})
    EXPECT_EQ(address_kind(each), AddressKind::unsupported) << each;
}

TEST(Reach, OfAStationIsTheNetwork) {
  for (const char* each : {"http://a/", "HTTPS://a/", "mms://a/", "mmsh://a/", "mmst://a/", " \"http://a/\" "})
    EXPECT_TRUE(may_open(each, Origin::station)) << each;
  for (const char* each :
       {"", "C:\\x.mp3", "x.mp3", "/x", "file:///C:/x", "FILE:x", "\\\\host\\share\\x", "//host/share/x", "rtsp://a/",
        "rtp://a/", "udp://239.0.0.1:1", "data:audio/wav,x", "concat:http://a/|C:\\x", "crypto+http://a/", "pipe:0",
        "subfile,,start,0,end,1,,:x", "http,x:C:/x"})
    EXPECT_FALSE(may_open(each, Origin::station)) << each;
}

TEST(Reach, OfAMessageIsAlsoTheDrives) {
  for (const char* each : {"http://a/", "mms://a/", "C:\\a b\\x.mp3", "c:/x", "file:///C:/a%20b/x.mp3", "file:C:\\x",
                           "FILE://localhost/D:/x", "\"C:\\x.mp3\"", "/home/x", "file:///home/x", "C:\\Písně\\ř.mp3",
                           "C:\\concert\\comet.mp3", "C:\\com10\\lpt.mp3", "C:\\a\\\\b", "C:\\100%25.mp3"})
    EXPECT_TRUE(may_open(each, Origin::message)) << each;
  for (const char* each : {"rtsp://a/", "udp://a/", "pipe:0", "", "x.mp3", "..\\x.mp3", "C:", "C:x.mp3", "file:x.mp3"})
    EXPECT_FALSE(may_open(each, Origin::message)) << each;
}

TEST(Reach, OfAMessageIsNoShare) {
  for (const char* each : {"\\\\host\\share\\x",
                           "//host/share/x",
                           "\\/host/share",
                           "/\\host\\share",
                           "  \\\\host\\share",
                           "\"\\\\host\\share\"",
                           "\" \t\"\\\\host\\share",
                           "file:\\\\host\\share",
                           "file://host/share/x",
                           "FILE://HOST/share",
                           "file:////host/share",
                           "file://///host/share",
                           "file:/\\host\\share",
                           "file:///\\host\\share",
                           "file:///%5C%5Chost%5Cshare",
                           "file:%5C%5Chost%5Cshare",
                           "file:%2F%2Fhost%2Fshare",
                           "file:///%2Fhost/share",
                           "file:%5c/host/share",
                           "file://localhost//host/share",
                           "file://localhost/\\host\\share",
                           "file://localhost/%5chost",
                           "file://C:/x",
                           "\\\\?\\C:\\x",
                           "\\\\?\\UNC\\host\\share",
                           "\\\\.\\C:\\x",
                           "\\\\.\\pipe\\x",
                           "//./pipe/x",
                           "//?/C:/x",
                           "\\??\\UNC\\host\\share",
                           "\\??\\C:\\x",
                           "/?\?/C:/x",
                           "file:///%3F%3F/C:/x",
                           "file:/%3f%3f/UNC/host/x",
                           "file:///%5C%5C.%5CC:%5Cx",
                           "\xc2\xa0\\\\host\\share"}) {
    EXPECT_FALSE(may_open(each, Origin::message)) << each;
  }
}

TEST(Reach, OfAMessageIsNoDevice) {
  for (const char* each : {"C:\\con",
                           "C:\\x\\NUL",
                           "C:\\x\\nul.mp3",
                           "C:\\aux\\x.mp3",
                           "C:\\com1",
                           "C:\\COM9.txt",
                           "C:\\lpt1 .x",
                           "C:\\prn. ",
                           "C:\\x\\CONIN$",
                           "C:/conout$",
                           "C:\\com\xc2\xb9",
                           "C:\\con:",
                           "C:\\x.mp3:hidden",
                           "C:\\x.mp3::$DATA",
                           "file:///C:/%63on",
                           "file:///C:/com%31",
                           "C:\\x?",
                           "C:\\*",
                           "C:\\x|y",
                           "/con",
                           "\\nul",
                           "C:\\com0"})
    EXPECT_FALSE(may_open(each, Origin::message)) << each;
}

TEST(Reach, OfTheListenerIsHisOwn) {
  for (const char* each : {"\\\\nas\\music\\x.mp3", "x.mp3", "C:\\x", "file://nas/music/x", "http://a/"})
    EXPECT_TRUE(may_open(each, Origin::listener)) << each;
  for (const char* each :
       {"concat:a|b", "data:x", "pipe:0", "ftp://a/", "", "file:///C:/a%0Ab", "file:%0a[", "C:\\a\nb"})
    EXPECT_FALSE(may_open(each, Origin::listener)) << each;
}

// Whoever opens a list has chosen the list, not what is in it.
TEST(Reach, OfAListsEntryIsNoLargerThanItsLists) {
  EXPECT_EQ(origin_of_entry("http://a/l.m3u", Origin::listener, "http://a/x"), Origin::station);
  EXPECT_EQ(origin_of_entry("http://a/l.m3u", Origin::listener, "C:\\x"), Origin::station);
  EXPECT_EQ(origin_of_entry("http://a/l.m3u", Origin::message, "C:\\x"), Origin::station);
  EXPECT_EQ(origin_of_entry("C:\\l.m3u", Origin::station, "C:\\x"), Origin::station);
  EXPECT_EQ(origin_of_entry("C:\\l.m3u", Origin::message, "C:\\x"), Origin::message);
  EXPECT_EQ(origin_of_entry("C:\\l.m3u", Origin::listener, "C:\\x"), Origin::message);
  EXPECT_EQ(origin_of_entry("C:\\l.m3u", Origin::listener, "\\\\host\\share\\x"), Origin::message);
  EXPECT_EQ(origin_of_entry("\\\\nas\\music\\l.m3u", Origin::message, "\\\\nas\\music\\x"), Origin::message);
}

TEST(Reach, OfWhatIsDroppedIsAFileHereAndOfItsEntriesTheNetwork) {
  for (const char* each : {"C:\\r\xc3\xa1"
                           "dio\\l.m3u",
                           "D:/x.mp3", "http://a/"})
    EXPECT_TRUE(may_open(each, Origin::dropped)) << each;
  for (const char* each :
       {"\\\\nas\\music\\x.mp3", "file://nas/music/x", "\\\\?\\C:\\x", "C:\\con", "C:\\x:y", "x.mp3", "data:x"})
    EXPECT_FALSE(may_open(each, Origin::dropped)) << each;
  for (const char* each : {"http://a/x", "C:\\x.mp3", "x.mp3", "\\\\nas\\music\\x"})
    EXPECT_EQ(origin_of_entry("C:\\l.m3u", Origin::dropped, each), Origin::station) << each;
}

TEST(Reach, OfAListOnAShareIsThatShare) {
  const auto origin = [](const char* entry) {
    return origin_of_entry("\\\\NAS\\music\\lists\\l.m3u", Origin::listener, entry);
  };
  for (const char* each : {"\\\\nas\\Music\\x.mp3", "//nas/music/x", "file://nas/music/x"})
    EXPECT_EQ(origin(each), Origin::listener) << each;
  for (const char* each : {"\\\\evil\\music\\x", "\\\\nas\\other\\x", "\\\\nas", "\\\\nas\\music",
                           "\\\\nas.evil\\music\\x", "C:\\x", "http://nas/music/x", "\\\\?\\UNC\\nas\\music\\x"})
    EXPECT_EQ(origin(each), Origin::message) << each;
  EXPECT_EQ(origin_of_entry("\\\\.\\x\\l.m3u", Origin::listener, "\\\\.\\x\\y"), Origin::message);
  EXPECT_EQ(origin_of_entry("\\\\?\\x\\l.m3u", Origin::listener, "\\\\?\\x\\y"), Origin::message);
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
