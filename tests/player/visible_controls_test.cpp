// SPDX-License-Identifier: LGPL-2.1-or-later
#include "player/visible_controls.h"

#include "platform/memory/files.h"
#include "platform/memory/window.h"

#include <gtest/gtest.h>

namespace lumotune::player {
namespace {

using base::KeptSkinFields;
using base::Panel;
using Seen = KeptSkinFields::LogoSeen;

struct Modes {
  bool shown;
  bool list_hidden_while_playing;
  bool display_while_stopped;
  Seen logo_seen;
};

KeptSkinFields fields(const Modes& modes) {
  KeptSkinFields skin;
  skin.list = skin.display = skin.logo = modes.shown;
  skin.list_hidden_while_playing = modes.list_hidden_while_playing;
  skin.display_while_stopped = modes.display_while_stopped;
  skin.logo_seen = modes.logo_seen;
  return skin;
}

struct Row {
  Modes modes;
  bool list, display, logo;
};

void check(bool playing, const Row& row) {
  const VisibleControls seen = visible_controls(playing, Panel::station, fields(row.modes));
  EXPECT_EQ(seen, (VisibleControls{row.list, row.display, row.logo, true, false}))
      << row.modes.shown << row.modes.list_hidden_while_playing << row.modes.display_while_stopped
      << static_cast<int>(row.modes.logo_seen);
}

TEST(VisibleControlsTest, WhileNothingPlays) {
  for (const Row& row : {Row{{true, false, true, Seen::always}, true, true, true},
                         Row{{true, false, false, Seen::while_stopped}, true, false, true},
                         Row{{true, true, false, Seen::while_playing}, true, false, false},
                         Row{{false, true, true, Seen::always}, false, false, false},
                         Row{{false, false, false, Seen::while_stopped}, false, false, false}})
    check(false, row);
}

// The display, and the logo but for one case, are seen even where the skin does not show them.
TEST(VisibleControlsTest, WhileAStreamPlays) {
  for (const Row& row : {Row{{true, false, true, Seen::always}, true, true, true},
                         Row{{true, false, false, Seen::while_stopped}, true, true, false},
                         Row{{true, true, false, Seen::while_playing}, false, true, true},
                         Row{{false, true, false, Seen::while_playing}, false, true, true},
                         Row{{false, false, false, Seen::while_stopped}, false, true, true}})
    check(true, row);
}

TEST(VisibleControlsTest, FavouritesTakeThePlaceOfTheStation) {
  KeptSkinFields skin = fields({true, true, false, Seen::always});
  skin.display_behind_empty_list = true;
  EXPECT_EQ(visible_controls(false, Panel::favourites, skin), (VisibleControls{true, false, true, false, false}));
  skin.list = false;
  EXPECT_EQ(visible_controls(false, Panel::favourites, skin), (VisibleControls{false, false, true, false, false}));
}

TEST(VisibleControlsTest, TheHintStandsAloneOrOnTheDisplay) {
  KeptSkinFields skin = fields({true, false, false, Seen::while_playing});
  EXPECT_EQ(visible_controls(false, Panel::hint, skin), (VisibleControls{false, false, false, false, true}));
  skin.display_behind_empty_list = true;
  EXPECT_EQ(visible_controls(false, Panel::hint, skin), (VisibleControls{false, true, false, false, true}));
  skin.display = false;
  EXPECT_TRUE(visible_controls(false, Panel::hint, skin).display) << "the skin need not show it otherwise";
}

TEST(VisibleControlsTest, EachControlOfTheWindowFollowsItsValue) {
  platform::memory::Files files;
  platform::memory::Window window(files);
  base::LumotuneForm form(window);
  for (const bool first : {true, false}) {
    show_controls({first, !first, first, !first, first}, form);
    EXPECT_EQ(form.Control_List.visible(), first);
    EXPECT_EQ(form.LTDisplay.visible(), !first);
    EXPECT_EQ(form.Orbwww.visible(), first);
    EXPECT_EQ(form.InfoName.visible(), !first);
    EXPECT_EQ(form.InfoTime.visible(), !first);
    EXPECT_EQ(form.InfoStatus.visible(), !first);
    EXPECT_EQ(form.InfoNaladit.visible(), first);
  }
}

} // namespace
} // namespace lumotune::player
