// SPDX-License-Identifier: LGPL-2.1-or-later
#include "directory/update.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

using directory::FileFacts;
using directory::Probe;
using directory::Step;
using directory::Update;
using directory::UpdateSteps;
using stations::Conversion;
using Texts = std::vector<std::wstring>;

std::wstring step_text(const directory::UpdateStep& step) {
  static const std::map<Step, std::wstring> names = {{Step::remove_file, L"remove "},
                                                     {Step::set_status, L"status "},
                                                     {Step::show_progress, L"progress "},
                                                     {Step::hide_progress, L"hide progress"},
                                                     {Step::start_probe, L"start probe"},
                                                     {Step::start_list, L"start list"},
                                                     {Step::Timer1_on, L"Timer1 on"},
                                                     {Step::Timer1_off, L"Timer1 off"},
                                                     {Step::Timer2_off, L"Timer2 off"},
                                                     {Step::Timer3_on, L"Timer3 on"},
                                                     {Step::Timer3_off, L"Timer3 off"},
                                                     {Step::repaint, L"repaint"},
                                                     {Step::read_probe, L"read probe"},
                                                     {Step::convert, L"convert"},
                                                     {Step::reload, L"reload"},
                                                     {Step::NactiKategorie, L"NactiKategorie"},
                                                     {Step::CommandOK, L"CommandOK"},
                                                     {Step::Command1_on, L"Command1 on"},
                                                     {Step::Command1_off, L"Command1 off"},
                                                     {Step::TestOnLine, L"TestOnLine"},
                                                     {Step::show_message, L"message "}};
  return names.at(step.step) + (step.step == Step::show_progress ? std::to_wstring(step.number) : step.text);
}

Texts texts(const UpdateSteps& steps) {
  Texts list;
  for (const auto& step : steps.steps)
    list.push_back(step_text(step));
  return list;
}

FileFacts of_length(std::uint64_t length) {
  return {length, false};
}

Probe announcing(std::uint64_t size) {
  return {Probe::Kind::size, size};
}

const Texts nothing;
const Texts start = {L"Timer1 off",       L"Timer3 off",
                     L"hide progress",    L"remove orb_test_size.tt",
                     L"remove seznam.tt", L"status Připojování k databázi rádií...",
                     L"start probe",      L"Timer3 on"};
const Texts refusal = {L"status Aktualizaci nyní nelze provést, zkuste to prosím později."};
const std::wstring finished = L"status Hotovo, připraven...";

// An update whose probe is being read, or that downloads a list of that size.
Update probed() {
  Update update;
  (void)update.LoadAktualizaceRadii();
  (void)update.Timer3_Timer(of_length(7));
  return update;
}
Update downloading(std::uint64_t size) {
  Update update = probed();
  (void)update.probe_read(update.run(), announcing(size));
  return update;
}
Update converting() {
  Update update = downloading(10);
  (void)update.Timer1_Timer(of_length(10));
  return update;
}
std::wstring status_at(std::uint64_t length, std::uint64_t size) {
  return texts(downloading(size).Timer1_Timer(of_length(length))).at(0);
}
std::wstring percent(const std::wstring& number) {
  return L"status Aktualizuji seznam rádií (" + number + L"%)";
}

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

TEST(Update, WhatIsWrongWithThePresentListIsToldBesideTheStatusUntilThereIsAnother) {
  Update update;
  EXPECT_EQ(texts(update.LoadAktualizaceRadii(L"Je vadný.")).at(5), connecting + L" Je vadný.");
  (void)update.Timer3_Timer({});
  EXPECT_EQ(texts(update.Timer3_Timer({{}, false, 10'000})), Texts({connecting + L" Je vadný. Server neodpovídá."}));
  EXPECT_EQ(texts(update.online(update.run(), true)).at(5), connecting + L" Je vadný.");
  (void)update.Timer3_Timer(of_length(7));
  (void)update.probe_read(update.run(), announcing(10));
  (void)update.Timer1_Timer(of_length(10));
  (void)update.converted(update.run(), Conversion::done);
  EXPECT_EQ(texts(update.online(update.run(), true)).at(5), connecting);
}

TEST(Update, AFullDiskIsNamed) {
  Update update = converting();
  EXPECT_EQ(texts(update.converted(update.run(), Conversion::not_written, L"C:")).at(0),
            L"status Disk C: je plný. Seznam se nepodařilo uložit.");
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
    EXPECT_EQ(texts(update.close()),
              Texts({L"Timer1 off", L"Timer2 off", L"Timer3 off", L"hide progress", L"Command1 on"}));
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
