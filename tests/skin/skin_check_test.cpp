// SPDX-License-Identifier: LGPL-2.1-or-later
// Who draws a skin is told file, line and reason.
#include "platform/common/gif.h"
#include "skin/skin_check.h"
#include "tests/support/skin_world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace lumotune::test {
namespace {

std::optional<skin::PictureSize> read_picture(std::string_view bytes) {
  const auto picture = platform::decode_gif(bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  return picture ? std::optional(skin::PictureSize{picture->width, picture->height}) : std::nullopt;
}

struct SkinCheckTest : testing::Test {
  SkinWorld w;
  SkinCheckTest() { w.picture(L"Tmava", L"form", gif(40, 32)); }
  std::vector<std::wstring> check(const std::string& text, const std::wstring& name = L"Tmava") {
    w.description(L"Tmava", text);
    std::vector<std::wstring> lines;
    for (const skin::Finding& each :
         skin::check_skin(w.files, w.codec, w.machine.folder + L"\\Orb_Data\\skins", name, read_picture))
      lines.push_back(skin::said(each));
    return lines;
  }
  using Lines = std::vector<std::wstring>;
};

// The window has the size of its background.
const std::string form = "Author|nobody\r\nLTform|600|480\r\n";

TEST_F(SkinCheckTest, NothingIsSaidOfASkinThatIsWhole) {
  EXPECT_EQ(check(form + "Control_Play|show|0|0\r\n\r\n; a remark | with a "
                         "bar\r\nControl_Sat|hide\r\nInfoName|0|0|100|100|255|right\r\n"
                         "InfoStatus|1|0|0|0|300|100|150|255\r\nLTNeedle|1|2|3|4|5\r\n"
                         "Control_List|show|0|0|hideplay|300|150|1|-2\r\n"),
            Lines{});
}

// The skins that the program comes with, and the template.
// Whatever the locale: names of files are UTF-8.
std::wstring wide(const std::filesystem::path& path) {
  const std::u32string characters = path.u32string();
  return {characters.begin(), characters.end()};
}

TEST_F(SkinCheckTest, OurOwnSkinsAreWhole) {
  const std::filesystem::path top = LUMOTUNE_TOP;
  int checked = 0;
  for (const auto& folder : {top / "assets" / "skins", top / "docs" / "skin-template"}) {
    for (const auto& each : std::filesystem::recursive_directory_iterator(folder)) {
      if (!each.is_regular_file())
        continue;
      std::ifstream file(each.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file), {}};
      const std::wstring stem = wide(each.path().stem());
      if (each.path().extension() == ".skin")
        w.description(stem, bytes);
      else if (each.path().extension() == ".gif")
        w.picture(wide(each.path().parent_path().filename()), stem, bytes);
    }
    for (const auto& each : std::filesystem::directory_iterator(folder)) {
      if (each.path().extension() != ".skin")
        continue;
      ++checked;
      for (const skin::Finding& found : skin::check_skin(w.files, w.codec, w.machine.folder + L"\\Orb_Data\\skins",
                                                         wide(each.path().stem()), read_picture))
        ADD_FAILURE() << each.path() << ": " << std::string(found.reason.begin(), found.reason.end());
    }
  }
  EXPECT_EQ(checked, 5);
}

TEST_F(SkinCheckTest, TheLineAndTheFieldAreNamed) {
  EXPECT_EQ(check(form + "Control_Play|show|1x|0\r\nControl_Pley|show|0|0\r\nposlední\r\nInfoName|0|0|-5|1|2\r\n"),
            (Lines{L"Tmava.skin:3: Control_Play, pole 2: čeká se celé číslo, stojí tu '1x'",
                   L"Tmava.skin:4: neznámý prvek 'Control_Pley'", L"Tmava.skin:5: řádek bez znaku | se nepoužije",
                   L"Tmava.skin:6: InfoName, pole 3: velikost je záporná"}));
  EXPECT_EQ(check(form + "Control_Play|shwo|0|0\r\nLTDisplay|show|0|0|always\r\nControl_Sat|show|0\r\n"),
            (Lines{L"Tmava.skin:3: Control_Play, pole 1: čeká se show, hide, stojí tu 'shwo'",
                   L"Tmava.skin:4: LTDisplay, pole 4: čeká se showevery, showstop, hideplay, stojí tu 'always'",
                   L"Tmava.skin:5: Control_Sat, pole 3: chybí číslo"}));
  EXPECT_EQ(check(form + "InfoName|0|0|1|1|2|middle|x\r\nControl_Sat|show|0|0\r\nControl_Sat|show|0|0\r\n"),
            (Lines{L"Tmava.skin:3: InfoName, pole 6: čeká se left, centre, right, stojí tu 'middle'",
                   L"Tmava.skin:3: InfoName: přebývá pole 7", L"Tmava.skin:5: Control_Sat stojí už na řádku 4"}));
}

TEST_F(SkinCheckTest, WhatReachesOutOfTheWindowIsTold) {
  EXPECT_EQ(check(form + "Control_Play|show|331|0\r\nInfoName|0|550|51|10|0\r\nLineMenu_End|show|0|-1\r\n"),
            (Lines{L"Tmava.skin:3: Control_Play přesahuje okno", L"Tmava.skin:4: InfoName přesahuje okno",
                   L"Tmava.skin:5: LineMenu_End přesahuje okno"}));
  EXPECT_EQ(check("Control_Play|show|0|0\r\nLTform|600|495\r\n"),
            (Lines{L"Tmava.skin:1: Control_Play stojí před řádkem LTform, takže nelze říci, zda leží v okně",
                   L"Tmava.skin:2: form.gif má 40 x 32 bodů, okno 40 x 33 bodů: zbytek bude mít barvu systému"}));
  EXPECT_EQ(check("Author|x\r\n"), Lines{L"Tmava.skin: chybí řádek LTform s velikostí okna"});
}

TEST_F(SkinCheckTest, PicturesAreReadWhole) {
  const std::wstring folder = w.machine.folder + L"\\Orb_Data\\skins\\Tmava\\";
  (void)w.files.remove(folder + L"stop.gif");
  w.picture(L"Tmava", L"vol3", gif(20, 11));
  w.picture(L"Tmava", L"sat", gif(20, 10).substr(0, 30));
  w.picture(L"Tmava", L"vol2@2x", gif(40, 20));
  w.picture(L"Tmava", L"vol4@2x", gif(40, 21));
  EXPECT_EQ(check(form + "Control_Play|show|0|0\r\nControl_Volume|show|0|0\r\nControl_Sat|show|0|0\r\n"),
            (Lines{L"stop.gif: obrázek chybí", L"vol3.gif: má jinou velikost než vol0.gif",
                   L"vol4@2x.gif: nemá dvojnásobnou velikost, nepoužije se",
                   L"sat.gif: není GIF, který lze zobrazit (nejvýše 8,5 megapixelu, strana 4096, soubor 8 MiB)"}));
  EXPECT_EQ(check(form + "Control_Play|hide\r\n"), Lines{}) << "what is hidden needs no picture";
}

TEST_F(SkinCheckTest, LimitsAreTheLoadersOwn) {
  for (const wchar_t* name : {L"vol0", L"vol1", L"vol2", L"vol3", L"vol4", L"vol5"})
    w.picture(L"Tmava", name, gif(2500, 1700));
  const Lines told = check("LTform|600|480\r\nControl_Volume|show|0|0\r\n");
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[1], L"Tmava.skin: obrázky mají dohromady více než 24 megapixelů, skin se nenačte");
  EXPECT_EQ(check(std::string(1024 * 1024 + 1, 'x')), Lines{L"Tmava.skin: soubor nelze číst nebo je větší než 1 MiB"});
}

TEST_F(SkinCheckTest, ANameIsNoPath) {
  EXPECT_EQ(check("", L"Jiná"), Lines{L"Jiná.skin: soubor chybí"});
  EXPECT_EQ(check("", L"..\\x"), Lines{L"..\\x: čeká se jméno skinu bez cesty a přípony"});
  EXPECT_EQ(check("", L""), Lines{L": čeká se jméno skinu bez cesty a přípony"});
}

} // namespace
} // namespace lumotune::test
