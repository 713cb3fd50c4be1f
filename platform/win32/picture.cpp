// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/picture.h"

#include "platform/common/gif.h"
#include "platform/common/scale.h"
#include "platform/controls.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lumotune::platform::win32 {
namespace {

GdiObject bitmap_of(const Pixels& pixels) {
  std::uint32_t* memory = nullptr;
  GdiObject bitmap = make_bitmap(pixels.width, pixels.height, memory);
  if (bitmap != nullptr)
    std::copy(pixels.values.begin(), pixels.values.end(), memory);
  return bitmap;
}

KernelHandle opened(const std::wstring& path) {
  return KernelHandle(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Length and bytes through one handle: twenty pictures are read before the window can be shown.
std::string read_small(const std::wstring& path) {
  const KernelHandle file = opened(path);
  LARGE_INTEGER length{};
  if (file.get() == INVALID_HANDLE_VALUE || GetFileSizeEx(file.get(), &length) == 0 ||
      length.QuadPart > platform::PictureBox::max_bytes)
    return {};
  std::string bytes(static_cast<std::size_t>(length.QuadPart), '\0');
  DWORD got = 0;
  if (ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr) == 0)
    return {};
  bytes.resize(got);
  return bytes;
}

// "play.gif" becomes "play@2x.gif".
std::wstring path_of_twice(const std::wstring& path) {
  const std::size_t dot = path.find_last_of(L".\\/");
  const bool ends = dot != std::wstring::npos && path[dot] == L'.';
  return ends ? path.substr(0, dot) + L"@2x" + path.substr(dot) : path + L"@2x";
}

} // namespace

GdiObject make_bitmap(int width, int height, std::uint32_t*& memory) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* made = nullptr;
  GdiObject bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &made, nullptr, 0));
  memory = static_cast<std::uint32_t*>(made);
  return bitmap;
}

std::int64_t picture_pixels(const std::wstring& path) {
  const KernelHandle file = opened(path);
  std::array<char, gif_header_length> start{};
  DWORD got = 0;
  if (file.get() == INVALID_HANDLE_VALUE ||
      ReadFile(file.get(), start.data(), static_cast<DWORD>(start.size()), &got, nullptr) == 0)
    return 0;
  return gif_pixels({start.data(), got});
}

std::optional<PictureSize> picture_size(std::string_view bytes) {
  const auto pixels = decode_gif(bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  return pixels ? std::optional(PictureSize{pixels->width, pixels->height}) : std::nullopt;
}

bool Picture::load(const std::wstring& path) {
  std::string bytes = read_small(path);
  auto pixels = decode_gif(bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  if (!pixels)
    return false;
  width_ = pixels->width;
  height_ = pixels->height;
  pixels_ = std::move(*pixels);
  file_ = std::move(bytes);
  twice_ = path_of_twice(path);
  ready_.reset();
  painted_ = {};
  return true;
}

// Nothing unless it has exactly twice the size. Read when it is wanted: a start at 96 dots an inch does not look for
// it.
Pixels Picture::twice_the_size() const {
  const std::int64_t most = std::min(platform::PictureBox::max_pixels, std::int64_t{4} * width_ * height_);
  auto pixels = decode_gif(read_small(twice_), platform::PictureBox::max_side, most);
  const bool fits = pixels && pixels->width == 2 * width_ && pixels->height == 2 * height_;
  return fits ? std::move(*pixels) : Pixels{};
}

Pixels Picture::in_size(int width, int height) const {
  Pixels pixels = std::exchange(pixels_, {});
  if (width > width_ || height > height_) {
    Pixels twice = twice_the_size();
    if (!twice.values.empty())
      pixels = std::move(twice);
  }
  if (pixels.values.empty())
    pixels = decode_gif(file_, platform::PictureBox::max_side, platform::PictureBox::max_pixels).value_or(Pixels{});
  if (!pixels.values.empty() && (pixels.width != width || pixels.height != height))
    pixels = scaled(pixels, width, height);
  return pixels;
}

const Pixels* Picture::pixels(int width, int height) const {
  if (empty() || width <= 0 || height <= 0)
    return nullptr;
  if (painted_.width != width || painted_.height != height)
    painted_ = in_size(width, height);
  return painted_.values.empty() ? nullptr : &painted_;
}

// Nothing when out of memory.
HDC Picture::prepared(int width, int height) const {
  if (ready_ != nullptr && ready_->width == width && ready_->height == height)
    return static_cast<HDC>(ready_->dc.get());
  const Pixels pixels = in_size(width, height);
  if (pixels.values.empty())
    return nullptr;
  auto made = std::make_unique<Ready>(width, height, bitmap_of(pixels), MemoryDc(CreateCompatibleDC(nullptr)));
  if (made->bitmap == nullptr || made->dc == nullptr)
    return nullptr;
  SelectObject(static_cast<HDC>(made->dc.get()), made->bitmap.get());
  ready_ = std::move(made);
  return static_cast<HDC>(ready_->dc.get());
}

void Picture::draw(HDC target, int x, int y, int width, int height) const {
  const HDC ready = empty() || width <= 0 || height <= 0 ? nullptr : prepared(width, height);
  if (ready == nullptr)
    return;
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  AlphaBlend(target, x, y, width, height, ready, 0, 0, width, height, blend);
}

} // namespace lumotune::platform::win32
