// SPDX-License-Identifier: LGPL-2.1-or-later
// An update that lands while a row is selected, or while the quality menu of a row is open.
#include "tests/directory/update_world.h"

#include <functional>

namespace lumotune::test {
namespace {

struct UpdatedRows : UpdateWorld {};

TEST_F(UpdatedRows, TheSelectedStationIsSelectedAgain) {
  (void)list().user_pick(3, platform::MouseButton::left);
  bring(Record{"NOVA01", "Nova"}.line() + Record{"radio3", "Treti jinak"}.line() + stations_text());
  EXPECT_EQ(list().cell(list().selected(), 0), L"Treti jinak") << "by its identifier, wherever it is";
  Command1().press();
  bring(Record{"RADIO3", "Treti"}.line() + Record{"NOVA01", "Nova"}.line());
  EXPECT_EQ(list().selected(), 1U);
  Command1().press();
  bring(Record{"NOVA01", "Nova"}.line());
  EXPECT_EQ(list().selected(), 0U) << "none when it is gone";
  Command1().press();
  bring(stations_text());
  EXPECT_EQ(list().selected(), 0U) << "and no other one later";
}

TEST_F(UpdatedRows, WithoutASelectionTheRememberedRowIsSelected) {
  (void)list().user_pick(3, platform::MouseButton::left);
  list().select(0);
  bring(Record{"NOVA01", "Nova"}.line() + stations_text());
  EXPECT_EQ(list().selected(), 3U);
}

struct QualityMenu : UpdateWorld {
  // Chooses that item of the quality menu of RADIO1; meanwhile something happens.
  void choose_while(const wchar_t* item, const std::function<void()>& meanwhile) {
    Command1().press(); // an update is always on its way
    popups.choices = {item};
    popups.while_open = [&] {
      popups.while_open = nullptr;
      meanwhile();
    };
    (void)list().user_pick(1, platform::MouseButton::left);
    (void)label(L"Label7").user_click();
  }
  [[nodiscard]] static std::string first(const std::string& address, const std::string& rate) {
    return Record{"RADIO1", "Prvni", "", "", "", {address}, {rate}}.line();
  }
  [[nodiscard]] bool nothing_happened() const {
    return player.url().empty() && settings.IDlastRadio == L"RADIO2" && content(L"list.tt") == "(missing)" &&
           dialogs.shown.empty();
  }
};

TEST_F(QualityMenu, PlaysTheStationThatItWasOpenedForWhereverItsRowIs) {
  choose_while(L"Kvalita1play", [this] {
    bring(Record{"NOVA01", "Nova", "", "", "", {"http://n/1"}, {"64"}}.line() + first("http://r/nova", "128"));
    EXPECT_EQ(status(), finished) << "while the menu is open";
  });
  EXPECT_EQ(settings.IDlastRadio, L"RADIO1");
  EXPECT_EQ(player.url(), L"http://r/nova");
}

TEST_F(QualityMenu, AddsTheStationThatItWasOpenedForWhereverItsRowIs) {
  choose_while(L"Kvalita1", [this] {
    bring(Record{"NOVA01", "Nova", "", "", "", {"http://n/1"}, {"64"}}.line() + first("http://r/nova", "128"));
  });
  EXPECT_EQ(content(L"list.tt"), "(missing)") << "that item is the other menu's";
  popups.choices = {L"Kvalita1"};
  Command1().press();
  popups.while_open = [this] {
    popups.while_open = nullptr;
    bring(stations_text());
  };
  (void)label(L"Label5").user_click();
  EXPECT_EQ(content(L"list.tt"), "lt:RADIO1/1\r\n");
}

TEST_F(QualityMenu, OfAStationThatIsGoneDoesNothing) {
  for (const wchar_t* item : {L"Kvalita1play", L"Kvalita1"}) {
    choose_while(item, [this] { bring(Record{"NOVA01", "Nova", "", "", "", {"http://n/1"}, {"64"}}.line()); });
    EXPECT_TRUE(nothing_happened());
    Command1().press();
    bring(stations_text());
  }
}

TEST_F(QualityMenu, OfAQualityThatIsGoneDoesNothing) {
  choose_while(L"Kvalita1play", [this] { bring(first("http://r/1", "")); });
  EXPECT_TRUE(nothing_happened());
}

TEST_F(QualityMenu, DoesNothingForAnotherRowThatIsSelectedMeanwhile) {
  choose_while(L"Kvalita1play", [this] { list().select(2); });
  EXPECT_TRUE(nothing_happened());
}

} // namespace
} // namespace lumotune::test
