// SPDX-License-Identifier: LGPL-2.1-or-later
// Addresses at the borders of what they may be: schemes, escapes, drives, shares, parts of a list's address.
#include "platform/media/address.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::media {
namespace {

using platform::AddressOrigin;

TEST(AddressEdges, SchemesHaveTwoCharactersAtLeast) {
  for (const char* other : {"ab:x", "x+y:z", "x-y:z", "x.y:z", "x1:z"})
    EXPECT_EQ(address_kind(other), AddressKind::unsupported) << other;
  for (const char* path : {"a:x", ":x", "x,y:z", "x/y:z", "x_y:z", "x y:z", "é:x"})
    EXPECT_EQ(address_kind(path), AddressKind::local) << path;
  EXPECT_EQ(address_kind("HTTP://a"), AddressKind::network);
  EXPECT_EQ(address_kind("http://a\x7f"), AddressKind::unsupported);
}

TEST(AddressEdges, FilesAreUnescapedAndKeepTheirDrive) {
  const auto opened = [](const char* address) { return openable_addresses(address); };
  using List = std::vector<std::string>;
  EXPECT_EQ(opened("file:///C:/%4a%4F%39%aF%Fa"), List{"file:C:/JO9\xaf\xfa"});
  EXPECT_EQ(opened("file:/%4g%4:%4@%4G%4`%/1%:1%00%4"), List{"file:/%4g%4:%4@%4G%4`%/1%:1%00%4"});
  EXPECT_EQ(opened("file:/%"), List{"file:/%"});
  EXPECT_EQ(opened("file://localhost/home/x"), List{"file:/home/x"});
  EXPECT_EQ(opened("file:///home/x"), List{"file:/home/x"});
  EXPECT_EQ(opened("file://host/share/x"), List{"file://host/share/x"});
  EXPECT_EQ(opened("file:///C:"), List{"file:C:"});
  EXPECT_EQ(opened("file:/C"), List{"file:/C"});
  EXPECT_EQ(opened("file:ab:c"), List{"file:ab:c"});
  EXPECT_EQ(opened(" \"http://a/b c\"\r\n"), List{"http://a/b c"});
  EXPECT_EQ(opened("udp://a"), List());
  EXPECT_EQ(opened(" "), List());
}

TEST(AddressEdges, MessagesReachWholePathsOnADrive) {
  for (const char* path : {"C:\\x", "C:\\", "C:/x", "z:\\\\x", "\\x", "\\", "/", "file:///C:/x"})
    EXPECT_TRUE(may_open(path, AddressOrigin::message)) << path;
  for (const char* path : {"C:", "C:x", "1:\\x", "@:\\x", "[:\\x", "\\\\", "\\\\x", "//x", "/\\x", "x",
                           "file:", "file:%0A", "C:\\a:b", "\\a:b"})
    EXPECT_FALSE(may_open(path, AddressOrigin::message)) << path;
}

TEST(AddressEdges, AListOnAShareReachesThatShareAlone) {
  const auto origin = [](const char* list, const char* entry) {
    return origin_of_entry(list, AddressOrigin::listener, entry);
  };
  EXPECT_EQ(origin("\\\\h\\s\\a.m3u", "//H/S/b/c.mp3"), AddressOrigin::listener);
  for (const auto& [list, entry] :
       std::vector<std::pair<const char*, const char*>>{{"\\\\h\\s1\\a.m3u", "\\\\h\\s2\\b.mp3"},
                                                        {"\\\\h\\s\\a.m3u", "\\\\i\\s\\b.mp3"},
                                                        {"\\\\h\\s\\a.m3u", "\\\\h\\s"},
                                                        {"\\\\h\\a.m3u", "\\\\h\\a.m3u"},
                                                        {"\\\\\\s\\a.m3u", "\\\\\\s\\a.m3u"},
                                                        {"\\\\h\\\\a\\b.m3u", "\\\\h\\\\a\\b.m3u"},
                                                        {"\\\\.\\pipe\\a", "\\\\.\\pipe\\a"},
                                                        {"\\\\?\\C:\\a", "\\\\?\\C:\\a"},
                                                        {"\\\\h\\s\\a\x1f", "\\\\h\\s\\a\x1f"},
                                                        {"C:\\a.m3u", "C:\\b.mp3"}})
    EXPECT_EQ(origin(list, entry) == AddressOrigin::listener, false) << list << ' ' << entry;
}

TEST(AddressEdges, EntriesStandBesideTheirList) {
  EXPECT_EQ(resolve_address("http://h/a/l.m3u?x=/y", " s.mp3 "), "http://h/a/s.mp3");
  EXPECT_EQ(resolve_address("http://h/a/l.m3u", "\\s.mp3"), "http://h\\s.mp3");
  EXPECT_EQ(resolve_address("http://h/a/l.m3u", "/s.mp3"), "http://h/s.mp3");
  EXPECT_EQ(resolve_address("http://h/a/l.m3u", "//i/s.mp3"), "http://i/s.mp3");
  EXPECT_EQ(resolve_address("http:///l.m3u", "/s.mp3"), "http:///s.mp3");
  EXPECT_EQ(resolve_address("http://h", "s.mp3"), "http://h/s.mp3");
  EXPECT_EQ(resolve_address("http://h/l.m3u", "C:/s.mp3"), "C:/s.mp3");
  EXPECT_EQ(resolve_address("http://h/l.m3u", "C:"), "C:");
  EXPECT_EQ(resolve_address("http://h/l.m3u", ""), "");
  EXPECT_EQ(resolve_address("http://h/l.m3u", ":"), "http://h/:");
  EXPECT_EQ(resolve_address("C:\\a\\l.m3u", "s.mp3"), "C:\\a\\s.mp3");
  EXPECT_EQ(resolve_address("C:\\a\\l.m3u", "\\s.mp3"), "\\s.mp3");
}

} // namespace
} // namespace lumotune::media
