// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/gif.h"
#include "skin/skin_archive.h"
#include "tests/support/skin_world.h"
#include "tests/support/zip_file.h"

#include <gtest/gtest.h>

#include <map>

namespace lumotune::test {
namespace {

constexpr const char* description = "LTform|6000|3000\r\n";

std::int64_t shown_pixels(std::string_view bytes) {
  const auto picture = platform::decode_gif(bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  return picture ? std::int64_t{picture->width} * picture->height : 0;
}

struct SkinArchiveTest : testing::Test {
  platform::memory::Codec codec;
  std::wstring refused;

  std::optional<skin::UnpackedSkin> unpack(const std::vector<ZipFile>& files) {
    return skin::unpack_skin(zip_of(files), codec, shown_pixels, refused);
  }
  // The reason, for the skin "Noc" with another file.
  std::wstring reason(const ZipFile& other) {
    EXPECT_FALSE(unpack({{"Noc.skin", description}, {"Noc/form.gif", gif(4, 4)}, other})) << other.name;
    return refused;
  }
  // The reason for a skin of that name.
  std::wstring reason_for_name(const std::string& name) {
    (void)unpack({{name + ".skin", description}, {name + "/form.gif", gif(4, 4)}});
    return refused;
  }
};

TEST_F(SkinArchiveTest, TheDescriptionAndThePicturesAreUnpacked) {
  const auto skin =
      unpack({{"Noc/", ""}, {"Noc/form.gif", gif(4, 4)}, {"Noc/play@2x.GIF", gif(8, 8)}, {"Noc.skin", description}});
  ASSERT_TRUE(skin) << refused.size();
  EXPECT_EQ(skin->name, L"Noc");
  EXPECT_EQ(skin->description, description);
  ASSERT_EQ(skin->pictures.size(), 2U);
  EXPECT_EQ(skin->pictures[0].file, L"form.gif");
  EXPECT_EQ(skin->pictures[0].bytes, gif(4, 4));
  EXPECT_EQ(skin->pictures[1].file, L"play@2x.GIF");
}

TEST_F(SkinArchiveTest, OneFolderMayHoldTheWholeSkin) {
  const auto skin = unpack({{"ke stazeni\\Proužek.skin", description}, {"ke stazeni\\Proužek\\form.gif", gif(4, 4)}});
  ASSERT_TRUE(skin);
  EXPECT_EQ(skin->name, L"Proužek");
  EXPECT_EQ(skin->pictures.size(), 1U);
}

TEST_F(SkinArchiveTest, OnlyWhatASkinHasIsTaken) {
  const auto skin = unpack({{"Noc.skin", description},
                            {"Noc/form.gif", gif(4, 4)},
                            {"Noc/../../orb.exe", "MZ"},
                            {"Noc/../form.gif", gif(4, 4)},
                            {"Noc/con.gif", gif(4, 4)},
                            {"Noc/stream:form.gif", gif(4, 4)},
                            {"Noc/inside/play.gif", gif(4, 4)},
                            {"C:/Windows/play.gif", gif(4, 4)},
                            {"../play.gif", gif(4, 4)},
                            {"cti mne.txt", "text"},
                            {"__MACOSX/._Noc.skin", "x"},
                            {"Noc/Thumbs.db", "x"}});
  ASSERT_TRUE(skin);
  ASSERT_EQ(skin->pictures.size(), 1U);
  EXPECT_EQ(skin->pictures[0].file, L"form.gif");
}

TEST_F(SkinArchiveTest, AnotherFolderIsNotLookedInto) {
  EXPECT_FALSE(unpack({{"Noc.skin", description}, {"Den/form.gif", gif(4, 4)}}));
  EXPECT_EQ(refused, L"v archivu chybí složka Noc s obrázky");
}

TEST_F(SkinArchiveTest, NamesThatAreNoneAreRefused) {
  for (const char* name : {"", "..", ".noc", " noc", "noc.", "noc ", "CON", "nul.noc", "Com1", "lpt9.a", "a:b", "a|b",
                           "a\"b", "a?b", "a\tb", "a<b"})
    EXPECT_FALSE(reason_for_name(name).empty()) << name;
  EXPECT_FALSE(reason_for_name(std::string(61, 'a')).empty());
  EXPECT_FALSE(reason_for_name("夜").empty()) << "the settings could not keep it";
  for (const char* name : {"Noc", "Noc 2", "Žluťoučká noc", "console", "com"})
    EXPECT_TRUE(reason_for_name(name).empty()) << name;
  EXPECT_TRUE(reason_for_name(std::string(60, 'a')).empty());
}

TEST_F(SkinArchiveTest, ExactlyOneSkinIsExpected) {
  EXPECT_EQ(reason({"Den.skin", description}), L"v archivu je více skinů, přetáhněte každý zvlášť");
  EXPECT_FALSE(unpack({{"Noc/form.gif", gif(4, 4)}}));
  EXPECT_EQ(refused, L"v archivu není soubor .skin");
  EXPECT_FALSE(skin::unpack_skin("no archive", codec, shown_pixels, refused));
  EXPECT_EQ(refused, L"archiv .zip je poškozený nebo příliš velký");
}

TEST_F(SkinArchiveTest, ADescriptionWithoutAWindowOrWithoutEndIsRefused) {
  EXPECT_FALSE(unpack({{"Noc.skin", "Author|nobody\r\n"}, {"Noc/form.gif", gif(4, 4)}}));
  EXPECT_EQ(refused, L"v popisu chybí řádek LTform");
  EXPECT_FALSE(unpack({{"Noc.skin", description + std::string(1024 * 1024, '\n')}, {"Noc/form.gif", gif(4, 4)}}));
  EXPECT_EQ(refused, L"soubor Noc.skin je v archivu poškozený nebo příliš velký");
}

TEST_F(SkinArchiveTest, APictureThatCannotBeShownRefusesTheSkin) {
  EXPECT_EQ(reason({"Noc/play.gif", "GIF89a"}), L"obrázek play.gif nelze zobrazit");
  EXPECT_EQ(reason({"Noc/FORM.gif", gif(4, 4)}), L"soubor FORM.gif je v archivu dvakrát");
  EXPECT_EQ(reason({"Noc/play.gif", std::string(8 * 1024 * 1024 + 1, 0)}),
            L"soubor play.gif je v archivu poškozený nebo příliš velký");
  EXPECT_EQ(reason({"Noc/play.gif", gif(4, 4), true, 5}), L"soubor play.gif je v archivu poškozený nebo příliš velký");
}

TEST_F(SkinArchiveTest, TooManyPixelsTogetherAreRefused) {
  std::vector<ZipFile> files = {{"Noc.skin", description}};
  for (const char* name : {"form", "play", "stop"}) // 8.4 megapixels each
    files.push_back({std::string("Noc/") + name + ".gif", gif(2900, 2900)});
  EXPECT_FALSE(unpack(files));
  EXPECT_EQ(refused, L"obrázky mají dohromady více než 24 megapixelů");
}

TEST_F(SkinArchiveTest, ABombEndsAtTheLimitOfAllContent) {
  const std::string padded = gif(4, 4) + std::string(8 * 1024 * 1024 - gif(4, 4).size(), 0);
  std::vector<ZipFile> files = {{"Noc.skin", description}};
  for (const char* name : {"form", "play", "stop", "rec"})
    files.push_back({std::string("Noc/") + name + ".gif", padded});
  EXPECT_FALSE(unpack(files));
  EXPECT_EQ(refused, L"soubor rec.gif je v archivu poškozený nebo příliš velký");
}

} // namespace
} // namespace lumotune::test
