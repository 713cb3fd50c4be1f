// SPDX-License-Identifier: LGPL-2.1-or-later
#include "skin/skin_limits.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace lumotune::skin {
namespace {

// Every picture that a skin can show, now or when the state changes.
constexpr const wchar_t* pictures[] = {L"form", L"ot",   L"otn",  L"min", L"end",    L"play", L"stop",
                                       L"rec",  L"show", L"menu", L"sat", L"vol0",   L"vol1", L"vol2",
                                       L"vol3", L"vol4", L"vol5", L"orb", L"display"};

} // namespace

bool is_picture_file(std::wstring_view file) {
  return std::any_of(std::begin(pictures), std::end(pictures), [&](const std::wstring& name) {
    return base::equal_ignoring_case(file, name + L".gif") || base::equal_ignoring_case(file, name + L"@2x.gif");
  });
}

bool too_large(const platform::Window& window, int width, int height) {
  const platform::TwipsRect work = window.work_area();
  if (work.width <= 0 || work.height <= 0)
    return false; // no monitor at present
  const auto times = [](std::int64_t value) { return max_work_areas * value; };
  return width > times(work.width) || height > times(work.height) ||
         std::int64_t{width} * height > times(std::int64_t{work.width} * work.height);
}

std::wstring over_limits(const platform::Files& files, const platform::Window& window, const std::wstring& path,
                         const std::wstring& folder) {
  if (files.size(path).value_or(0) > max_description_bytes)
    return path + L": larger than 1 MiB";
  constexpr double normal = 15; // twips a pixel at 96 dots an inch, where those of twice the size are not read
  const bool twice = window.twips_per_pixel_x() < normal;
  std::int64_t together = 0;
  for (const wchar_t* name : pictures) {
    for (const wchar_t* size : {L".gif", L"@2x.gif"}) {
      if (*size == L'@' && !twice)
        continue;
      const std::wstring picture = folder + L"\\" + name + size;
      const std::int64_t pixels = window.picture_pixels(picture);
      if (pixels > platform::PictureBox::max_pixels)
        return picture + L": more than 8.5 megapixels";
      together += pixels;
    }
  }
  return together > max_pixels_together ? folder + L": pictures of more than 24 megapixels" : std::wstring();
}

} // namespace lumotune::skin
