// SPDX-License-Identifier: LGPL-2.1-or-later
// The files that the downloader writes: still open, unreadable, too long, of another length.
#include "stations/station_limits.h"
#include "tests/directory/update_world.h"

#include <functional>
#include <vector>

namespace lumotune::test {
namespace {

struct ListRadiosUpdateFiles : UpdateWorld {};

TEST_F(ListRadiosUpdateFiles, FilesAreLookedAtTenTimesASecond) {
  write(L"orb_test_size.tt", "size:5");
  loop.advance(99);
  EXPECT_EQ(status(), connecting);
  loop.advance(1);
  EXPECT_EQ(shell.started.size(), 2U);
  loop.advance(99);
  EXPECT_EQ(status(), connecting);
  loop.advance(1);
  EXPECT_EQ(status(), L"Aktualizuji seznam rádií (0%)");
}

// The downloader goes on writing between the look at the length and the reading.
TEST_F(ListRadiosUpdateFiles, AListThatGrewBeforeItWasReadIsNotConverted) {
  const std::string list = "RADIO9/@/Nove\r\norb:i:0/@//@/1/@/zprava\r\n";
  announce(list.size());
  write(L"seznam.tt", list);
  for (const std::string& changed : {list + "x", list.substr(1), std::string()}) {
    files.before_read = [&](const std::wstring& file) {
      files.before_read = {};
      EXPECT_TRUE(file.ends_with(L"seznam.tt"));
      write(L"seznam.tt", changed);
    };
    loop.advance(100);
    EXPECT_EQ(content(L"radios.tt"), before);
    EXPECT_NE(status(), finished);
    EXPECT_FALSE(label(L"InfoPanel").visible()) << "no order was obeyed";
    write(L"seznam.tt", list);
  }
  loop.advance(100);
  EXPECT_EQ(status(), finished);
  EXPECT_EQ(content(L"radios.tt"), "RADIO9/@/Nove\r\n\r\n");
}

TEST_F(ListRadiosUpdateFiles, AListOfTooManyLinesChangesNothing) {
  std::string list = "orb:i:0/@//@/1/@/zprava\r\n";
  list.append(stations::max_station_lines, '\n');
  bring(list);
  EXPECT_EQ(status(), std::wstring(refused) + L" Seznam je příliš dlouhý.");
  EXPECT_EQ(content(L"radios.tt"), before);
  EXPECT_FALSE(label(L"InfoPanel").visible());
}

TEST_F(ListRadiosUpdateFiles, AServerThatIsSilentIsToldAfterTenSeconds) {
  loop.advance(9'900);
  EXPECT_EQ(status(), connecting);
  loop.advance(300);
  EXPECT_EQ(status(), std::wstring(connecting) + L" Server neodpovídá.");
  bring("RADIO9/@/Nove\r\n");
  EXPECT_EQ(status(), finished) << "the watch goes on";
}

TEST_F(ListRadiosUpdateFiles, AFullDiskIsNamedWhileTheListStands) {
  announce(1000);
  write(L"seznam.tt", std::string(500, 'x'));
  files.room = 499;
  loop.advance(10'500);
  EXPECT_EQ(status(), L"Aktualizuji seznam rádií (50%) Disk C: je plný.");
  files.room = 500;
  loop.advance(100);
  EXPECT_EQ(status(), L"Aktualizuji seznam rádií (50%) Stahování stojí.");
}

TEST_F(ListRadiosUpdateFiles, AFullDiskIsNamedWhereTheFilesCannotBeWritten) {
  const std::string list = "RADIO9/@/Nove\r\n";
  announce(list.size());
  write(L"seznam.tt", list);
  files.room = 3;
  loop.advance(100);
  EXPECT_EQ(status(), L"Disk C: je plný. Seznam se nepodařilo uložit.");
  EXPECT_EQ(content(L"radios.tt"), before);
}

TEST_F(ListRadiosUpdateFiles, AStationFileOverTheLimitIsToldAndNotUsed) {
  write(L"radios.tt", before + std::string(stations::max_station_lines, '\n'));
  open_again();
  EXPECT_EQ(status(), std::wstring(connecting) + L" Soubor radios.tt je příliš dlouhý.");
  EXPECT_TRUE(names().empty());
  bring("RADIO9/@/Nove\r\n");
  EXPECT_EQ(status(), finished);
}

TEST_F(ListRadiosUpdateFiles, AProbeStillOpenInTheDownloaderIsWaitedFor) {
  write(L"orb_test_size.tt", "size:1");
  files.set_being_written(path(L"orb_test_size.tt"), true);
  loop.advance(1000);
  EXPECT_EQ(shell.started.size(), 1U);
  write(L"orb_test_size.tt", "size:100");
  files.set_being_written(path(L"orb_test_size.tt"), false);
  loop.advance(100);
  EXPECT_EQ(shell.started.size(), 2U);
}

TEST_F(ListRadiosUpdateFiles, AProbeThatCannotBeReadYetIsReadLater) {
  write(L"orb_test_size.tt", "size:100");
  files.make_unreadable(path(L"orb_test_size.tt"));
  loop.advance(1000);
  EXPECT_EQ(status(), connecting);
  EXPECT_EQ(shell.started.size(), 1U);
  files.mend(path(L"orb_test_size.tt"));
  loop.advance(100);
  EXPECT_EQ(shell.started.size(), 2U);
}

TEST_F(ListRadiosUpdateFiles, AListStillOpenInTheDownloaderIsWaitedFor) {
  const std::string fresh = Record{"NOVA01", "Nov\xe1"}.line();
  files.set_being_written(path(L"seznam.tt"), true);
  bring(fresh);
  loop.advance(1000);
  EXPECT_EQ(status(), L"Aktualizuji seznam rádií (100%)");
  EXPECT_EQ(content(L"radios.tt"), before);
  files.set_being_written(path(L"seznam.tt"), false);
  loop.advance(100);
  EXPECT_EQ(status(), finished);
  EXPECT_EQ(content(L"radios.tt"), fresh + "\r\n");
}

// The question keeps a writer out while it is asked.
TEST_F(ListRadiosUpdateFiles, ADownloaderThatOpensItsFileForEveryPieceIsNotDisturbed) {
  loop.advance(1000);
  EXPECT_EQ(files.writers_asked_for(), 0U) << "there is no probe yet";
  announce(100);
  const auto asked = files.writers_asked_for();
  for (std::size_t length = 0; length < 100; length += 20) {
    write(L"seznam.tt", std::string(length, 'x'));
    loop.advance(100);
  }
  EXPECT_EQ(files.writers_asked_for(), asked);
  write(L"seznam.tt", std::string(100, 'x'));
  loop.advance(100);
  EXPECT_EQ(files.writers_asked_for(), asked + 1);
}

TEST_F(ListRadiosUpdateFiles, AListThatCannotBeReadYetIsConvertedLater) {
  const std::string fresh = Record{"NOVA01", "Nov\xe1"}.line();
  files.make_unreadable(path(L"seznam.tt"));
  bring(fresh);
  loop.advance(1000);
  EXPECT_EQ(content(L"radios.tt"), before);
  EXPECT_EQ(list().count(), 4U);
  files.mend(path(L"seznam.tt"));
  loop.advance(100);
  EXPECT_EQ(status(), finished);
  EXPECT_EQ(content(L"radios.tt"), fresh + "\r\n");
}

TEST_F(ListRadiosUpdateFiles, AListOfAnotherLengthLeavesTheOldOne) {
  announce(100);
  for (const std::size_t length : {0U, 1U, 99U, 101U, 5000U}) {
    write(L"seznam.tt", std::string(length, 'x'));
    loop.advance(300);
    EXPECT_EQ(status(), L"Aktualizuji seznam rádií (" + std::to_wstring(length) + L"%)");
    EXPECT_EQ(content(L"radios.tt"), before) << length;
  }
  EXPECT_EQ(progress().percent(), 100);
}

TEST_F(ListRadiosUpdateFiles, FilesThatCannotBeWrittenLeaveTheOldOnes) {
  files.make_readonly(path(L"kategories.tt"));
  const std::string categories = content(L"kategories.tt");
  Command1().press();
  bring("orb:k:new//100009/@/X\r\n" + Record{"NOVA01", "Nov\xe1"}.line());
  EXPECT_EQ(status(), held);
  EXPECT_FALSE(Command1().enabled()) << "only a completed update enables it";
  EXPECT_FALSE(progress().visible());
  EXPECT_EQ(content(L"radios.tt"), before);
  EXPECT_EQ(content(L"kategories.tt"), categories);
  EXPECT_EQ(tree().count(), 6U);
  EXPECT_EQ(list().count(), 4U);
}

} // namespace
} // namespace lumotune::test
