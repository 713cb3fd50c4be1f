// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/picture.h"

#include "platform/win32/files.h"

#include <algorithm>
#include <objbase.h>
#include <objidl.h>
// GDI+ asks for these two names.
using std::max;
using std::min;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#include <gdiplus.h>
#pragma GCC diagnostic pop

namespace lumotune::platform::win32 {
namespace {

constexpr std::uint64_t max_picture_bytes = 8U * 1024 * 1024;

struct ReleaseStream {
  void operator()(IStream* stream) const { stream->Release(); }
};

// A stream over a copy of the bytes; nothing when there was no memory.
std::unique_ptr<IStream, ReleaseStream> stream_of(const std::string& bytes) {
  IStream* made = nullptr;
  if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &made)))
    return nullptr;
  std::unique_ptr<IStream, ReleaseStream> stream(made);
  ULONG written = 0;
  if (FAILED(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written)) || written != bytes.size() ||
      FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr)))
    return nullptr;
  return stream;
}

} // namespace

PictureLibrary::PictureLibrary() {
  Gdiplus::GdiplusStartupInput input;
  if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok)
    token_ = 0;
}

PictureLibrary::~PictureLibrary() {
  if (token_ != 0)
    Gdiplus::GdiplusShutdown(token_);
}

// The decoded picture, and the last size it was wanted in, ready to be blended.
struct Picture::Bits {
  std::unique_ptr<Gdiplus::Bitmap> decoded;
  MemoryDc dc;
  GdiObject bitmap;
  int width = 0;
  int height = 0;
};

Picture::Picture() : bits_(std::make_unique<Bits>()) {}
Picture::~Picture() = default;

bool Picture::load(const std::wstring& path) {
  const Win32Files files;
  const auto size = files.size(path);
  if (!size || *size > max_picture_bytes)
    return false;
  const auto bytes = files.read(path);
  if (!bytes || bytes->empty())
    return false;
  const std::unique_ptr<IStream, ReleaseStream> stream = stream_of(*bytes);
  if (stream == nullptr)
    return false;
  Gdiplus::Bitmap source(stream.get());
  const UINT width = source.GetLastStatus() == Gdiplus::Ok ? source.GetWidth() : 0;
  const UINT height = width != 0 ? source.GetHeight() : 0;
  if (width == 0 || height == 0 || width > max_side || height > max_side)
    return false;
  // Its own copy: the stream's memory goes, and a palette cannot be scaled well.
  auto decoded =
      std::make_unique<Gdiplus::Bitmap>(static_cast<INT>(width), static_cast<INT>(height), PixelFormat32bppPARGB);
  Gdiplus::Graphics graphics(decoded.get());
  graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  const Gdiplus::Rect whole(0, 0, static_cast<INT>(width), static_cast<INT>(height));
  if (graphics.DrawImage(&source, whole, 0, 0, whole.Width, whole.Height, Gdiplus::UnitPixel) != Gdiplus::Ok)
    return false;
  auto fresh = std::make_unique<Bits>();
  fresh->decoded = std::move(decoded);
  bits_ = std::move(fresh);
  width_ = static_cast<int>(width);
  height_ = static_cast<int>(height);
  return true;
}

void Picture::scale_to(int width, int height) const {
  Bits& bits = *bits_;
  if (bits.bitmap != nullptr && bits.width == width && bits.height == height)
    return;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height; // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* memory = nullptr;
  bits.dc.reset();
  bits.bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
  if (bits.bitmap == nullptr)
    return;
  Gdiplus::Bitmap target(width, height, width * 4, PixelFormat32bppPARGB, static_cast<BYTE*>(memory));
  Gdiplus::Graphics graphics(&target);
  graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
  const bool same = width == width_ && height == height_;
  graphics.SetInterpolationMode(same ? Gdiplus::InterpolationModeNearestNeighbor
                                     : Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  // Past its edge the picture is mirrored, so that the edge does not fade.
  Gdiplus::ImageAttributes attributes;
  attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY);
  graphics.DrawImage(bits.decoded.get(), Gdiplus::Rect(0, 0, width, height), 0, 0, width_, height_, Gdiplus::UnitPixel,
                     &attributes);
  graphics.Flush(Gdiplus::FlushIntentionSync);
  bits.width = width;
  bits.height = height;
  bits.dc.reset(CreateCompatibleDC(nullptr));
  SelectObject(static_cast<HDC>(bits.dc.get()), bits.bitmap.get());
}

void Picture::draw(HDC target, int x, int y, int width, int height, BYTE opacity) const {
  if (empty() || width <= 0 || height <= 0)
    return;
  scale_to(width, height);
  if (bits_->dc == nullptr)
    return;
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
  AlphaBlend(target, x, y, width, height, static_cast<HDC>(bits_->dc.get()), 0, 0, width, height, blend);
}

} // namespace lumotune::platform::win32
