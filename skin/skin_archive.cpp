// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_archive.h"

#include "base/text.h"
#include "platform/controls.h"
#include "skin/skin_file.h"
#include "skin/skin_limits.h"
#include "skin/zip_archive.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace lumotune::skin {
namespace {

constexpr std::wstring_view description_ending = L".skin";

bool ends_with(std::wstring_view text, std::wstring_view ending) {
  return text.size() >= ending.size() && base::equal_ignoring_case(text.substr(text.size() - ending.size()), ending);
}

std::wstring_view last_part(std::wstring_view path) {
  return path.substr(path.find_last_of(L'/') + 1); // npos + 1 is 0
}

// Devices of old DOS, which Windows opens in their stead whatever their ending.
bool is_device(std::wstring_view stem) {
  constexpr std::array<std::wstring_view, 4> plain = {L"con", L"prn", L"aux", L"nul"};
  const auto equals = [&](std::wstring_view device) { return base::equal_ignoring_case(stem, device); };
  if (std::any_of(plain.begin(), plain.end(), equals))
    return true;
  return stem.size() == 4 && (equals(std::wstring(L"com") + stem[3]) || equals(std::wstring(L"lpt") + stem[3]));
}

// Whether a file and a folder can have that name, and the settings keep it.
bool is_skin_name(std::wstring_view name, const platform::AnsiCodec& codec) {
  constexpr std::size_t most = 60;
  constexpr wchar_t first_printable = L' ';
  if (name.empty() || name.size() > most || name.front() == L'.' || name.front() == L' ' || name.back() == L'.' ||
      name.back() == L' ')
    return false;
  const auto wrong = [](wchar_t each) {
    return each < first_printable || std::wstring_view(L"\\/:*?\"<>|").find(each) != std::wstring_view::npos;
  };
  return std::none_of(name.begin(), name.end(), wrong) && !is_device(name.substr(0, name.find(L'.'))) &&
         codec.decode(codec.encode(name)) == name;
}

class Unpacking {
public:
  Unpacking(std::string_view archive, const platform::AnsiCodec& codec, const ShownPixels& shown_pixels)
      : archive_(archive), codec_(codec), shown_pixels_(shown_pixels) {}

  // Empty when all went well, else the reason.
  std::wstring run(UnpackedSkin& skin) {
    auto entries = zip_entries(archive_);
    if (!entries || archive_.size() > max_archive_bytes)
      return L"archiv .zip je poškozený nebo příliš velký";
    for (ZipEntry& each : *entries)
      std::replace(each.name.begin(), each.name.end(), L'\\', L'/');
    std::wstring wrong;
    const ZipEntry* description = find_description(*entries, wrong);
    if (description == nullptr)
      return wrong;
    wrong = take_description(*description, skin);
    return wrong.empty() ? take_pictures(*entries, *description, skin) : wrong;
  }

private:
  // nullptr when there is not exactly one, and the reason.
  static const ZipEntry* find_description(const std::vector<ZipEntry>& entries, std::wstring& wrong) {
    const ZipEntry* found = nullptr;
    for (const ZipEntry& each : entries) {
      // Some systems put a hidden twin beside each file.
      if (!ends_with(each.name, description_ending) || last_part(each.name).front() == L'.')
        continue;
      if (found != nullptr) {
        wrong = L"v archivu je více skinů, přetáhněte každý zvlášť";
        return nullptr;
      }
      found = &each;
    }
    if (found == nullptr)
      wrong = L"v archivu není soubor .skin";
    return found;
  }

  std::wstring take_description(const ZipEntry& entry, UnpackedSkin& skin) {
    const std::wstring_view file = last_part(entry.name);
    skin.name = file.substr(0, file.size() - description_ending.size());
    if (!is_skin_name(skin.name, codec_))
      return L"takové jméno mít nemůže";
    auto content = unpacked(entry, max_description_bytes);
    if (!content)
      return damaged(file);
    skin.description = std::move(*content);
    const auto lines = split_lines(codec_.decode(skin.description));
    const bool has_window = std::any_of(lines.begin(), lines.end(), [](const std::wstring& text) {
      const auto line = SkinLine::parse(text);
      return line && line->names(L"LTform");
    });
    return has_window ? L"" : L"v popisu chybí řádek LTform";
  }

  std::wstring take_pictures(const std::vector<ZipEntry>& entries, const ZipEntry& description, UnpackedSkin& skin) {
    const std::wstring folder = description.name.substr(0, description.name.size() - description_ending.size()) + L"/";
    for (const ZipEntry& each : entries) {
      if (!base::starts_with_ignoring_case(each.name, folder))
        continue;
      const std::wstring file = each.name.substr(folder.size());
      if (!is_picture_file(file))
        continue;
      const std::wstring wrong = take_picture(each, file, skin);
      if (!wrong.empty())
        return wrong;
    }
    return skin.pictures.empty() ? L"v archivu chybí složka " + skin.name + L" s obrázky" : L"";
  }

  std::wstring take_picture(const ZipEntry& entry, const std::wstring& file, UnpackedSkin& skin) {
    using platform::PictureBox;
    const auto same = [&](const SkinPicture& each) { return base::equal_ignoring_case(each.file, file); };
    if (std::any_of(skin.pictures.begin(), skin.pictures.end(), same))
      return L"soubor " + file + L" je v archivu dvakrát";
    auto content = unpacked(entry, static_cast<std::size_t>(PictureBox::max_bytes));
    if (!content)
      return damaged(file);
    const std::int64_t pixels = shown_pixels_(*content);
    if (pixels == 0)
      return L"obrázek " + file + L" nelze zobrazit";
    pixels_ += pixels;
    if (pixels_ > max_pixels_together)
      return L"obrázky mají dohromady více než 24 megapixelů";
    skin.pictures.push_back({file, std::move(*content)});
    return {};
  }

  std::optional<std::string> unpacked(const ZipEntry& entry, std::size_t limit) {
    auto content = unzipped(archive_, entry, std::min(limit, max_archive_bytes - unpacked_));
    if (content)
      unpacked_ += content->size();
    return content;
  }

  static std::wstring damaged(std::wstring_view file) {
    return L"soubor " + std::wstring(file) + L" je v archivu poškozený nebo příliš velký";
  }

  std::string_view archive_;
  const platform::AnsiCodec& codec_;
  const ShownPixels& shown_pixels_;
  std::size_t unpacked_ = 0; // bytes so far
  std::int64_t pixels_ = 0;
};

} // namespace

std::optional<UnpackedSkin> unpack_skin(std::string_view archive, const platform::AnsiCodec& codec,
                                        const ShownPixels& shown_pixels, std::wstring& refused) {
  UnpackedSkin skin;
  refused = Unpacking(archive, codec, shown_pixels).run(skin);
  return refused.empty() ? std::optional(std::move(skin)) : std::nullopt;
}

} // namespace lumotune::skin
