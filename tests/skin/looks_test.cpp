// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/play_look.h"

#include <gtest/gtest.h>

namespace lumotune::skin {
namespace {

base::KeptSkinFields fields(const std::wstring& show, const std::wstring& mode) {
  base::KeptSkinFields kept;
  kept.list_show = kept.display_show = kept.logo_show = show;
  kept.list_mode = kept.display_mode = kept.logo_mode = mode;
  return kept;
}

struct Row {
  const wchar_t* show;
  const wchar_t* mode;
  bool list, display, logo;
};

void check(const wchar_t* button, const Row& row) {
  const PlayLook look = play_look(button, fields(row.show, row.mode));
  EXPECT_EQ(look.list, row.list) << row.mode;
  EXPECT_EQ(look.display, row.display) << row.mode;
  EXPECT_EQ(look.logo, row.logo) << row.mode;
}

TEST(PlayLook, WhileNothingPlays) {
  for (const Row& row : {Row{L"show", L"showevery", true, true, true}, Row{L"SHOW", L"SHOWSTOP", true, false, true},
                         Row{L"show", L"hideplay", true, false, false}, Row{L"show", L"", true, false, false},
                         Row{L"", L"showevery", false, false, false}, Row{L"hide", L"showstop", false, false, false}})
    check(L"Zapnout", row);
}

// The display, and the logo but for one case, are seen even without "show".
TEST(PlayLook, WhileAStreamPlays) {
  for (const Row& row : {Row{L"show", L"showevery", true, true, true}, Row{L"show", L"showstop", true, true, false},
                         Row{L"show", L"hideplay", false, true, true}, Row{L"", L"hideplay", false, true, true},
                         Row{L"", L"showstop", false, true, true}})
    check(L"STOP", row);
}

} // namespace
} // namespace lumotune::skin
