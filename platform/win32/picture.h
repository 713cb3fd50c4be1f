// SPDX-License-Identifier: LGPL-2.1-or-later
// A picture of a skin, scaled to the monitor. The file is not to be trusted.
#pragma once

#include "platform/common/pixels.h"
#include "platform/win32/win.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumotune::platform::win32 {

// Width times height as the file tells them; 0 when it is missing or no picture.
[[nodiscard]] std::int64_t picture_pixels(const std::wstring& path);

struct PictureSize {
  int width = 0; // pixels
  int height = 0;
};
// Of a whole file within the limits of PictureBox; nothing when it is no picture.
[[nodiscard]] std::optional<PictureSize> picture_size(std::string_view bytes);

// A top-down bitmap of opaque or premultiplied pixels, and its memory; nothing when out of memory.
[[nodiscard]] GdiObject make_bitmap(int width, int height, std::uint32_t*& memory);

// A GIF; of a moving one the first picture. Beside "play.gif" there may be "play@2x.gif", the same picture in twice the
// size: where more pixels are wanted than the first one has, that one is read and scaled instead.
class Picture {
public:
  // False when the file is missing, larger than PictureBox takes it, or no picture; the old one then stays.
  [[nodiscard]] bool load(const std::wstring& path);
  [[nodiscard]] bool empty() const { return width_ == 0; }
  [[nodiscard]] int width() const { return width_; } // pixels as drawn by the artist
  [[nodiscard]] int height() const { return height_; }

  // Draws at a place of the target, scaled with a good filter where the size differs.
  void draw(HDC target, int x, int y, int width, int height) const;
  // The same for who paints himself: valid until the next call; nullptr when there is nothing to be drawn.
  [[nodiscard]] const Pixels* pixels(int width, int height) const;

private:
  // What is ready to be blended: the picture in the size it was wanted in last.
  struct Ready {
    int width = 0;
    int height = 0;
    GdiObject bitmap;
    MemoryDc dc; // goes before the bitmap that is selected into it
  };
  [[nodiscard]] HDC prepared(int width, int height) const;
  [[nodiscard]] Pixels in_size(int width, int height) const;
  [[nodiscard]] Pixels twice_the_size() const;

  int width_ = 0;
  int height_ = 0;
  std::string file_;       // a few kilobytes, where the pixels would be hundreds
  std::wstring twice_;     // path of the one of twice the size, which need not exist
  mutable Pixels pixels_;  // from loading until the first drawing
  mutable Pixels painted_; // what `pixels` gave last
  mutable std::unique_ptr<Ready> ready_;
};

} // namespace lumotune::platform::win32
