// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_installer.h"

#include "base/boxes.h"
#include "base/text.h"
#include "player/dropped_address.h"
#include "player/notices.h"
#include "skin/skin_file.h"
#include "skin/skin_limits.h"

#include <algorithm>

namespace lumotune::skin {

bool SkinInstaller::is_archive(const platform::Drop& drop) {
  return !drop.paths.empty() && player::is_path_of_drive(drop.paths.front()) &&
         player::has_ending(drop.paths.front(), L"zip");
}

std::wstring SkinInstaller::install(const platform::Drop& drop) {
  std::string archive;
  if (!uses_.folder.files().read_at_most(drop.paths.front(), archive, max_archive_bytes)) {
    refuse(L"archiv nelze přečíst nebo je větší než 32 MiB");
    return {};
  }
  std::wstring refused;
  const auto shown_pixels = [this](std::string_view bytes) { return uses_.form.window.shown_pixels(bytes); };
  const auto skin = unpack_skin(archive, uses_.folder.codec(), shown_pixels, refused);
  if (skin && !fits(*skin))
    refused = L"okno by bylo příliš velké";
  if (!refused.empty()) {
    refuse(refused);
    return {};
  }
  if (!may_replace(*skin))
    return {};
  if (!save(*skin)) {
    refuse(L"do složky skinů nelze zapsat");
    return {};
  }
  return skin->name;
}

bool SkinInstaller::fits(const UnpackedSkin& skin) const {
  const auto lines = split_lines(uses_.folder.codec().decode(skin.description));
  return std::none_of(lines.begin(), lines.end(), [this](const std::wstring& each) {
    const auto line = SkinLine::parse(each);
    return line && line->names(L"LTform") &&
           too_large(uses_.form.window, line->number(1).value_or(0), line->number(2).value_or(0));
  });
}

bool SkinInstaller::may_replace(const UnpackedSkin& skin) {
  const auto& files = uses_.folder.files();
  const bool there = files.exists(uses_.folder.skins(skin.name + L".skin")) ||
                     !files.list(uses_.folder.skins(skin.name), L"*").empty();
  if (!there)
    return true;
  const auto answer =
      uses_.dialogs.message(L"Skin " + skin.name + L" už máte. Chcete ho nahradit tím z archivu?", base::box_title,
                            platform::BoxIcon::information, platform::BoxButtons::yes_no);
  return answer == platform::BoxAnswer::yes && !uses_.loop.quitting();
}

bool SkinInstaller::save(const UnpackedSkin& skin) const {
  auto& files = uses_.folder.files();
  const std::wstring folder = uses_.folder.skins(skin.name);
  if (!files.make_folder(uses_.folder.data(L"skins")) || !files.make_folder(folder))
    return false;
  for (const SkinPicture& each : skin.pictures) {
    if (!files.replace(folder + L"\\" + each.file, each.bytes))
      return false;
  }
  if (!files.replace(folder + L".skin", skin.description))
    return false;
  remove_others(skin);
  return true;
}

// A picture of twice the size that belonged to the skin replaced would be shown in place of the new one.
void SkinInstaller::remove_others(const UnpackedSkin& skin) const {
  auto& files = uses_.folder.files();
  const std::wstring folder = uses_.folder.skins(skin.name);
  for (const std::wstring& file : files.list(folder, L"*.gif")) {
    const bool kept = std::any_of(skin.pictures.begin(), skin.pictures.end(),
                                  [&](const SkinPicture& each) { return base::equal_ignoring_case(each.file, file); });
    if (!kept && is_picture_file(file))
      (void)files.remove(folder + L"\\" + file); // what cannot be removed is only a picture too many
  }
}

void SkinInstaller::refuse(const std::wstring& reason) {
  player::tell_or_inform(uses_.status, uses_.dialogs, L"Skin nelze použít: " + reason + L".");
}

} // namespace lumotune::skin
