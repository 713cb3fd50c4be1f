// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/directory/update_steps.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

TEST(Update, StartsWithTheProbe) {
  Update update;
  EXPECT_EQ(texts(update.LoadAktualizaceRadii()), start);
}

TEST(Update, WaitsUntilTheProbeIsThere) {
  Update update;
  (void)update.LoadAktualizaceRadii();
  EXPECT_EQ(texts(update.Timer3_Timer({})), nothing) << "missing";
  EXPECT_EQ(texts(update.Timer3_Timer(of_length(0))), nothing) << "empty";
  EXPECT_EQ(texts(update.Timer3_Timer({7, true})), nothing) << "still open in the downloader";
  EXPECT_EQ(texts(update.Timer3_Timer(of_length(1))), Texts({L"Timer3 off", L"read probe"}));
  EXPECT_EQ(texts(update.Timer3_Timer(of_length(1))), nothing) << "read once";
}

TEST(Update, WatchesBeforeTheDownloadStarts) {
  Update update = probed();
  EXPECT_EQ(texts(update.probe_read(update.run(), announcing(1000))), Texts({L"Timer1 on", L"repaint", L"start list"}));
}

TEST(Update, ARefusedOrUnusableProbeStopsIt) {
  for (const Probe& answer : {Probe{Probe::Kind::refused, 0}, Probe{Probe::Kind::unusable, 0}, announcing(0)}) {
    Update update = probed();
    EXPECT_EQ(texts(update.probe_read(update.run(), answer)), refusal);
    EXPECT_EQ(texts(update.probe_read(update.run(), announcing(10))), nothing) << "answered once";
    EXPECT_EQ(texts(update.Timer1_Timer(of_length(0))), nothing) << "no download is watched";
    EXPECT_EQ(texts(update.Timer3_Timer(of_length(7))), nothing);
  }
}

TEST(Update, AProbeThatCannotBeReadIsTriedAgain) {
  Update update = probed();
  EXPECT_EQ(texts(update.probe_read(update.run(), std::nullopt)), Texts({L"Timer3 on"}));
  EXPECT_EQ(texts(update.Timer3_Timer(of_length(7))), Texts({L"Timer3 off", L"read probe"}));
}

TEST(Update, ShowsHowFarTheDownloadHasCome) {
  Update update = downloading(200);
  EXPECT_EQ(texts(update.Timer1_Timer({})), Texts({percent(L"0"), L"progress 0"})) << "not there yet";
  EXPECT_EQ(texts(update.Timer1_Timer({50, true})), Texts({percent(L"25"), L"progress 25"}));
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(199))), Texts({percent(L"100"), L"progress 100"}))
      << "99.5 is rounded to the even neighbour";
}

TEST(Update, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(status_at(1, 200), percent(L"0"));
  EXPECT_EQ(status_at(3, 200), percent(L"2"));
  EXPECT_EQ(status_at(5, 200), percent(L"2"));
  EXPECT_EQ(status_at(7, 200), percent(L"4"));
  EXPECT_EQ(status_at(1, 8), percent(L"12"));
  EXPECT_EQ(status_at(3, 8), percent(L"38"));
  EXPECT_EQ(status_at(1, 3), percent(L"33"));
  EXPECT_EQ(status_at(2, 3), percent(L"67"));
}

// 15 of 24 bytes are 62.5 %, but the factor of 24, rounded to a double, makes it a little more.
TEST(Update, TheFactorComesFirst) {
  EXPECT_EQ(status_at(15, 24), percent(L"63"));
  EXPECT_EQ(status_at(11, 88), percent(L"13"));
}

TEST(Update, ThePercentageStaysWithin16Bits) {
  EXPECT_EQ(status_at(327, 1), percent(L"32700"));
  EXPECT_EQ(status_at(328, 1), percent(L"32767"));
  EXPECT_EQ(status_at(UINT64_MAX, 1), percent(L"32767"));
  EXPECT_EQ(texts(downloading(1).Timer1_Timer(of_length(5))), Texts({percent(L"500"), L"progress 100"}));
}

TEST(Update, ALongerListNeverCounts) {
  Update update = downloading(10);
  for (const std::uint64_t length : {11U, 20U, 1000000U})
    EXPECT_EQ(texts(update.Timer1_Timer(of_length(length))).size(), 2U);
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(9))).size(), 2U);
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))).size(), 6U);
}

TEST(Update, ACompleteListIsConverted) {
  Update update = downloading(10);
  EXPECT_EQ(texts(update.Timer1_Timer({10, true})).size(), 2U) << "still open in the downloader";
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))), Texts({percent(L"100"), L"progress 100", L"Timer1 off",
                                                              L"status Zpracovávám data...", L"repaint", L"convert"}));
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))), nothing) << "converted once";
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::done)),
            Texts({L"reload", L"repaint", finished, L"hide progress", L"Command1 on"}));
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::done)), nothing);
}

TEST(Update, AListThatCannotBeReadIsWatchedOn) {
  Update update = converting();
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::unreadable)), Texts({L"Timer1 on"}));
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))).back(), L"convert");
}

TEST(Update, FilesThatCannotBeWrittenAreSaid) {
  Update update = converting();
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::not_written)),
            Texts({L"status Soubory seznamu používá jiný program, otevřete okno znovu.", L"hide progress"}));
  update = converting();
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::too_long)),
            Texts({refusal[0] + L" Seznam je příliš dlouhý.", L"hide progress"}));
}

TEST(Update, ASecondStartBeginsAnewFromEveryState) {
  for (Update update : {probed(), downloading(10), converting()}) {
    const unsigned before = update.run();
    EXPECT_EQ(texts(update.LoadAktualizaceRadii()), start);
    EXPECT_NE(update.run(), before);
    EXPECT_EQ(texts(update.probe_read(before, announcing(10))), nothing) << "an answer to the old run";
    EXPECT_EQ(texts(update.converted(before, Conversion::done)), nothing);
    EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))), nothing) << "the announced size is forgotten";
    EXPECT_EQ(texts(update.Timer3_Timer(of_length(5))), Texts({L"Timer3 off", L"read probe"}));
  }
}

TEST(Update, AnAnswerToAnOlderRunIsNotTakenForTheNewOne) {
  Update update = probed();
  const unsigned before = update.run();
  (void)update.LoadAktualizaceRadii();
  (void)update.Timer3_Timer(of_length(7));
  EXPECT_EQ(texts(update.probe_read(before, announcing(10))), nothing);
  (void)update.probe_read(update.run(), announcing(10));
  (void)update.Timer1_Timer(of_length(10));
  EXPECT_EQ(texts(update.converted(before, Conversion::done)), nothing);
  EXPECT_FALSE(texts(update.converted(update.run(), Conversion::done)).empty());
}

TEST(Update, StepsCarryTheirRun) {
  Update update;
  const UpdateSteps first = update.LoadAktualizaceRadii();
  EXPECT_EQ(first.run, update.run());
  const UpdateSteps second = update.LoadAktualizaceRadii();
  EXPECT_EQ(second.run, update.run());
  EXPECT_NE(first.run, second.run);
  (void)update.close();
  EXPECT_NE(second.run, update.run());
}

TEST(Update, ClosingEndsEverything) {
  for (Update update : {probed(), downloading(10), converting()}) {
    const unsigned before = update.run();
    EXPECT_EQ(texts(update.close()), Texts({L"Timer1 off", L"Timer2 off", L"Timer3 off", L"give up conversion",
                                            L"hide progress", L"Command1 on"}));
    EXPECT_EQ(texts(update.probe_read(before, announcing(10))), nothing);
    EXPECT_EQ(texts(update.converted(before, Conversion::done)), nothing);
    EXPECT_EQ(texts(update.online(before, true)), nothing);
    EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))), nothing);
    EXPECT_EQ(texts(update.Timer3_Timer(of_length(10))), nothing);
    EXPECT_EQ(texts(update.LoadAktualizaceRadii()), start) << "and can start again";
  }
}

TEST(Update, NewCategoriesAreReadOnceTheyAreThere) {
  Update update;
  EXPECT_EQ(texts(update.Timer2_Timer({})), nothing);
  EXPECT_EQ(texts(update.Timer2_Timer(of_length(0))), nothing);
  EXPECT_EQ(texts(update.Timer2_Timer({5, true})), nothing);
  EXPECT_EQ(texts(update.Timer2_Timer(of_length(1))), Texts({L"Timer2 off", L"NactiKategorie", L"CommandOK"}));
}

TEST(Update, TheButtonStartsAnUpdateWhenOnline) {
  Update update;
  EXPECT_EQ(texts(update.Command1_Click()), Texts({L"Command1 off", L"TestOnLine"}));
  EXPECT_EQ(texts(update.online(update.run(), true)), start);
}

TEST(Update, TheButtonStaysDisabledWhenOffline) {
  Update update;
  (void)update.Command1_Click();
  EXPECT_EQ(texts(update.online(update.run(), false)),
            Texts({L"message Nejste připojeni k internetu.\r\nProsím připojte se!"}));
}

TEST(Update, BeingOfflineDisturbsNoUpdateThatRuns) {
  Update update = downloading(10);
  (void)update.Command1_Click();
  (void)update.online(update.run(), false);
  EXPECT_EQ(texts(update.Timer1_Timer(of_length(10))).back(), L"convert");
}

} // namespace
} // namespace lumotune::test
