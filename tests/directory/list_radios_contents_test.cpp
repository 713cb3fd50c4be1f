// SPDX-License-Identifier: LGPL-2.1-or-later
// What a complete list makes of the window, whatever is in it.
#include "tests/directory/update_world.h"

namespace lumotune::test {
namespace {

using platform::MouseButton;

struct ListRadiosContents : UpdateWorld {};

// A station line of that many fields, whose name is the number.
std::string fields(int count) {
  std::string line = "POLE" + std::to_string(10 + count);
  for (int i = 1; i < count; ++i)
    line += "/@/" + std::to_string(i == 1 ? count : i);
  return line + "\r\n";
}

TEST_F(ListRadiosContents, AListOfTheEndMarkerOnlyEmptiesTheDirectory) {
  bring("<end>\r\n");
  EXPECT_EQ(content(L"radios.tt"), "\r\n");
  EXPECT_EQ(content(L"kategories.tt"), "\r\n");
  EXPECT_EQ(tree().count(), 0U);
  EXPECT_EQ(list().count(), 0U);
  EXPECT_EQ(list().selected(), 0U);
  EXPECT_EQ(status(), finished);
  EXPECT_TRUE(Command1().enabled());
  Command1().press();
  bring("orb:k:new//100001/@/A\r\n" + Record{"NOVA01", "Nov\xe1", "", "", "100001"}.line());
  EXPECT_EQ(tree().count(), 1U) << "and it can be filled again";
  EXPECT_EQ(names(), Names{L"Nová"});
}

TEST_F(ListRadiosContents, WithoutCategoriesEveryStationIsShown) {
  bring(stations_text());
  EXPECT_EQ(tree().count(), 0U);
  EXPECT_EQ(list().count(), 4U);
  EXPECT_EQ(status(), finished);
}

TEST_F(ListRadiosContents, CategoriesThatTheTreeRefusesAreLeftOut) {
  bring("orb:k:add//100001a/@/D\xf8\xedve\r\norb:k:new//100001/@/Prvn\xed\r\norb:k:new//100001/@/Podruh\xe9\r\n"
        "orb:k:add//100001A/@/D\xedt\xec\r\norb:k:add//100001a/@/Podruh\xe9\r\norb:k:add//100009x/@/Sirotek\r\n"
        "orb:k:add//1/@/Kr\xe1tk\xe9\r\norb:k:torn\r\norb:k:new//torn\r\norb:k:\r\norb:k:new//100002/@/Druh\xe1\r\n");
  ASSERT_EQ(tree().count(), 3U);
  EXPECT_EQ(tree().node_text(1), L"První");
  EXPECT_EQ(tree().node_text(2), L"Dítě");
  EXPECT_EQ(tree().parent(2), 1U);
  EXPECT_EQ(tree().node_text(3), L"Druhá");
  EXPECT_EQ(status(), finished);
}

TEST_F(ListRadiosContents, WithoutAClickTheFirstNodesStationsAreShown) {
  bring("orb:k:new//100002/@/B\r\norb:k:new//100001/@/A\r\n" + stations_text());
  EXPECT_EQ(names(), Names{L"Třetí novinka"});
  Command1().press();
  bring("orb:k:new//100001/@/A\r\norb:k:new//100002/@/B\r\n" + stations_text());
  EXPECT_EQ(names(), (Names{L"První", L"Druhé"}));
  EXPECT_EQ(tree().selected(), 1U) << "it is remembered now";
}

TEST_F(ListRadiosContents, ARememberedNodeThatIsGoneGivesWayToTheFirst) {
  pick_node(L"a100003");
  bring("orb:k:new//100001/@/A\r\norb:k:new//100002/@/B\r\n" + stations_text());
  EXPECT_EQ(names(), (Names{L"První", L"Druhé"}));
}

TEST_F(ListRadiosContents, ASubcategoryOfTheSpecialOneIsShownAgain) {
  pick_node(L"a1000001");
  bring("orb:k:new//100000/@/V\r\norb:k:add//1000001/@/P\r\n" + stations_text() +
        Record{"NOVA01", "Nov\xe1", "", "", "1000091"}.line());
  EXPECT_EQ(names(), (Names{L"První", L"Třetí novinka", L"Televize", L"Nová"}));
}

TEST_F(ListRadiosContents, TheRememberedRowIsSelectedAgain) {
  (void)list().user_pick(3, MouseButton::left);
  bring("orb:k:new//100000/@/V\r\n" + stations_text());
  EXPECT_EQ(list().selected(), 3U);
  Command1().press();
  bring("orb:k:new//100000/@/V\r\n" + Record{"NOVA01", "Nov\xe1"}.line());
  EXPECT_EQ(list().count(), 1U);
  EXPECT_EQ(list().selected(), 0U) << "there is no third row";
}

TEST_F(ListRadiosContents, ABadAdvertisementEndsOnlyItself) {
  bring("orb:r:x\r\norb:r:\r\norb:r:a/@/b/@/1/@/c\r\norb:i:\r\n" + stations_text() + "<end>");
  EXPECT_EQ(status(), finished);
  EXPECT_EQ(content(L"radios.tt"), stations_text() + "\r\n");
  EXPECT_TRUE(part<platform::memory::Browser>(L"WebBrowser1").visited.empty());
}

TEST_F(ListRadiosContents, HostileListsAreShownAsFarAsTheyGo) {
  std::string bytes = std::string("\0\x01\x1a\xff/@/bin\0\r", 12) + "CR0001/@/Samotn\xe9 CR\rLF0001/@/Samotn\xe9 LF\n" +
                      std::string(1'000'000, 'm') + "\r\n/@/bez id\r\n";
  for (int count = 1; count <= 40; ++count)
    bytes += fields(count);
  bytes += "TORN01/@/Utr";
  bring(bytes);
  EXPECT_EQ(status(), finished);
  const Names shown = names();
  ASSERT_EQ(shown.size(), 1U + 2U + 1U + 1U + 40U + 1U);
  EXPECT_EQ(shown[1], L"Samotné CR");
  EXPECT_EQ(shown[2], L"Samotné LF");
  EXPECT_EQ(shown[44], L"40");
  EXPECT_EQ(shown[45], L"Utr");
  for (std::size_t row = 1; row <= shown.size(); ++row) {
    (void)list().user_pick(row, MouseButton::left);
    (void)list().user_pick(row, MouseButton::right);
    (void)list().user_type(13);
  }
  pick_node(L"a100000");
  EXPECT_TRUE(window_shown().visible());
}

} // namespace
} // namespace lumotune::test
