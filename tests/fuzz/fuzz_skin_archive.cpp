// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as an archive with a skin: nothing comes out of it that leads elsewhere, cannot be shown or exceeds a
// limit.
#include "platform/common/gif.h"
#include "platform/memory/files.h"
#include "skin/skin_archive.h"
#include "skin/skin_limits.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/support/zip_file.h"

#include <cstddef>
#include <cstdint>
#include <string>

using namespace lumotune;
using fuzz::demand;

namespace {

std::int64_t shown_pixels(std::string_view bytes) {
  const auto picture = platform::decode_gif(bytes, 64);
  return picture ? std::int64_t{picture->width} * picture->height : 0;
}

void check(const std::string& archive) {
  static const platform::memory::Codec codec;
  std::wstring refused;
  const auto skin = skin::unpack_skin(archive, codec, shown_pixels, refused);
  demand(skin.has_value() == refused.empty());
  if (!skin)
    return;
  demand(!skin->name.empty() && skin->name.find_first_of(L"\\/:*?\"<>|") == std::wstring::npos);
  demand(skin->name.front() != L'.' && skin->name.back() != L'.' && skin->name.back() != L' ');
  demand(skin->description.size() <= skin::max_description_bytes && !skin->pictures.empty());
  std::size_t together = skin->description.size();
  for (const skin::SkinPicture& each : skin->pictures) {
    demand(skin::is_picture_file(each.file));
    together += each.bytes.size();
  }
  demand(together <= skin::max_archive_bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  check(bytes);
  // And as what lies in an archive that is right: the input's lines are the name, the description and a picture.
  const std::size_t first = std::min(bytes.find('\n'), size);
  const std::string name = bytes.substr(0, first);
  const std::string rest = bytes.substr(std::min(first + 1, size));
  static const std::string picture = {
      "GIF89a\4\0\4\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;", 35};
  check(test::zip_of({{name + ".skin", "LTform|1|1\r\n" + rest, false}, {name + "/form.gif", picture, false}}));
  check(test::zip_of({{"a.skin", "LTform|1|1", false}, {"a/form.gif", rest, false}, {"a/" + name, picture, false}}));
  return 0;
}
