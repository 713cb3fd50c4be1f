// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/playlist.h"

#include <gtest/gtest.h>

namespace lumotune::media {
namespace {

using Entries = std::vector<std::string>;

TEST(PlaylistKind, IsSeenByTheFirstBytes) {
  EXPECT_EQ(playlist_kind("[playlist]\nFile1=x", "", ""), PlaylistKind::pls);
  EXPECT_EQ(playlist_kind("\xef\xbb\xbf\r\n[Playlist]\r\n", "", ""), PlaylistKind::pls);
  EXPECT_EQ(playlist_kind("#EXTM3U\n#EXTINF:-1,x\nhttp://a/", "", ""), PlaylistKind::m3u);
  EXPECT_EQ(playlist_kind("<ASX version=\"3.0\">", "", ""), PlaylistKind::asx);
  EXPECT_EQ(playlist_kind("<?xml version=\"1.0\"?><asx>", "", ""), PlaylistKind::asx);
  EXPECT_EQ(playlist_kind("<?xml version=\"1.0\"?>\n<playlist xmlns=\"http://xspf.org/ns/0/\">", "", ""),
            PlaylistKind::xspf);
  EXPECT_EQ(playlist_kind("[Reference]\nRef1=http://a/", "", ""), PlaylistKind::reference);
  EXPECT_EQ(playlist_kind("http://a/stream\n", "", ""), PlaylistKind::m3u);
}

TEST(PlaylistKind, IsSeenByTypeOrAddressWhereTheBytesLeaveItOpen) {
  EXPECT_EQ(playlist_kind("stream.mp3\n", "audio/x-mpegurl", "http://a/x"), PlaylistKind::m3u);
  EXPECT_EQ(playlist_kind("stream.mp3\n", "", "http://a/x.M3U?k=1"), PlaylistKind::m3u);
  EXPECT_EQ(playlist_kind("File1=http://a/\n", "audio/x-scpls; charset=utf-8", "http://a/x"), PlaylistKind::pls);
  EXPECT_EQ(playlist_kind("hello", "text/plain", "http://a/x"), PlaylistKind::none);
}

TEST(PlaylistKind, IsNoneForAnHlsList) {
  EXPECT_EQ(
      playlist_kind("#EXTM3U\n#EXT-X-VERSION:3\n#EXTINF:2,\na.ts", "application/vnd.apple.mpegurl", "http://a/x.m3u8"),
      PlaylistKind::none);
}

// A type that lies, an error page, sound.
TEST(PlaylistKind, IsNoneForWhatIsNoList) {
  EXPECT_EQ(playlist_kind("", "audio/x-scpls", "http://a/x.pls"), PlaylistKind::none);
  EXPECT_EQ(playlist_kind(std::string("\xff\xfb\x90\x64\x00\x0f", 6), "audio/x-scpls", "http://a/x.pls"),
            PlaylistKind::none);
  EXPECT_EQ(playlist_kind(std::string("ID3\x03\x00\x00", 6), "audio/x-mpegurl", ""), PlaylistKind::none);
  EXPECT_EQ(playlist_kind("<!DOCTYPE html><html>", "audio/x-mpegurl", "http://a/x.m3u"), PlaylistKind::none);
  EXPECT_EQ(playlist_kind("<?xml version=\"1.0\"?><html>", "", ""), PlaylistKind::none);
}

TEST(PlaylistEntries, OfPls) {
  EXPECT_EQ(playlist_entries(PlaylistKind::pls, "[playlist]\r\nNumberOfEntries=2\r\nFile1=http://a/1\r\nTitle1=x\r\n"
                                                "file2 = http://a/2?x=y\r\nLength1=-1\r\n"),
            (Entries{"http://a/1", "http://a/2?x=y"}));
}

TEST(PlaylistEntries, OfM3u) {
  EXPECT_EQ(playlist_entries(PlaylistKind::m3u, "\xef\xbb\xbf#EXTM3U\r#EXTINF:-1,R\xe1"
                                                "dio\rhttp://a/1\n\n  b.mp3  \n#x"),
            (Entries{"http://a/1", "b.mp3"}));
}

TEST(PlaylistEntries, OfAsxWhateverItsLetterCaseAndMarks) {
  EXPECT_EQ(playlist_entries(PlaylistKind::asx,
                             "<ASX VERSION='3'><Entry><REF HREF=\"http://a/?a=1&amp;b=2\" /></Entry>"
                             "<entry><ref href = 'mms://b/'></entry><ref nothing='x'/><Title>t</Title>"),
            (Entries{"http://a/?a=1&b=2", "mms://b/"}));
}

TEST(PlaylistEntries, OfXspf) {
  EXPECT_EQ(playlist_entries(PlaylistKind::xspf,
                             "<playlist><trackList><track><location>\n http://a/1?x&amp;y </location></track>"
                             "<track><location>http://a/2</location></track></trackList></playlist>"),
            (Entries{"http://a/1?x&y", "http://a/2"}));
}

TEST(PlaylistEntries, OfAReferenceFile) {
  EXPECT_EQ(
      playlist_entries(PlaylistKind::reference, "[Reference]\r\nRef1=http://a/x?MSWMExt=.asf\r\nRef2=http://a/y\r\n"),
      (Entries{"mmsh://a/x?MSWMExt=.asf", "http://a/y"}));
}

TEST(PlaylistEntries, AreNotEndless) {
  std::string text;
  for (int i = 0; i < 10000; ++i)
    text += "http://a/" + std::to_string(i) + "\n";
  const Entries entries = playlist_entries(PlaylistKind::m3u, text);
  ASSERT_EQ(entries.size(), max_playlist_entries);
  EXPECT_EQ(entries.back(), "http://a/31");
}

// Every prefix of a list, and lists full of openings, neither crash nor hang.
TEST(PlaylistEntries, BearTornText) {
  const std::string whole =
      "<asx><ref href=\"http://a/\"><ref href='x><ref<ref href=<location>http://b/</location><location>x";
  for (std::size_t i = 0; i <= whole.size(); ++i) {
    const auto piece = std::string_view(whole).substr(0, i);
    for (const auto kind : {PlaylistKind::pls, PlaylistKind::m3u, PlaylistKind::asx, PlaylistKind::xspf,
                            PlaylistKind::reference, PlaylistKind::none})
      EXPECT_LE(playlist_entries(kind, piece).size(), 4U);
  }
  std::string openings;
  while (openings.size() < max_playlist_bytes)
    openings += "<ref ";
  EXPECT_TRUE(playlist_entries(PlaylistKind::asx, openings).empty());
}

} // namespace
} // namespace lumotune::media
