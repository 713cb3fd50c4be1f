// SPDX-License-Identifier: LGPL-2.1-or-later
// The update seen from the window: what a server, a downloader and the files between them may do.
#include "stations/station_limits.h"
#include "tests/directory/update_world.h"

#include <functional>
#include <vector>

namespace lumotune::test {
namespace {

struct ListRadiosUpdate : UpdateWorld {};

TEST_F(ListRadiosUpdate, TheDownloaderIsAskedAfterTheOldAnswersAreGone) {
  write(L"orb_test_size.tt", "size:5");
  write(L"seznam.tt", "stary");
  shell.on_start = [this](const platform::memory::Shell::Started&) {
    EXPECT_EQ(content(L"orb_test_size.tt") + content(L"seznam.tt"), "(missing)(missing)");
    EXPECT_EQ(status(), connecting);
  };
  const auto started = shell.started.size();
  Command1().press();
  EXPECT_EQ(shell.started.size(), started + 1);
}

TEST_F(ListRadiosUpdate, TheWindowRepaintsAfterEachLineOfTheProbe) {
  write(L"orb_test_size.tt", "a\r\nb\r\nsize:5\r\n\r\nc");
  const auto runs = loop.pending_runs();
  loop.advance(100);
  EXPECT_EQ(loop.pending_runs() - runs, 5U + 1U) << "and once before the download";
}

TEST_F(ListRadiosUpdate, AProbeThatIsTooLongRefuses) {
  const std::string size = "size:5\r\n";
  write(L"orb_test_size.tt", size + std::string(directory::max_probe_bytes - size.size() + 1, ' '));
  loop.advance(100);
  EXPECT_EQ(status(), refused);
  EXPECT_EQ(shell.started.size(), 1U) << "no list is asked for";
  directory.Naladit();
  Command1().press();
  write(L"orb_test_size.tt", size + std::string(directory::max_probe_bytes - size.size(), ' '));
  loop.advance(100);
  EXPECT_EQ(shell.started.size(), 3U);
}

TEST_F(ListRadiosUpdate, SeveralAdvertisementsAskForOnePage) {
  auto& browser = part<platform::memory::Browser>(L"WebBrowser1");
  std::string list;
  for (int i = 1; i <= 3; ++i)
    list += "orb:r:1050/@/7125/@/1/@/http://server/" + std::to_string(i) + "\r\n";
  bring(list + "orb:r:vadna\r\n");
  EXPECT_EQ(status(), finished);
  EXPECT_EQ(browser.visited, std::vector<std::wstring>{L"http://server/3"});
  Command1().press();
  list.clear();
  for (int i = 1; i <= 12; ++i)
    list += "orb:r:1050/@/7125/@/1/@/http://jiny/" + std::to_string(i) + "\r\n";
  bring(list);
  ASSERT_EQ(browser.visited.size(), 2U);
  EXPECT_EQ(browser.visited[1], L"http://jiny/10") << "those behind the tenth are left out";
  Command1().press();
  bring("orb:i:0/@//@/50/@/zprava\r\n");
  EXPECT_EQ(browser.visited.size(), 2U) << "a list without an advertisement asks for none";
}

TEST_F(ListRadiosUpdate, ClosingWhileTheProbeIsReadEndsTheReading) {
  std::string probe;
  for (int i = 0; i < 1000; ++i)
    probe += "radek\r\n";
  write(L"orb_test_size.tt", probe + "size:5\r\n");
  loop.at(100, [this] { loop.at(0, [this] { window_shown().user_close(); }); });
  const auto runs = loop.pending_runs();
  loop.advance(1000);
  EXPECT_FALSE(directory.open());
  EXPECT_LT(loop.pending_runs() - runs, 100U);
  EXPECT_EQ(shell.started.size(), 1U) << "no list is asked for";
}

TEST_F(ListRadiosUpdate, AnEndOfTheProgramWhileTheProbeIsReadEndsTheReading) {
  write(L"orb_test_size.tt", "a\r\nb\r\nc\r\nsize:5\r\n");
  loop.at(100, [this] { loop.at(0, [this] { loop.quit(); }); });
  const auto runs = loop.pending_runs();
  loop.advance(1000);
  EXPECT_LE(loop.pending_runs() - runs, 2U);
  EXPECT_EQ(shell.started.size(), 1U);
  EXPECT_EQ(status(), connecting);
}

TEST_F(ListRadiosUpdate, AnUpdateOnTopOfAnotherBeginsAnew) {
  announce(100);
  write(L"seznam.tt", std::string(60, 'x'));
  loop.advance(100);
  EXPECT_EQ(status(), L"Aktualizuji seznam rádií (60%)");
  Command1().press();
  EXPECT_EQ(status(), connecting);
  EXPECT_EQ(content(L"seznam.tt"), "(missing)");
  EXPECT_FALSE(progress().visible());
  write(L"seznam.tt", std::string(100, 'x')); // the old downloader, which nobody stops
  loop.advance(1000);
  EXPECT_EQ(status(), connecting) << "the old size is forgotten";
  EXPECT_EQ(content(L"radios.tt"), before);
  bring(stations_text());
  EXPECT_EQ(status(), finished);
}

TEST_F(ListRadiosUpdate, AfterARefusalTheButtonStaysAsItWas) {
  write(L"orb_test_size.tt", "orb.cz:error");
  loop.advance(100);
  EXPECT_EQ(status(), refused);
  EXPECT_TRUE(Command1().enabled()) << "nobody pressed it";
  Command1().press();
  write(L"orb_test_size.tt", "orb.cz:error");
  loop.advance(100);
  EXPECT_EQ(status(), refused);
  EXPECT_FALSE(Command1().enabled());
  loop.advance(1000);
  EXPECT_EQ(shell.started.size(), 2U) << "two probes, no list";
}

TEST_F(ListRadiosUpdate, TheWindowRepaintsBeforeAndAfterTheConnectionIsAskedFor) {
  connection.now.connected = false;
  const auto runs = loop.pending_runs();
  Command1().press();
  EXPECT_EQ(loop.pending_runs() - runs, 2U);
}

TEST_F(ListRadiosUpdate, ClosingWhileTheConnectionIsAskedForStartsNothing) {
  loop.at(0, [this] { window_shown().user_close(); });
  Command1().press();
  EXPECT_FALSE(directory.open());
  EXPECT_EQ(shell.started.size(), 1U);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ListRadiosUpdate, AnEndOfTheProgramWhileTheConnectionIsAskedForStartsNothing) {
  loop.at(0, [this] { loop.quit(); });
  connection.now.connected = false;
  Command1().press();
  EXPECT_EQ(shell.started.size(), 1U);
  EXPECT_TRUE(dialogs.shown.empty());
}

// Whatever an update ended with after the button was pressed, opening the window anew brings the button and an update.
TEST_F(ListRadiosUpdate, ClosingAndOpeningBringsTheButtonBackWhateverHappened) {
  const std::vector<std::function<void()>> ends = {
      [this] { write(L"orb_test_size.tt", "orb.cz:error"); },                // refused
      [this] { connection.now.connected = false; },                          // asked below
      [this] { announce(100); },                                             // a list that never comes
      [this] { bring(std::string(stations::max_station_lines + 1, '\n')); }, // of too many lines
      [this] {
        files.make_readonly(path(L"radios.tt"));
        bring(stations_text() + Record{"NOVA01", "Nov\xe1"}.line());
        EXPECT_EQ(status(), held);
      }};
  for (const auto& end : ends) {
    if (&end == &ends[1])
      end();
    Command1().press();
    if (&end != &ends[1])
      end();
    loop.advance(1000);
    EXPECT_FALSE(Command1().enabled()) << &end - ends.data();
    connection.now.connected = true;
    window_shown().user_close();
    loop.advance(200);
    files.mend(path(L"radios.tt"));
    directory.Naladit();
    EXPECT_TRUE(Command1().enabled()) << &end - ends.data();
    EXPECT_EQ(status(), connecting);
    bring(stations_text());
    EXPECT_EQ(status(), finished);
  }
}

TEST_F(ListRadiosUpdate, ASignOfNewCategoriesThatIsEmptyIsNone) {
  (void)favourites_shown_anew();
  write(L"kategories_new.tt", "");
  loop.advance(2000);
  EXPECT_FALSE(favourites_shown_anew());
  write(L"kategories_new.tt", "x");
  files.set_being_written(path(L"kategories_new.tt"), true);
  loop.advance(2000);
  EXPECT_FALSE(favourites_shown_anew()) << "still being written";
  files.set_being_written(path(L"kategories_new.tt"), false);
  loop.advance(500);
  EXPECT_TRUE(favourites_shown_anew());
  EXPECT_EQ(content(L"kategories_new.tt"), "x") << "it is another program's";
}

} // namespace
} // namespace lumotune::test
