// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as a picture: either none, or one as large as it says, of which every pixel can be drawn.
#include "platform/common/gif.h"
#include "platform/common/scale.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <string>

using namespace lumotune::platform;
using lumotune::fuzz::demand;

namespace {

void check(std::string_view bytes) {
  constexpr int max_side = 64;
  const auto picture = decode_gif(bytes, max_side);
  if (!picture)
    return;
  demand(picture->width > 0 && picture->width <= max_side && picture->height > 0 && picture->height <= max_side);
  demand(picture->values.size() ==
         static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(picture->height));
  for (const std::uint32_t pixel : picture->values)
    demand(pixel == 0 || pixel >> 24U == 0xffU);
  demand(scaled(*picture, picture->width * 3 / 2, (picture->height + 1) / 2).values.size() ==
         static_cast<std::size_t>(picture->width * 3 / 2) * static_cast<std::size_t>((picture->height + 1) / 2));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  check(bytes);
  // And behind a header that is right, so that most runs come as far as the pixels.
  check(std::string("GIF89a\x10\0\x10\0\x81\0\0\xff\0\0\0\xff\0\0\0\xff\xff\xff\xff,\0\0\0\0\x10\0\x10\0", 34) + bytes);
  return 0;
}
