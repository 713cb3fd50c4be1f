// SPDX-License-Identifier: LGPL-2.1-or-later
// Any commands of the server's for the information line and the advertisement, and clicks on the line: what is started
// is a program of the folder or the browser, what is opened is a page of the site.
#include "base/text.h"
#include "companions/open_url.h"
#include "directory/advert.h"
#include "directory/info_panel.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/files.h"
#include "platform/memory/framed_window.h"
#include "platform/memory/messages.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/memory_platform.h"

#include <algorithm>

namespace {

using namespace lumotune;
using fuzz::demand;

struct Panel : test::MemoryPlatform {
  platform::memory::FramedWindow window{L"ListRadios", files};
  directory::ListRadiosForm form{window};
  directory::Layout layout{form};
  directory::AdvertState state;
  base::Settings settings;
  companions::CommandSender sender{{loop, messages, shell, codec}};
  companions::Identity identity{{folder, loop, settings}};
  companions::WebPages pages{shell};
  directory::Advert advert{{form, layout, state}};
  directory::InfoPanelLine line{{form, layout, settings, loop, dialogs, shell, folder, sender, identity, pages}};

  Panel() {
    window.on_resize = [this] { layout.place(); };
    loop.set_wait_step(2000);
    settings.server_address = L"http://s.example";
    settings.idh = L"ja";
    settings.h = L"heslo";
    (void)files.replace(machine.folder + L"\\orb.exe", "x");
    (void)files.replace(machine.folder + L"\\seznam.tt", "x");
    layout.set_up();
  }
};

bool is_clean(const std::wstring& text) {
  return std::none_of(text.begin(), text.end(),
                      [](wchar_t each) { return each < L' ' || each == L'"' || each == 0x7F; });
}

void check(const Panel& panel) {
  static const std::wstring login = L"explorer http://s.example/login/ja/" + Panel().identity.Heslo(L"heslo") + L"/";
  demand(panel.dialogs.shown.size() <= 1 && panel.shell.opened.empty() && panel.shell.started.size() <= 9);
  for (const auto& started : panel.shell.started) {
    const std::wstring& line = started.command_line;
    demand(is_clean(line));
    const bool known = base::equal_ignoring_case(line.substr(line.find_first_not_of(L' ')).substr(0, 7), L"orb.exe") &&
                       started.application == L"C:\\Orb\\orb.exe";
    const bool page = line.starts_with(login) && line.ends_with(L"/1");
    const bool browser = line.starts_with(L"C:\\Orb\\OrbBrowser.exe http://s.example/") &&
                         started.application == L"C:\\Orb\\OrbBrowser.exe";
    demand(known || page || browser);
  }
  demand(panel.window.rect().height >= 0 && panel.form.WebBrowser1.rect().height >= 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static constexpr const char* words[] = {"/@/",      "||",           "|=|", "openurl",   "showusers",       "\n",
                                          "orb.exe",  "opengbrowser", "..",  "seznam.tt", "*.Orbidh*",       "*.Orbh*",
                                          "*.!Orbh*", "*.l*",         "1",   "5000",      "0/@//@//@//@//@/"};
  if (size == 0)
    return 0;
  Panel panel;
  const std::wstring text = panel.codec.decode(fuzz::expanded(data + 1, size - 1, words));
  if (data[0] % 2 == 0) {
    panel.line.ZobrazInfoPanel(text);
    panel.loop.advance(20);
    panel.line.InfoPanel_Click();
  } else {
    panel.advert.ZobrazReklamu(text);
    panel.window.user_resize(9000, 6000);
    panel.advert.ReklamaTest();
  }
  check(panel);
  return 0;
}
