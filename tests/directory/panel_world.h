// SPDX-License-Identifier: LGPL-2.1-or-later
// The information line and the advertisement in a window in memory.
#pragma once

#include "directory/advert.h"
#include "directory/info_panel.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"
#include "tests/support/directory_world.h"
#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace lumotune::directory {

struct ListRadiosPanel : testing::Test, test::MemoryPlatform {
  platform::memory::FramedWindow window{L"ListRadios", files};
  ListRadiosForm form{window};
  Layout layout{form};
  AdvertState state;
  base::Settings settings;
  companions::CommandSender sender{{loop, messages, shell, codec}};
  companions::Identity identity{{folder, loop, settings}};
  companions::WebPages pages{shell};
  Advert advert{{form, layout, state}};
  InfoPanelLine line{{form, layout, settings, loop, dialogs, shell, folder, sender, identity, pages}};
  platform::memory::Label& shown = *window.find<platform::memory::Label>(L"InfoPanel");
  platform::memory::Browser& browser = *window.find<platform::memory::Browser>(L"WebBrowser1");

  ListRadiosPanel() {
    window.on_resize = [this] { layout.place(); };
    form.InfoPanel.set_visible(false);
    form.Filter.set_visible(false);
    form.ImageInPan.set_visible(false);
    settings.server_address = L"http://server";
    settings.idh = L"ja";
    settings.h = L"heslo";
    layout.set_up();
  }
  // The check value in the form of the login address.
  [[nodiscard]] std::wstring scrambled() { return identity.Heslo(settings.h); }
  [[nodiscard]] std::vector<std::wstring> opened() const { return test::opened_pages(shell); }
};

} // namespace lumotune::directory
