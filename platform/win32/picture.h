// SPDX-License-Identifier: LGPL-2.1-or-later
// A picture of a skin, scaled to the monitor. The file is not to be trusted.
#pragma once

#include "platform/win32/win.h"

#include <memory>
#include <string>

namespace lumotune::platform::win32 {

class Picture {
public:
  // A larger picture, in pixels a side, counts as no picture.
  static constexpr unsigned max_side = 4096;

  Picture();
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  ~Picture();

  // False when the file is missing, too large or no picture; the old one then stays.
  [[nodiscard]] bool load(const std::wstring& path);
  [[nodiscard]] bool empty() const { return width_ == 0; }
  [[nodiscard]] int width() const { return width_; } // pixels as drawn by the artist
  [[nodiscard]] int height() const { return height_; }

  // Draws at a place of the target, scaled with a good filter where the size differs; `opacity` 0..255.
  void draw(HDC target, int x, int y, int width, int height, BYTE opacity = 255) const;

private:
  struct Bits;
  void scale_to(int width, int height) const;

  std::unique_ptr<Bits> bits_;
  int width_ = 0;
  int height_ = 0;
};

// GDI+ for as long as it lives; made before the first picture.
class PictureLibrary {
public:
  PictureLibrary();
  PictureLibrary(const PictureLibrary&) = delete;
  PictureLibrary& operator=(const PictureLibrary&) = delete;
  ~PictureLibrary();

private:
  ULONG_PTR token_ = 0;
};

} // namespace lumotune::platform::win32
