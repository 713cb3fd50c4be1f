// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/hls_list.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace lumotune::media {
namespace {

constexpr std::string_view first_line = "#EXTM3U";
constexpr std::size_t max_line = 4095; // FFmpeg splits longer lines and parses the rest as another line
constexpr std::size_t segment_cost = 160;

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string_view from_first_line(std::string_view text) {
  if (text.starts_with("\xef\xbb\xbf"))
    text.remove_prefix(3);
  text = trimmed(text);
  return text.starts_with(first_line) ? text : std::string_view();
}

bool has_line(std::string_view text, std::string_view start) {
  for (std::size_t at = text.find(start); at != std::string_view::npos; at = text.find(start, at + 1)) {
    if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r')
      return true;
  }
  return false;
}

int number(std::string_view text) {
  int value = 0;
  (void)std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

class Reader {
public:
  Reader(HlsList& list, std::size_t base) : list_(list), base_(base) {}

  // False when a limit is exceeded.
  [[nodiscard]] bool line(std::string_view text) {
    if (text.size() > max_line)
      return false;
    if (text.empty() || (text.front() != '#' && variant_cut_)) {
      variant_cut_ = variant_cut_ && text.empty();
      return true;
    }
    return text.front() == '#' ? tag(text) : address(text);
  }

private:
  static bool is(std::string_view& text, std::string_view name) {
    if (!text.starts_with(name))
      return false;
    text.remove_prefix(name.size());
    return true;
  }

  void keep(std::string_view text) {
    list_.text.append(text);
    list_.text += '\n';
  }

  void digest(std::string_view text) {
    list_.digest = list_.digest * 1099511628211U + std::hash<std::string_view>{}(text);
  }

  bool tag(std::string_view text) {
    std::string_view rest = text;
    if (is(rest, "#EXT-X-STREAM-INF:") || is(rest, "#EXT-X-MEDIA:")) {
      const bool of_variant = text.starts_with("#EXT-X-S");
      list_.choices = true;
      int& count = of_variant ? variants_ : renditions_;
      if (++count > max_hls_variants) {
        variant_cut_ = variant_cut_ || of_variant;
        return true;
      }
    } else if (is(rest, "#EXT-X-TARGETDURATION:")) {
      list_.media = true;
      list_.target_s = std::clamp(number(rest), 1, 10);
    } else if (is(rest, "#EXT-X-MEDIA-SEQUENCE:")) {
      list_.media = true;
      digest(rest);
    } else if (is(rest, "#EXTINF:")) {
      list_.media = true;
      segment_ = true;
    } else if (is(rest, "#EXT-X-ENDLIST")) {
      list_.ended = true;
    } else if (is(rest, "#EXT-X-MAP:")) {
      if (++maps_ > max_hls_maps)
        return false;
    } else if (is(rest, "#EXT-X-KEY:")) {
      key_ = rest.size();
    } else if (!text.starts_with("#EXT")) {
      return true; // a comment
    }
    keep(text);
    return true;
  }

  bool address(std::string_view text) {
    cost_ += segment_cost + base_ + text.size() + (key_ > 0 ? base_ + key_ : 0);
    digest(text);
    keep(text);
    list_.segments = list_.segments || segment_;
    segment_ = false;
    return cost_ <= max_hls_cost;
  }

  HlsList& list_;
  std::size_t base_;
  std::size_t cost_ = 0;
  std::size_t key_ = 0;
  std::size_t maps_ = 0;
  int variants_ = 0;
  int renditions_ = 0;
  bool segment_ = false;     // the next address is one's
  bool variant_cut_ = false; // the next address belongs to a dropped variant
};

} // namespace

bool begins_m3u(std::string_view text) {
  return !from_first_line(text).empty();
}

bool is_hls_list(std::string_view text) {
  text = from_first_line(text);
  return !text.empty() && has_line(text, "#EXT-X-");
}

std::optional<HlsList> read_hls_list(std::string_view text, std::size_t base) {
  text = from_first_line(text);
  if (text.empty() || text.size() > max_hls_list_bytes)
    return std::nullopt;
  HlsList list;
  Reader reader(list, base);
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(std::string_view("\r\n\0", 3));
    if (!reader.line(trimmed(text.substr(0, end))))
      return std::nullopt;
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  if (list.media && list.target_s == 0)
    list.target_s = 10;
  return list;
}

bool HlsProgress::note(const std::string& address, const HlsList& list, Clock::time_point now) {
  if (!list.media)
    return true;
  const auto [at, added] = lists_.try_emplace(address, State{list.digest, now});
  if (list.ended)
    return true;
  longest_target_s_ = std::max(longest_target_s_, list.target_s);
  State& state = at->second;
  if (added || state.digest != list.digest) {
    state = {list.digest, now};
    return true;
  }
  return now - state.changed < std::chrono::seconds(3 * list.target_s);
}

} // namespace lumotune::media
