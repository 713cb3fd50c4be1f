// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/contract/fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace lumotune::contract {
namespace {

struct TreeViewContract : testing::Test {
  Backend b;
  std::unique_ptr<platform::FramedWindow> window = b.framed_windows.make(L"ListRadios");
  platform::TreeView& tree = window->make_tree(L"TreeView1");
  int fired = 0;

  TreeViewContract() {
    tree.on_click = [this] { ++fired; };
    tree.on_key_up = [this] { ++fired; };
  }
  void fill() {
    EXPECT_TRUE(tree.add(L"a100000", L"", L"Žánry & styly"));
    EXPECT_TRUE(tree.add(L"a100000ROCK", L"a100000", L"Rock"));
    EXPECT_TRUE(tree.add(L"a100001", L"", L"Česká"));
    EXPECT_TRUE(tree.add(L"a100000JAZZ", L"A100000", L"Jazz"));
  }
};

TEST_F(TreeViewContract, IsMadeEmpty) {
  EXPECT_EQ(tree.count(), 0U);
  EXPECT_EQ(tree.selected(), 0U);
  EXPECT_EQ(tree.key(0), L"");
  EXPECT_EQ(tree.key(1), L"");
  tree.select(1);
  EXPECT_EQ(tree.selected(), 0U);
}

TEST_F(TreeViewContract, NodesAreNumberedAsTheyAreAdded) {
  fill();
  EXPECT_EQ(tree.count(), 4U);
  EXPECT_EQ(tree.key(1), L"a100000");
  EXPECT_EQ(tree.node_text(1), L"Žánry & styly");
  EXPECT_EQ(tree.key(2), L"a100000ROCK");
  EXPECT_EQ(tree.key(3), L"a100001");
  EXPECT_EQ(tree.node_text(4), L"Jazz");
  EXPECT_EQ(tree.key(5), L"");
  EXPECT_EQ(tree.node_text(0), L"");
  EXPECT_EQ(tree.node_text(99), L"");
}

TEST_F(TreeViewContract, EnterOnTheSelectedNodeIsTold) {
  fill();
  window->set_visible(true);
  window->activate();
  b.pass(50);
  tree.select(3);
  EXPECT_EQ(fired, 0);
  b.enter(*window, tree);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(tree.selected(), 3U);
}

TEST_F(TreeViewContract, AKeyThatIsTakenIsRefused) {
  fill();
  EXPECT_FALSE(tree.add(L"a100001", L"", L"znovu"));
  EXPECT_FALSE(tree.add(L"A100000rock", L"a100001", L"znovu, jinými písmeny"));
  EXPECT_EQ(tree.count(), 4U);
  EXPECT_EQ(tree.node_text(3), L"Česká");
}

TEST_F(TreeViewContract, AChildWithoutItsParentIsRefused) {
  EXPECT_FALSE(tree.add(L"a100009X", L"a100009", L"sirotek"));
  EXPECT_EQ(tree.count(), 0U);
  EXPECT_TRUE(tree.add(L"a100009X", L"", L"přece")) << "a refused key is free";
}

TEST_F(TreeViewContract, SelectingByProgramFiresNothing) {
  fill();
  tree.select(4);
  EXPECT_EQ(tree.selected(), 4U);
  tree.select(99);
  EXPECT_EQ(tree.selected(), 4U) << "nothing changes outside the nodes";
  tree.select(0);
  EXPECT_EQ(tree.selected(), 4U);
  tree.select(1);
  EXPECT_EQ(tree.selected(), 1U);
  b.loop.run_pending();
  EXPECT_EQ(fired, 0);
}

TEST_F(TreeViewContract, ClearedItTakesTheSameKeysAgain) {
  window->set_visible(true);
  fill();
  tree.select(3);
  b.loop.run_pending();
  tree.clear();
  EXPECT_EQ(tree.count(), 0U);
  EXPECT_EQ(tree.selected(), 0U);
  fill();
  EXPECT_EQ(tree.count(), 4U);
  tree.select(2);
  EXPECT_EQ(tree.selected(), 2U);
  EXPECT_EQ(fired, 0);
}

TEST_F(TreeViewContract, NodesWithOthersBelowThemCanBeExpanded) {
  for (const bool seen : {false, true}) {
    window->set_visible(seen);
    tree.clear();
    fill();
    EXPECT_FALSE(tree.expanded(1));
    tree.expand(1);
    EXPECT_TRUE(tree.expanded(1));
    tree.expand(1);
    EXPECT_TRUE(tree.expanded(1)) << "still";
    tree.expand(3);
    EXPECT_FALSE(tree.expanded(3)) << "nothing is below it";
    for (const std::size_t outside : {std::size_t{0}, std::size_t{5}, static_cast<std::size_t>(-1)}) {
      tree.expand(outside);
      EXPECT_FALSE(tree.expanded(outside));
    }
    b.loop.run_pending();
    EXPECT_TRUE(tree.expanded(1));
    EXPECT_EQ(tree.selected(), 0U);
    tree.clear();
    fill();
    EXPECT_FALSE(tree.expanded(1)) << "other nodes";
    tree.select(2);
    EXPECT_TRUE(tree.expanded(1)) << "what is selected is in sight";
  }
  EXPECT_EQ(fired, 0);
}

TEST_F(TreeViewContract, ThousandsOfNodesAndHugeTextsAreTaken) {
  window->set_visible(true);
  tree.resize(3000, 3000);
  EXPECT_TRUE(tree.add(L"a1", L"", std::wstring(1000000, L'x')));
  for (int i = 0; i < 3000; ++i)
    ASSERT_TRUE(tree.add(L"b" + std::to_wstring(i), i % 2 == 0 ? L"" : L"a1", L"uzel"));
  tree.select(3001);
  b.loop.run_pending();
  EXPECT_EQ(tree.count(), 3001U);
  EXPECT_EQ(tree.selected(), 3001U);
  EXPECT_EQ(tree.node_text(1).size(), 1000000U);
}

} // namespace
} // namespace lumotune::contract
