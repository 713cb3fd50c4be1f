// SPDX-License-Identifier: LGPL-2.1-or-later
// A decoder of our own: the system's loads a COM component and searches the registry for every picture, which took
// longer than the rest of the program's start.
#include "platform/common/gif.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace lumotune::platform {
namespace {

using Palette = std::array<std::uint32_t, 256>;
constexpr int no_index = -1;

// A cursor over the bytes; past the end it yields 0 and empty values and sets `torn`.
class Reader {
public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}
  [[nodiscard]] bool torn() const { return torn_; }

  [[nodiscard]] std::string_view take(std::size_t count) {
    torn_ = torn_ || count > rest_.size();
    const std::string_view taken = torn_ ? std::string_view() : rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }
  [[nodiscard]] unsigned byte() {
    const std::string_view taken = take(1);
    return taken.empty() ? 0 : static_cast<unsigned char>(taken[0]);
  }
  [[nodiscard]] int word() {
    const unsigned low = byte();
    return static_cast<int>(low | (byte() << 8U));
  }
  // The pieces up to an empty one, put together.
  [[nodiscard]] std::string pieces() {
    std::string all;
    for (unsigned length = byte(); length != 0; length = byte())
      all.append(take(length));
    return all;
  }
  // `flags` as the screen and each picture have them: whether there is a palette, and how large.
  void palette(unsigned flags, Palette& palette) {
    if ((flags & 0x80U) == 0)
      return;
    const std::size_t count = std::size_t{2} << (flags & 7U);
    palette.fill(0);
    for (std::size_t i = 0; i < count; ++i) {
      const std::string_view colour = take(3);
      if (colour.empty())
        return;
      const auto part = [&](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(colour[at]));
      };
      palette[i] = 0xff000000U | part(0) << 16U | part(1) << 8U | part(2);
    }
  }

private:
  std::string_view rest_;
  bool torn_ = false;
};

class BitReader {
public:
  explicit BitReader(std::string_view bytes) : bytes_(bytes) {}

  // The next `width` bits (1..12), low ones first; nothing at the end.
  [[nodiscard]] std::optional<unsigned> take(unsigned width) {
    while (held_ < width) {
      if (at_ == bytes_.size())
        return std::nullopt;
      bits_ |= static_cast<unsigned>(static_cast<unsigned char>(bytes_[at_++])) << held_;
      held_ += 8;
    }
    const unsigned value = bits_ & ((1U << width) - 1);
    bits_ >>= width;
    held_ -= width;
    return value;
  }

private:
  std::string_view bytes_;
  std::size_t at_ = 0;
  unsigned bits_ = 0;
  unsigned held_ = 0;
};

constexpr std::size_t most_codes = 4096;
constexpr unsigned widest_code = 12;

// LZW; false on bad data. A code always stands for a piece of the earlier output, so the dictionary stores positions
// only. A new entry is the previous piece extended by one: its last value is the first one of the next piece.
bool unpack(std::string_view packed, unsigned smallest, std::vector<std::uint8_t>& out) {
  struct Piece {
    std::size_t at = 0;
    std::size_t length = 0; // 0: none
  };
  std::vector<Piece> pieces(most_codes);
  const unsigned clear = 1U << smallest;
  BitReader bits(packed);
  Piece before;
  unsigned width = smallest + 1;
  std::size_t next = clear + 2;
  for (std::size_t filled = 0; filled < out.size();) {
    const auto code = bits.take(width);
    if (!code || *code == clear + 1)
      return false;
    if (*code == clear) {
      before = {};
      width = smallest + 1;
      next = clear + 2;
      continue;
    }
    if (before.length != 0 && next < most_codes) {
      pieces[next++] = {before.at, before.length + 1};
      if (next == std::size_t{1} << width && width < widest_code)
        ++width;
    }
    if (*code >= next)
      return false;
    const Piece piece = *code < clear ? Piece{filled, 1} : pieces[*code];
    before = {filled, std::min(piece.length, out.size() - filled)};
    if (*code < clear)
      out[filled] = static_cast<std::uint8_t>(*code);
    for (std::size_t i = 0; i<before.length&& * code> clear; ++i)
      out[filled + i] = out[piece.at + i];
    filled += before.length;
  }
  return true;
}

struct Limits {
  int max_side;
  std::int64_t max_pixels;

  [[nodiscard]] bool allow(int width, int height) const {
    return width > 0 && height > 0 && width <= max_side && height <= max_side &&
           std::int64_t{width} * height <= max_pixels;
  }
};

struct Frame {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool interlaced = false;
  std::vector<std::uint8_t> indexes;
};

// Which row of the picture the rows of an interlaced file are: every eighth one, those between, and so on.
int row_of(const Frame& frame, int row) {
  if (!frame.interlaced)
    return row;
  struct Pass {
    int first;
    int step;
  };
  for (const Pass pass : {Pass{0, 8}, Pass{4, 8}, Pass{2, 4}, Pass{1, 2}}) {
    const int rows = frame.height > pass.first ? (frame.height - pass.first + pass.step - 1) / pass.step : 0;
    if (row < rows)
      return pass.first + row * pass.step;
    row -= rows;
  }
  return row;
}

void paint(const Frame& frame, const Palette& palette, int clear_index, Pixels& picture) {
  const int columns = std::min(frame.width, picture.width - frame.left);
  for (int row = 0; row < frame.height; ++row) {
    const int y = frame.top + row_of(frame, row);
    if (y >= picture.height)
      continue;
    const auto from = static_cast<std::size_t>(row) * static_cast<std::size_t>(frame.width);
    const auto to =
        static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(frame.left);
    for (int x = 0; x < columns; ++x) {
      const std::uint8_t index = frame.indexes[from + static_cast<std::size_t>(x)];
      picture.values[to + static_cast<std::size_t>(x)] = index == clear_index ? 0 : palette[index];
    }
  }
}

// The image block after its marker; false when it is truncated or invalid.
bool read_frame(Reader& reader, const Limits& limits, Palette& palette, Frame& frame) {
  frame.left = reader.word();
  frame.top = reader.word();
  frame.width = reader.word();
  frame.height = reader.word();
  const unsigned flags = reader.byte();
  frame.interlaced = (flags & 0x40U) != 0;
  reader.palette(flags, palette);
  const unsigned smallest = reader.byte();
  if (reader.torn() || !limits.allow(frame.width, frame.height) || smallest < 1 || smallest > 8)
    return false;
  // A file truncated after its last pixel is accepted.
  const std::string packed = reader.pieces();
  frame.indexes.resize(static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height));
  return unpack(packed, smallest, frame.indexes);
}

// One extension; which colour is clear stands in that of the kind 0xf9.
void read_extension(Reader& reader, int& clear_index) {
  const bool control = reader.byte() == 0xf9;
  const std::string told = reader.pieces();
  if (control && told.size() >= 4)
    clear_index = (static_cast<unsigned char>(told[0]) & 1U) != 0 ? static_cast<unsigned char>(told[3]) : no_index;
}

bool is_gif(std::string_view kind) {
  return kind == "GIF87a" || kind == "GIF89a";
}

} // namespace

std::int64_t gif_pixels(std::string_view bytes) {
  Reader reader(bytes);
  const bool known = is_gif(reader.take(6));
  const std::int64_t width = reader.word();
  const std::int64_t height = reader.word();
  return known && !reader.torn() ? width * height : 0;
}

std::optional<Pixels> decode_gif(std::string_view bytes, int max_side, std::int64_t max_pixels) {
  const Limits limits{max_side, max_pixels};
  Reader reader(bytes);
  const bool known = is_gif(reader.take(6));
  Pixels picture;
  picture.width = reader.word();
  picture.height = reader.word();
  const unsigned flags = reader.byte();
  (void)reader.take(2); // the ground's colour, which nobody paints, and the shape of a pixel
  Palette palette{};
  reader.palette(flags, palette);
  if (reader.torn() || !known || !limits.allow(picture.width, picture.height))
    return std::nullopt;
  int clear_index = no_index;
  while (!reader.torn()) {
    const unsigned mark = reader.byte();
    if (mark == 0x21) {
      read_extension(reader, clear_index);
      continue;
    }
    Frame frame;
    if (mark != 0x2c || !read_frame(reader, limits, palette, frame))
      return std::nullopt;
    picture.values.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    paint(frame, palette, clear_index, picture);
    return picture;
  }
  return std::nullopt;
}

} // namespace lumotune::platform
