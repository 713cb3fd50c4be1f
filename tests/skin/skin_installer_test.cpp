// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_installer.h"
#include "tests/support/skin_world.h"
#include "tests/support/zip_file.h"

#include <gtest/gtest.h>

namespace lumotune::test {
namespace {

constexpr const char* description = "LTform|6000|3000\r\n";
const std::wstring dropped_path = L"C:\\Stažené\\noc.zip";

struct SkinInstallerTest : testing::Test {
  SkinWorld w;
  skin::SkinInstaller installer{{w.form, w.folder, w.loop, w.dialogs, w.status}};

  std::wstring install(const std::vector<ZipFile>& files) {
    (void)w.files.replace(dropped_path, zip_of(files));
    w.files.forget_changes();
    platform::Drop drop;
    drop.paths = {dropped_path};
    return installer.install(drop);
  }
  std::wstring install_night() {
    return install({{"Noc.skin", description}, {"Noc/form.gif", gif(4, 4)}, {"Noc/play.gif", gif(5, 5)}});
  }
  // The status line of this world has no place, so a box tells it.
  [[nodiscard]] std::wstring told() const {
    return w.dialogs.shown.size() == 1 ? w.dialogs.shown.front().text : L"(other boxes)";
  }
  [[nodiscard]] std::wstring skins(const std::wstring& name) const { return w.folder.skins(name); }
  [[nodiscard]] std::string content(const std::wstring& name) const {
    return w.files.read(skins(name)).value_or("(none)");
  }
};

TEST_F(SkinInstallerTest, OnlyAnArchiveOnADriveIsOne) {
  const auto is_archive = [](const std::vector<std::wstring>& paths) {
    platform::Drop drop;
    drop.paths = paths;
    return skin::SkinInstaller::is_archive(drop);
  };
  EXPECT_TRUE(is_archive({L"C:\\a.ZIP"}));
  EXPECT_FALSE(is_archive({L"C:\\a.mp3", L"C:\\a.zip"}));
  for (const wchar_t* path :
       {L"\\\\host\\share\\a.zip", L"\\\\.\\pipe\\a.zip", L"a.zip", L"C:\\a.zip:b.zip", L"C:\\zip"})
    EXPECT_FALSE(is_archive({path}));
  EXPECT_FALSE(is_archive({}));
}

TEST_F(SkinInstallerTest, ANewSkinIsKeptAndNothingAsked) {
  EXPECT_EQ(install_night(), L"Noc");
  EXPECT_EQ(content(L"Noc.skin"), description);
  EXPECT_EQ(content(L"Noc\\form.gif"), gif(4, 4));
  EXPECT_EQ(content(L"Noc\\play.gif"), gif(5, 5));
  EXPECT_TRUE(w.dialogs.shown.empty());
}

TEST_F(SkinInstallerTest, TheFolderIsMadeFirstAndTheDescriptionComesLast) {
  install_night();
  const auto changes = w.files.changes();
  ASSERT_EQ(changes.size(), 4U);
  EXPECT_EQ(changes.front(), L"make folder " + skins(L"Noc"));
  EXPECT_EQ(changes.back(), L"replace " + skins(L"Noc.skin"));
}

TEST_F(SkinInstallerTest, ACrashAtAnyStepLeavesNoSkinThatIsNotWhole) {
  const std::string archive =
      zip_of({{"Noc.skin", description}, {"Noc/form.gif", gif(4, 4)}, {"Noc/play.gif", gif(5, 5)}});
  int crashes = 0;
  for (bool crashed = true; crashed; crashes += crashed ? 1 : 0) {
    SkinWorld run;
    skin::SkinInstaller fresh({run.form, run.folder, run.loop, run.dialogs, run.status});
    (void)run.files.replace(dropped_path, archive);
    run.files.crash_at(crashes);
    platform::Drop drop;
    drop.paths = {dropped_path};
    (void)fresh.install(drop);
    crashed = run.files.power_on();
    const auto left = [&](const wchar_t* name) { return run.files.read(run.folder.skins(name)).value_or(""); };
    EXPECT_TRUE(left(L"Noc.skin").empty() ||
                (left(L"Noc\\form.gif") == gif(4, 4) && left(L"Noc\\play.gif") == gif(5, 5)))
        << crashes;
  }
  EXPECT_EQ(crashes, 7) << "a folder, and three files in two steps each";
}

TEST_F(SkinInstallerTest, ASkinThatIsThereIsReplacedAfterAYesOnly) {
  w.description(L"Noc", "LTform|1|1\r\n");
  w.picture(L"Noc", L"form", gif(1, 1));
  w.picture(L"Noc", L"form@2x", gif(2, 2));
  w.picture(L"Noc", L"moje", gif(3, 3));
  w.dialogs.answers = {platform::BoxAnswer::no};
  EXPECT_EQ(install_night(), L"");
  EXPECT_TRUE(w.files.changes().empty());
  w.dialogs.answers = {platform::BoxAnswer::yes};
  EXPECT_EQ(install_night(), L"Noc");
  EXPECT_EQ(content(L"Noc.skin"), description);
  EXPECT_EQ(content(L"Noc\\form.gif"), gif(4, 4));
  EXPECT_EQ(content(L"Noc\\form@2x.gif"), "(none)") << "it belonged to the old one";
  EXPECT_EQ(content(L"Noc\\moje.gif"), gif(3, 3)) << "no picture of a skin";
}

TEST_F(SkinInstallerTest, PicturesWithoutADescriptionAreAskedAboutToo) {
  w.picture(L"Noc", L"form", gif(1, 1));
  w.dialogs.answers = {platform::BoxAnswer::no};
  EXPECT_EQ(install_night(), L"");
  EXPECT_EQ(content(L"Noc\\form.gif"), gif(1, 1));
}

TEST_F(SkinInstallerTest, ARefusedArchiveIsToldWithItsReasonAndChangesNothing) {
  EXPECT_EQ(install({{"Noc.skin", description}}), L"");
  EXPECT_TRUE(w.files.changes().empty());
  EXPECT_EQ(told(), L"Skin nelze použít: v archivu chybí složka Noc s obrázky.");
}

TEST_F(SkinInstallerTest, AnArchiveThatCannotBeReadIsTold) {
  platform::Drop drop;
  drop.paths = {L"C:\\chybi.zip"};
  EXPECT_EQ(installer.install(drop), L"");
  EXPECT_EQ(told(), L"Skin nelze použít: archiv nelze přečíst nebo je větší než 32 MiB.");
}

TEST_F(SkinInstallerTest, AWindowBeyondAllScreensIsRefused) {
  EXPECT_EQ(install({{"Noc.skin", "LTform|119000|119000\r\n"}, {"Noc/form.gif", gif(4, 4)}}), L"");
  EXPECT_EQ(told(), L"Skin nelze použít: okno by bylo příliš velké.");
}

TEST_F(SkinInstallerTest, AFolderThatTakesNothingIsTold) {
  w.files.make_folder_readonly(w.folder.data(L"skins"));
  EXPECT_EQ(install_night(), L"");
  EXPECT_EQ(told(), L"Skin nelze použít: do složky skinů nelze zapsat.");
  EXPECT_EQ(content(L"Noc.skin"), "(none)");
}

} // namespace
} // namespace lumotune::test
