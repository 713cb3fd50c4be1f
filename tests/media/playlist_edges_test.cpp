// SPDX-License-Identifier: LGPL-2.1-or-later
// Playlists at the borders of their formats: what is text, what names them, torn tags and every reference.
#include "platform/media/playlist.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumotune::media {
namespace {

using List = std::vector<std::string>;

TEST(PlaylistEdges, TextHasTabsAndLineEndsButNoOtherControls) {
  for (const char* text : {"http://a/\tb", "http://a/\rb", "http://a/\nb"})
    EXPECT_EQ(playlist_kind(text, "", ""), PlaylistKind::m3u);
  for (const char* bytes : {"http://a/\x1f", "http://a/\x0b", "http://a/\x0e", "http://a/\x08"})
    EXPECT_EQ(playlist_kind(bytes, "audio/x-mpegurl", "x.m3u"), PlaylistKind::none);
}

TEST(PlaylistEdges, TheTypeOrTheNameSuffices) {
  for (const auto& [type, name, kind] :
       std::vector<std::tuple<const char*, const char*, PlaylistKind>>{{"audio/x-scpls", "", PlaylistKind::pls},
                                                                       {"", "http://h/a.pls?x", PlaylistKind::pls},
                                                                       {"audio/mpegurl", "", PlaylistKind::m3u},
                                                                       {"", "a.m3u", PlaylistKind::m3u},
                                                                       {"", "a.M3U8#b", PlaylistKind::m3u},
                                                                       {"video/x-ms-asf", "", PlaylistKind::asx},
                                                                       {"", "a.asx", PlaylistKind::asx},
                                                                       {"", "a.wax", PlaylistKind::asx},
                                                                       {"application/xspf+xml", "", PlaylistKind::xspf},
                                                                       {"", "a.xspf", PlaylistKind::xspf},
                                                                       {"text/plain", "a.txt", PlaylistKind::none}})
    EXPECT_EQ(playlist_kind("anything", type, name), kind) << type << ' ' << name;
}

TEST(PlaylistEdges, ReferencesAreResolvedOnce) {
  EXPECT_EQ(playlist_entries(PlaylistKind::xspf,
                             "<location>http://a/?b&amp;c&quot;d&apos;e&lt;f&gt;g&amp;lt;&nbsp;&</location>"),
            List{"http://a/?b&c\"d'e<f>g&lt;&nbsp;&"});
  EXPECT_EQ(playlist_entries(PlaylistKind::xspf, "<location>a</location><location>b"), List{"a"});
}

TEST(PlaylistEdges, TornTagsNameNothing) {
  const auto entries = [](const char* text) { return playlist_entries(PlaylistKind::asx, text); };
  EXPECT_EQ(entries("<ref><ref href=\"a\"/>"), List{"a"});
  EXPECT_EQ(entries("<ref href=><ref href='b'>"), List{"b"});
  EXPECT_EQ(entries("<ref href><ref href=\"c\">"), List{"c"});
  EXPECT_EQ(entries("<ref href=\"d"), List());
  EXPECT_EQ(entries("<ref href=\"e>f\">"), List{"e>f"});
  EXPECT_EQ(entries("<ref"), List());
  EXPECT_EQ(entries("<REF HREF = 'G?h=\"i\"' /><refx href=\"j\">"), (List{"G?h=\"i\"", "j"}));
  EXPECT_EQ(entries("<ref href=\"\"><ref href=\"k\"<ref href=\"l\">"), (List{"k", "l"}));
}

} // namespace
} // namespace lumotune::media
