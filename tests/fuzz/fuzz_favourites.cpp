// SPDX-License-Identifier: LGPL-2.1-or-later
// Any favourites file and any station file: every item carries a favourite of the file behind 93 columns, and a removed
// favourite is gone while every other line stays.
#include "base/options_lines.h"
#include "base/text.h"
#include "platform/memory/menus.h"
#include "player/favourites.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/player_world.h"

#include <cstddef>
#include <cstdint>

using namespace lumotune;
using fuzz::demand;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::PlayerWorld w;
  platform::memory::Pointer pointer;
  player::Favourites favourites(
      {w.folder, w.settings, w.session, w.form, w.playback, w.station_files, w.dialogs, w.loop, pointer});
  // The first byte says where the station file begins. One favourite is there whatever the rest is.
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t cut = size == 0 ? 0 : 1 + data[0] * (size - 1) / 255;
  const std::string list = (size == 0 ? std::string() : bytes.substr(1, cut - 1)) + "\r\nlt:RADIO1/2\r\n";
  w.put(L"list.tt", list);
  w.put(L"radios.tt", "RADIO1/@/" + bytes.substr(cut));
  favourites.ZobrazOblibene();

  const base::TextLines before = base::without_empty_lines(base::split_text_lines(list));
  auto& shown = w.form.Control_List;
  demand(shown.count() > 0 && shown.count() <= before.size());
  demand(shown.item(shown.count() - 1).substr(93, 7) == L"2RADIO1");
  for (std::size_t i = 0; i < shown.count(); ++i) {
    const auto item = player::read_favourite_item(shown.item(i));
    demand(item.has_value() && item->id.size() == 6 && item->quality >= L"1" && item->quality <= L"5");
    demand(w.stations.RadioInfo(item->id, L"u" + item->quality).size() == item->address.size());
    shown.select(i);
    favourites.Control_List_Click();
    favourites.Control_List_DblClick();
  }
  w.playback.PlayStop();
  const std::wstring gone = w.codec.decode(before.front());
  favourites.DeleteFromOblibene(gone);
  const std::string after = w.get(L"list.tt");
  std::string expected = "\r\n";
  for (const std::string& line : before) {
    if (!base::equal_ignoring_case(w.codec.decode(line), gone))
      expected += line + "\r\n";
  }
  demand(after == expected);
  return 0;
}
