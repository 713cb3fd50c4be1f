// SPDX-License-Identifier: LGPL-2.1-or-later
// Closing the directory window, whatever is under way.
#include "tests/directory/window_world.h"

#include <optional>

namespace lumotune::directory {
namespace {

struct ListRadiosClosing : WindowWorld {};

TEST_F(ListRadiosClosing, ClosingGivesUpTheUpdateAndOpeningStartsAnew) {
  directory.Naladit();
  write(L"orb_test_size.tt", "size:1000");
  loop.advance(100);
  pick_node(L"a100002");
  window_shown().user_close();
  EXPECT_FALSE(directory.open());
  write(L"seznam.tt", std::string(1000, 'x'));
  loop.advance(500);
  EXPECT_NE(content(L"radios.tt").find("RADIO1"), std::string::npos);
  directory.Naladit();
  EXPECT_EQ(windows.made, 2);
  EXPECT_EQ(names().size(), 4U);
  EXPECT_EQ(status(), L"Připojování k databázi rádií...");
  EXPECT_EQ(content(L"seznam.tt"), "(missing)");
  loop.advance(500);
  EXPECT_TRUE(part<platform::memory::Button>(L"Command1").enabled());
}

// A closed window lives on while something waits; its update does not.
TEST_F(ListRadiosClosing, AClosedWindowTakesNoListThatArrives) {
  const std::string station = test::Record{"NOVA01", "Nov\xe1"}.line() + "\r\n";
  directory.Naladit();
  write(L"orb_test_size.tt", "size:" + std::to_string(station.size()));
  loop.advance(100);
  write(L"seznam.tt", station);
  const platform::memory::EventLoop::Nested waiting(loop);
  window_shown().user_close();
  loop.advance(2000);
  EXPECT_EQ(content(L"radios.tt"), stations_text());
}

// Bringing a window to the front lets in what other programs have sent.
TEST_F(ListRadiosClosing, ClosingWhileItComesToTheFrontIsHarmless) {
  directory.Naladit();
  window_shown().while_activating = [this] { window_shown().user_close(); };
  directory.Naladit();
  EXPECT_FALSE(directory.open());
  loop.advance(1000);
  directory.Naladit();
  EXPECT_TRUE(directory.open());
  EXPECT_EQ(windows.made, 2);
}

TEST_F(ListRadiosClosing, ClosingInsideABoxIsHarmless) {
  directory.Naladit();
  connection.now.connected = false;
  dialogs.while_open = [this] {
    window_shown().user_close();
    loop.advance(1000);
  };
  part<platform::memory::Button>(L"Command1").press();
  EXPECT_FALSE(directory.open());
  loop.advance(1000);
  dialogs.while_open = nullptr;
  directory.Naladit();
  EXPECT_EQ(windows.made, 2);
}

// The information line lets events run in the middle of the conversion: the list has been read, and nothing is written.
TEST_F(ListRadiosClosing, ClosingWhileTheListIsConvertedGivesItUp) {
  directory.Naladit();
  const std::string station = test::Record{"NOVA01", "Nov\xe1"}.line();
  serve("orb:i:0/@//@/10/@/Zpr\xe1va\r\n" + station);
  std::string when_closed;
  files.before_read = [this, &when_closed](const std::wstring& path) {
    if (!path.ends_with(L"seznam.tt"))
      return;
    files.before_read = nullptr;
    loop.at(0, [this, &when_closed] {
      when_closed = content(L"radios.tt");
      window_shown().user_close();
      loop.advance(1000); // the closed window must outlive the conversion
    });
  };
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(2000);
  EXPECT_EQ(when_closed, stations_text()) << "closed before the conversion was over";
  EXPECT_FALSE(directory.open());
  EXPECT_EQ(content(L"radios.tt"), stations_text());
  shell.on_start = nullptr;
  directory.Naladit();
  EXPECT_EQ(windows.made, 2);
  EXPECT_EQ(names().size(), 4U);
}

// What the worker has begun outlives the window; what it brings is for nobody.
TEST_F(ListRadiosClosing, ClosingWhileTheWorkerWorksIsHarmless) {
  const std::string station = test::Record{"NOVA01", "Nov\xe1"}.line();
  for (const bool before_work : {true, false}) {
    write(L"radios.tt", stations_text());
    directory.Naladit();
    serve(station);
    if (before_work)
      worker.stop_before_work();
    else
      worker.stop_before_done();
    part<platform::memory::Button>(L"Command1").press();
    loop.advance(1000);
    EXPECT_EQ(status(), L"Zpracovávám data...");
    EXPECT_FALSE(part<platform::memory::Button>(L"Command1").enabled());
    window_shown().user_close();
    loop.advance(1000); // the window is destroyed
    worker.go_on();
    loop.advance(1000);
    EXPECT_FALSE(directory.open());
    EXPECT_EQ(content(L"radios.tt"), stations_text());
  }
}

TEST_F(ListRadiosClosing, AnUpdateStartedWhileTheWorkerWorksTakesItsPlace) {
  const std::string station = test::Record{"NOVA01", "Nov\xe1"}.line();
  write(L"orb_test_size.tt", "");
  directory.Naladit();
  write(L"orb_test_size.tt", "size:" + std::to_string(station.size()));
  loop.advance(100);
  write(L"seznam.tt", station);
  worker.stop_before_done();
  loop.advance(100);
  EXPECT_EQ(status(), L"Zpracovávám data...");
  part<platform::memory::Button>(L"Command1").press();
  worker.go_on();
  loop.advance(1000);
  EXPECT_EQ(status(), L"Připojování k databázi rádií...");
  EXPECT_EQ(content(L"radios.tt"), stations_text());
}

TEST_F(ListRadiosClosing, AClosedWindowTakesNoFurtherOrders) {
  directory.Naladit();
  serve("orb:r:1050/@/9000/@/1/@/http://server/1\r\norb:i:0/@//@/10/@/Zpr\xe1va\r\n"
        "orb:r:1050/@/9000/@/1/@/http://server/2\r\norb:i:0/@//@/10/@/Druh\xe1\r\n");
  bool closing = false;
  bool looked = false;
  std::optional<platform::memory::EventLoop::Nested> waiting; // while something does, it is not destroyed
  const auto look = [&] {                                     // before the closed window is destroyed
    looked = true;
    EXPECT_EQ(label(L"InfoPanel").text(), L"") << "nothing is typed";
    EXPECT_TRUE(part<platform::memory::Browser>(L"WebBrowser1").visited.empty());
    EXPECT_FALSE(window_shown().visible());
  };
  int height = 0;
  files.before_read = [&](const std::wstring& path) {
    if (closing || !path.ends_with(L"seznam.tt"))
      return;
    closing = true;
    loop.at(0, [&] {
      window_shown().user_resize(9000, 9900);
      window_shown().user_close();
      height = window_shown().rect().height;
      waiting.emplace(loop);
      loop.at(50, [&] {
        look();
        EXPECT_EQ(window_shown().rect().height, height);
        waiting.reset();
      });
    });
  };
  part<platform::memory::Button>(L"Command1").press();
  loop.advance(2000);
  EXPECT_TRUE(looked);
  EXPECT_FALSE(directory.open());
}

} // namespace
} // namespace lumotune::directory
