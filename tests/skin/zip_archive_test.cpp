// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/zip_archive.h"
#include "tests/support/zip_file.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

using skin::unzipped;
using skin::zip_entries;

constexpr std::size_t plenty = 1U << 20U;

TEST(ZipArchive, StoredAndDeflatedContentComesBack) {
  const std::string text(5000, 'a');
  const std::string zip =
      zip_of({{"a.txt", text, true}, {"slozka/b", "bb", false}, {"prazdny", "", true}}, "a comment");
  const auto entries = zip_entries(zip);
  ASSERT_TRUE(entries);
  ASSERT_EQ(entries->size(), 3U);
  EXPECT_EQ((*entries)[0].name, L"a.txt");
  EXPECT_LT((*entries)[0].packed, 100U);
  EXPECT_EQ(unzipped(zip, (*entries)[0], plenty), text);
  EXPECT_EQ((*entries)[1].name, L"slozka/b");
  EXPECT_EQ(unzipped(zip, (*entries)[1], plenty), "bb");
  EXPECT_EQ(unzipped(zip, (*entries)[2], plenty), "");
}

TEST(ZipArchive, NamesAreUtf8OrCodePage852) {
  const auto entries = zip_entries(zip_of({{"Proužek", ""},
                                           {"Prou\xa7"
                                            "ek",
                                            ""},
                                           {"\xf0\x9f\x8e\xb5", ""}}));
  ASSERT_TRUE(entries);
  EXPECT_EQ((*entries)[0].name, L"Proužek");
  EXPECT_EQ((*entries)[1].name, L"Proužek");
  EXPECT_EQ((*entries)[2].name.size(), 4U) << "beyond the basic plane: taken for code page 852";
}

TEST(ZipArchive, WhatIsNoArchiveHasNoEntries) {
  const std::string whole = zip_of({{"a", "content"}});
  EXPECT_FALSE(zip_entries(""));
  EXPECT_FALSE(zip_entries("PK"));
  EXPECT_FALSE(zip_entries(std::string(100, 'x')));
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(zip_entries(std::string_view(whole).substr(0, length))) << length;
  std::string broken = whole;
  broken[broken.find("PK\x01\x02")] = 'x';
  EXPECT_FALSE(zip_entries(broken));
}

TEST(ZipArchive, MoreEntriesThanTheLimitAreRefused) {
  std::vector<ZipFile> files(skin::max_zip_entries, ZipFile{"a", "", false});
  EXPECT_TRUE(zip_entries(zip_of(files)));
  files.push_back({"a", "", false});
  EXPECT_FALSE(zip_entries(zip_of(files)));
}

TEST(ZipArchive, NothingLongerThanTheLimitIsUnpacked) {
  const std::string zip = zip_of({{"bomb", std::string(100000, 0)}});
  const auto entries = zip_entries(zip);
  EXPECT_TRUE(unzipped(zip, entries->front(), 100000));
  EXPECT_FALSE(unzipped(zip, entries->front(), 99999));
}

TEST(ZipArchive, ALyingSizeIsRefused) {
  for (const std::int64_t told : {0, 10, 99, 101, 5000}) {
    for (const bool deflate : {true, false}) {
      const std::string zip = zip_of({{"a", std::string(100, 'a'), deflate, told}});
      EXPECT_FALSE(unzipped(zip, zip_entries(zip)->front(), plenty)) << told;
    }
  }
}

TEST(ZipArchive, DamagedAndEncryptedContentIsRefused) {
  const std::string zip = zip_of({{"a", "content", false}});
  auto entry = zip_entries(zip)->front();
  std::string damaged = zip;
  damaged[damaged.find("content")] = 'C';
  EXPECT_FALSE(unzipped(damaged, entry, plenty)) << "the check sum";
  entry.flags = 1;
  EXPECT_FALSE(unzipped(zip, entry, plenty)) << "encrypted";
  entry.flags = 0;
  entry.method = 12;
  EXPECT_FALSE(unzipped(zip, entry, plenty)) << "another method";
}

TEST(ZipArchive, OffsetsLeadNowhereOutside) {
  const std::string zip = zip_of({{"a", "content", false}});
  const auto good = zip_entries(zip)->front();
  for (const std::uint32_t header : {1U, static_cast<std::uint32_t>(zip.size()), 0xffffffffU}) {
    auto entry = good;
    entry.header = header;
    EXPECT_FALSE(unzipped(zip, entry, plenty)) << header;
  }
  auto entry = good;
  entry.packed = entry.size = 0xfffffff0U;
  EXPECT_FALSE(unzipped(zip, entry, 0xffffffffU));
}

} // namespace
} // namespace lumotune::test
