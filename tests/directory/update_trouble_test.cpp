// SPDX-License-Identifier: LGPL-2.1-or-later
// What an update says of a server, a download and a disk that stand in its way.
#include "tests/directory/update_steps.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

const std::wstring connecting = L"status Připojování k databázi rádií...";

TEST(Update, AServerThatDoesNotAnswerIsToldOnceAndStillWaitedFor) {
  for (const bool open : {false, true}) { // refused or silent; or a downloader that keeps its file open
    Update update;
    (void)update.LoadAktualizaceRadii();
    const auto tick = [&](std::uint32_t now) { return texts(update.Timer3_Timer({open ? 7U : 0U, open, now})); };
    constexpr std::uint32_t start_ms = 4294960000U; // the tick count wraps
    EXPECT_EQ(tick(start_ms), nothing);
    EXPECT_EQ(tick(start_ms + 9'999), nothing);
    EXPECT_EQ(tick(start_ms + 10'000), Texts({connecting + L" Server neodpovídá."}));
    EXPECT_EQ(tick(start_ms + 20'000), nothing);
    EXPECT_EQ(texts(update.Timer3_Timer({7, false, start_ms + 60'000})), Texts({L"Timer3 off", L"read probe"}));
    (void)update.LoadAktualizaceRadii();
    EXPECT_EQ(tick(start_ms + 60'100), nothing) << "each update has its own ten seconds";
    EXPECT_EQ(tick(start_ms + 70'100).size(), 1U);
  }
}

TEST(Update, AListThatDoesNotGrowIsToldUntilItDoes) {
  Update update = downloading(200);
  const auto tick = [&](std::uint64_t length, std::uint32_t now, const wchar_t* full_disk = L"") {
    return texts(update.Timer1_Timer({length, false, now, full_disk})).at(0);
  };
  EXPECT_EQ(tick(0, 100), percent(L"0"));
  EXPECT_EQ(tick(0, 10'099), percent(L"0"));
  EXPECT_FALSE(update.stands(10'099));
  EXPECT_TRUE(update.stands(10'100));
  EXPECT_EQ(tick(0, 10'100), percent(L"0") + L" Stahování stojí.");
  EXPECT_EQ(tick(50, 10'200), percent(L"25"));
  EXPECT_EQ(tick(50, 20'199), percent(L"25"));
  EXPECT_EQ(tick(50, 20'200, L"C:"), percent(L"25") + L" Disk C: je plný.");
  EXPECT_EQ(tick(300, 20'300), percent(L"150"));
  EXPECT_EQ(tick(300, 40'300), percent(L"150") + L" Stahování stojí.") << "longer than announced";
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(200))).back(), L"convert") << "the watch goes on";
}

TEST(Update, TheSilenceOfTheProbeIsNotTheDownloads) {
  Update update;
  (void)update.LoadAktualizaceRadii();
  (void)update.Timer3_Timer({{}, false, 0});
  EXPECT_FALSE(update.stands(20'000)) << "nothing is downloaded yet";
  (void)update.Timer3_Timer({7, false, 9'000});
  (void)update.probe_read(update.run(), announcing(200));
  EXPECT_EQ(texts(update.Timer1_Timer({0, false, 10'500})).at(0), percent(L"0"));
  EXPECT_FALSE(update.stands(20'499));
  EXPECT_TRUE(update.stands(20'500));
}

TEST(Update, WhatIsWrongWithThePresentListIsToldBesideTheStatusUntilThereIsAnother) {
  Update update;
  EXPECT_EQ(texts(update.LoadAktualizaceRadii(L"Je vadný.")).at(6), connecting + L" Je vadný.");
  (void)update.Timer3_Timer({});
  EXPECT_EQ(texts(update.Timer3_Timer({{}, false, 10'000})), Texts({connecting + L" Je vadný. Server neodpovídá."}));
  EXPECT_EQ(texts(update.online(update.run(), true)).at(6), connecting + L" Je vadný.");
  (void)update.Timer3_Timer(of_length(7));
  (void)update.probe_read(update.run(), announcing(10));
  (void)update.Timer1_Timer(of_length(10));
  (void)update.converted(update.run(), Conversion::done);
  EXPECT_EQ(texts(update.online(update.run(), true)).at(6), connecting);
}

TEST(Update, AFullDiskIsNamed) {
  Update update = converting();
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::not_written, L"C:")).at(0),
            L"status Disk C: je plný. Seznam se nepodařilo uložit.");
}

} // namespace
} // namespace lumotune::test
