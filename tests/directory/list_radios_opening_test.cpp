// SPDX-License-Identifier: LGPL-2.1-or-later
// Opening the directory on a machine that is slow for its stations: in turns, and whatever the user does between them.
#include "tests/directory/window_world.h"

namespace lumotune::directory {
namespace {

constexpr const wchar_t* connecting = L"Připojování k databázi rádií...";

// One step a turn: as many turns as there are.
struct ListRadiosOpening : WindowWorld {
  ListRadiosOpening() { loop.set_look_cost(base::SteppedWork::turn_ms); }

  [[nodiscard]] Names row_names() const { return {L"První", L"Druhé", L"Třetí novinka", L"Televize"}; }
  void expect_opened() {
    EXPECT_EQ(tree().count(), 6U);
    EXPECT_EQ(names(), row_names());
    EXPECT_EQ(list().selected(), 2U);
    EXPECT_EQ(label(L"Label2").text(), L"Druhé");
    EXPECT_EQ(status(), connecting);
    EXPECT_EQ(shell.started.size(), 1U);
  }
  [[nodiscard]] bool loading() const { return label(L"Label2").text().empty(); }
  // Until the tree is there, which the user can click then.
  void begin() {
    directory.Naladit();
    for (int turn = 0; turn < 10 && tree().count() == 0; ++turn)
      loop.advance(1);
    EXPECT_TRUE(loading());
  }
  // Turns until the window is loaded.
  int turns() {
    int count = 0;
    for (; loading() && count < 100; ++count)
      loop.advance(1);
    return count;
  }
};

TEST_F(ListRadiosOpening, TheWindowIsShownFirstAndFilledInTurns) {
  directory.Naladit();
  EXPECT_EQ(list().columns().size(), 2U);
  EXPECT_FALSE(window_shown().visible()) << "making it took all of the turn";
  loop.advance(1);
  EXPECT_TRUE(window_shown().visible());
  EXPECT_EQ(window_shown().activated, 1);
  EXPECT_EQ(tree().count(), 0U);
  loop.advance(1);
  EXPECT_EQ(tree().count(), 6U);
  EXPECT_TRUE(names().empty());
  EXPECT_TRUE(shell.started.empty());
  EXPECT_GT(turns(), 5);
  expect_opened();
}

TEST_F(ListRadiosOpening, TheOrderOfTheStepsIsThatOfAQuickOne) {
  for (const std::uint32_t cost : {0U, 8U}) {
    loop.set_look_cost(cost);
    std::vector<std::wstring> order;
    const auto note = [&](std::wstring what) {
      if (order.empty() || order.back() != what)
        order.push_back(std::move(what));
    };
    files.before_read = [&](const std::wstring& path) { note(path.substr(path.find_last_of(L'\\') + 1)); };
    shell.on_start = [&](const auto& /*started*/) {
      note(names() == row_names() ? L"load.exe after the rows" : L"load.exe before the rows");
    };
    directory.Naladit();
    (void)turns();
    EXPECT_EQ(order,
              (Names{L"kategories.tt", L"orb_server.tt", L"options.ini", L"radios.tt", L"load.exe after the rows"}))
        << cost;
    files.before_read = nullptr;
    shell.on_start = nullptr;
    window_shown().user_close();
    loop.advance(1000);
    for (const wchar_t* name : {L"radios.tt", L"kategories.tt"})
      write(name, content(name)); // read again
  }
}

// Thousands of lines are listed in pieces, and shown when all are there.
TEST_F(ListRadiosOpening, RowsAreListedInPieces) {
  std::string many;
  for (int i = 0; i < 9000; ++i)
    many += test::Record{std::to_string(100000 + i), "Stanice"}.line();
  write(L"radios.tt", many);
  settings.IDlastRadio = L"108999";
  directory.Naladit();
  const int piecewise = turns();
  EXPECT_EQ(names().size(), 9000U);
  EXPECT_EQ(list().selected(), 9000U);
  EXPECT_EQ(list().changes, 2) << "emptied, and filled at the end";
  window_shown().user_close();
  loop.advance(1000);
  write(L"radios.tt", stations_text());
  settings.IDlastRadio = L"RADIO2";
  directory.Naladit();
  EXPECT_EQ(piecewise, turns() + 4) << "2,000 lines each";
}

TEST_F(ListRadiosOpening, ClosedAfterAnyTurnItDoesNothingMore) {
  directory.Naladit();
  const int all = turns();
  window_shown().user_close();
  loop.advance(1000);
  for (int before = 0; before < all; ++before) {
    const std::size_t started = shell.started.size();
    directory.Naladit();
    for (int turn = 0; turn < before; ++turn)
      loop.advance(1);
    EXPECT_TRUE(loading());
    const bool asked = shell.started.size() > started;
    files.before_read = [](const std::wstring& /*path*/) { ADD_FAILURE() << "read by a closed window"; };
    window_shown().user_close();
    loop.advance(1000); // it is destroyed
    files.before_read = nullptr;
    EXPECT_FALSE(directory.open());
    EXPECT_EQ(shell.started.size(), started + (asked ? 1 : 0)) << "closed before turn " << before;
  }
  shell.started.clear();
  directory.Naladit();
  (void)turns();
  expect_opened();
}

// A closed window lives on while something waits.
TEST_F(ListRadiosOpening, AClosedWindowLoadsNothingWhileSomethingWaits) {
  begin();
  const platform::memory::EventLoop::Nested waiting(loop);
  window_shown().user_close();
  loop.advance(1000);
  EXPECT_TRUE(names().empty());
  EXPECT_TRUE(shell.started.empty());
}

// As if the click had waited in the queue until the window was loaded.
TEST_F(ListRadiosOpening, ACategoryChosenMeanwhileIsShownAfterwards) {
  begin();
  pick_node(L"a100001");
  EXPECT_TRUE(names().empty());
  (void)turns();
  EXPECT_EQ(names(), (Names{L"První", L"Druhé"}));
  EXPECT_EQ(status(), L"Zobrazeno 2 rádií");
  EXPECT_EQ(list().selected(), 2U) << "the tuned one's row";
  EXPECT_EQ(shell.started.size(), 1U);
  loop.set_look_cost(0);
  window_shown().user_close();
  loop.advance(1000);
  directory.Naladit();
  pick_node(L"a100001");
  EXPECT_EQ(names(), (Names{L"První", L"Druhé"})) << "the same as on a quick machine";
  EXPECT_EQ(list().selected(), 2U);
}

TEST_F(ListRadiosOpening, AnUpdateAskedForMeanwhileFollowsTheOwn) {
  begin();
  part<platform::memory::Button>(L"Command1").press();
  EXPECT_TRUE(shell.started.empty());
  (void)turns();
  EXPECT_EQ(shell.started.size(), 2U) << "both probes";
  EXPECT_FALSE(part<platform::memory::Button>(L"Command1").enabled());
  EXPECT_EQ(names(), row_names());
}

TEST_F(ListRadiosOpening, ClosedByAWaitingActionTheOthersAreDropped) {
  begin();
  connection.now.connected = false;
  dialogs.while_open = [this] { window_shown().user_close(); };
  part<platform::memory::Button>(L"Command1").press();
  (void)label(L"Label10").user_click();
  const std::size_t before = shell.started.size();
  loop.advance(1000);
  EXPECT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(shell.started.size(), before + 1) << "the probe, and no browser";
  EXPECT_FALSE(directory.open());
}

TEST_F(ListRadiosOpening, ClicksBeyondAllReasonAreNotKept) {
  begin();
  for (int i = 0; i < 5000; ++i)
    (void)label(L"Label10").user_click();
  (void)turns();
  EXPECT_EQ(shell.started.size(), 1U + 100U);
}

TEST_F(ListRadiosOpening, EnterMeanwhileTunesTheTunedStation) {
  begin();
  window_shown().user_tab(false);
  EXPECT_TRUE(list().user_type(13));
  EXPECT_EQ(player.url(), L"");
  (void)turns();
  loop.advance(5000);
  EXPECT_EQ(player.url(), L"http://r/2");
}

TEST_F(ListRadiosOpening, CalledAgainMeanwhileItGoesToTheNewStation) {
  begin();
  settings.IDlastRadio = L"RADIO3";
  directory.Naladit();
  EXPECT_EQ(windows.made, 1);
  EXPECT_EQ(label(L"Label2").text(), L"") << "not before the stations are there";
  (void)turns();
  EXPECT_EQ(list().selected(), 3U);
  EXPECT_EQ(shell.started.size(), 1U);
}

// Messages that are delivered while it comes to the front close it and open another.
TEST_F(ListRadiosOpening, ReplacedWhileItComesToTheFront) {
  windows.on_make = [this](platform::memory::FramedWindow& made) {
    windows.on_make = nullptr;
    made.while_activating = [this] {
      window_shown().user_close();
      directory.Naladit();
    };
  };
  directory.Naladit();
  loop.advance(1);
  EXPECT_EQ(windows.made, 2);
  (void)turns();
  loop.advance(50);
  expect_opened();
}

TEST_F(ListRadiosOpening, TheEndOfTheProgramEndsIt) {
  directory.Naladit();
  loop.advance(1);
  loop.quit();
  loop.advance(1000);
  EXPECT_TRUE(names().empty());
  EXPECT_TRUE(shell.started.empty());
}

// A box of the main window does not hold it up.
TEST_F(ListRadiosOpening, ItGoesOnWhileABoxIsOpen) {
  directory.Naladit();
  const platform::memory::EventLoop::Nested box(loop);
  (void)turns();
  expect_opened();
}

} // namespace
} // namespace lumotune::directory
