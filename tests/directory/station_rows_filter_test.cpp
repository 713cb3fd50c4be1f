// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/directory/rows_world.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

struct FilteredRows : RowsWorld, testing::Test {
  FilteredRows() {
    all(station("RADIO1", "\xc8Ro Plus", "", "100001") + station("RADIO2", "Z\xe1pad", "tip (\xc8R)", "100002") +
        "RADIO3/@/Antenne S\xfc"
        "d/@//@/x/@/N\xecmecko/@/100001\r\n" +
        "RADIO4/@/R\xe1"
        "dio Stra\xdf"
        "e/@//@/x/@/Rakousko/@/100001\r\n");
  }
  Keys found(const std::wstring& typed) {
    rows.set_filter(typed);
    return keys();
  }
};

TEST_F(FilteredRows, NameCountryAndWhatTheMarkerAddsAreSearched) {
  EXPECT_EQ(found(L"plus"), Keys{L"orbRADIO1"});
  EXPECT_EQ(found(L"cesko"), (Keys{L"orbRADIO1", L"orbRADIO2"}));
  EXPECT_EQ(found(L"ČR"), (Keys{L"orbRADIO1", L"orbRADIO2"}));
  EXPECT_EQ(found(L"(čr)"), Keys{L"orbRADIO2"});
  EXPECT_EQ(found(L"sud"), Keys{L"orbRADIO3"});
  EXPECT_EQ(found(L"SÜD"), Keys{L"orbRADIO3"});
  EXPECT_EQ(found(L"strasse"), Keys{L"orbRADIO4"});
  EXPECT_EQ(found(L"straße"), Keys{L"orbRADIO4"});
  EXPECT_EQ(found(L"tip"), Keys{}) << "the mark itself is not shown";
  EXPECT_EQ(found(L"http"), Keys{});
  EXPECT_EQ(found(L"100001"), Keys{});
}

TEST_F(FilteredRows, EveryWordMustBeThere) {
  EXPECT_EQ(found(L"  rakousko   radio "), Keys{L"orbRADIO4"});
  EXPECT_EQ(found(L"plus rakousko"), Keys{});
  EXPECT_EQ(found(L"dcesko"), Keys{}) << "not across the columns";
  EXPECT_EQ(found(L"радио"), Keys{}) << "what the code page lacks is nowhere";
  EXPECT_EQ(found(L"plus радио"), Keys{});
  EXPECT_EQ(found(L"   ").size(), 4U);
  EXPECT_FALSE(rows.filtered());
}

TEST_F(FilteredRows, RowsAreNumberedAsShown) {
  rows.set_filter(L"r");
  ASSERT_EQ(found(L"ra"), Keys{L"orbRADIO4"});
  EXPECT_EQ(rows.count(), 1U);
  EXPECT_EQ(rows.unfiltered_count(), 4U);
  EXPECT_EQ(rows.text(1, 0), L"Rádio Straße");
  EXPECT_EQ(rows.find(L"RADIO4"), 1U);
  EXPECT_EQ(rows.find(L"RADIO1"), 0U);
  EXPECT_TRUE(rows.filtered_away(L"RADIO1"));
  EXPECT_FALSE(rows.filtered_away(L"RADIO4"));
  EXPECT_FALSE(rows.filtered_away(L"NIKDE1"));
  EXPECT_EQ(rows.text(2, 0), L"");
  rows.set_filter(L"");
  EXPECT_EQ(rows.find(L"RADIO4"), 4U);
  EXPECT_FALSE(rows.filtered_away(L"RADIO1"));
}

TEST_F(FilteredRows, AnotherCategoryIsFilteredToo) {
  rows.set_filter(L"cesko");
  EXPECT_EQ(category(L"100002"), Keys{L"orbRADIO2"});
  EXPECT_EQ(category(L"100001"), Keys{L"orbRADIO1"});
  rows.set_filter(L"");
  EXPECT_EQ(keys().size(), 3U);
  rows.set_filter(L"x");
  rows.clear();
  EXPECT_EQ(rows.count(), 0U);
}

} // namespace
} // namespace lumotune::test
