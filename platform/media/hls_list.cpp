// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/media/hls_list.h"

#include "platform/media/hls_tags.h"

#include <algorithm>
#include <array>
#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace lumotune::media {
namespace {

constexpr std::string_view first_line = "#EXTM3U";
constexpr std::size_t max_line = 4095; // as FFmpeg's
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

// Reads line by line and writes each tag anew, from its parsed values.
class Reader {
public:
  Reader(HlsList& list, std::size_t base) : list_(list), base_(base) {}

  // False when the list is refused.
  [[nodiscard]] bool line(std::string_view text) {
    if (text.size() > max_line)
      return false;
    if (text.empty())
      return true;
    return text.front() == '#' ? tag(text) : address(text);
  }

  // FFmpeg loads the list of each variant and rendition, and none may be asked for twice.
  void end_of_text() {
    for (const auto& [address, text] : renditions_) {
      if (address.empty() || chosen_.insert(address).second)
        list_.text += text;
    }
  }

private:
  bool tag(std::string_view text) {
    using Handler = bool (Reader::*)(std::string_view);
    static constexpr std::array<std::pair<std::string_view, Handler>, 10> handlers = {
        {{"#EXT-X-STREAM-INF:", &Reader::variant},
         {"#EXT-X-MEDIA:", &Reader::rendition},
         {"#EXT-X-TARGETDURATION:", &Reader::target},
         {"#EXT-X-MEDIA-SEQUENCE:", &Reader::sequence},
         {"#EXTINF:", &Reader::duration},
         {"#EXT-X-BYTERANGE:", &Reader::range},
         {"#EXT-X-MAP:", &Reader::map},
         {"#EXT-X-KEY:", &Reader::key},
         {"#EXT-X-PLAYLIST-TYPE:", &Reader::type},
         {"#EXT-X-ENDLIST", &Reader::end}}};
    for (const auto& [name, handler] : handlers) {
      if (text.starts_with(name))
        return (this->*handler)(text.substr(name.size()));
    }
    return true; // nothing that FFmpeg needs
  }

  bool variant(std::string_view attributes) {
    list_.choices = true;
    variant_ = ++variants_ > max_hls_variants ? "" : hls_variant(attributes);
    return true;
  }

  bool rendition(std::string_view attributes) {
    list_.choices = true;
    HlsRendition made = hls_rendition(attributes, base_);
    if (!made.text.empty() && renditions_.size() < max_hls_variants)
      renditions_.push_back(std::move(made));
    return true;
  }

  bool target(std::string_view value) {
    constexpr std::int64_t longest_s = 60;
    const auto seconds = static_cast<int>(hls_number(value, 1, longest_s));
    list_.media = true;
    list_.target_s = std::min(seconds, 10);
    list_.text += "#EXT-X-TARGETDURATION:" + std::to_string(seconds) + '\n';
    return true;
  }

  bool sequence(std::string_view value) {
    list_.media = true;
    digest(value);
    list_.text += "#EXT-X-MEDIA-SEQUENCE:" + std::to_string(hls_number(value, 0, max_hls_sequence)) + '\n';
    return true;
  }

  bool duration(std::string_view value) {
    list_.media = true;
    segment_ = "#EXTINF:" + hls_seconds(value) + ",\n";
    return true;
  }

  bool range(std::string_view value) {
    const auto range = hls_range(value);
    range_ = "#EXT-X-BYTERANGE:" + range.value_or("") + '\n';
    return range.has_value();
  }

  bool map(std::string_view attributes) {
    const auto text = hls_map(attributes, base_);
    list_.text += text.value_or("");
    return text.has_value() && ++maps_ <= max_hls_maps;
  }

  bool key(std::string_view attributes) {
    const auto text = hls_key(attributes, base_);
    list_.text += text.value_or("");
    key_ = text.value_or("").size();
    return text.has_value();
  }

  bool type(std::string_view value) {
    if (value == "EVENT" || value == "VOD")
      list_.text.append("#EXT-X-PLAYLIST-TYPE:").append(value) += '\n';
    return true;
  }

  bool end(std::string_view /*nothing*/) {
    list_.ended = true;
    list_.text += "#EXT-X-ENDLIST\n";
    return true;
  }

  // An address without a tag before it, or of a dropped variant, means nothing.
  bool address(std::string_view text) {
    cost_ += segment_cost + base_ + text.size() + (key_ > 0 ? base_ + key_ : 0);
    if (cost_ > max_hls_cost || !is_hls_address(text, base_))
      return false;
    digest(text);
    const bool chosen = !variant_.empty() && chosen_.emplace(text).second;
    if (chosen || !segment_.empty())
      list_.text.append(variant_).append(segment_).append(range_).append(text) += '\n';
    list_.segments = list_.segments || !segment_.empty();
    variant_.clear();
    segment_.clear();
    range_.clear();
    return true;
  }

  void digest(std::string_view text) {
    list_.digest = list_.digest * 1099511628211U + std::hash<std::string_view>{}(text);
  }

  HlsList& list_;
  std::size_t base_;
  std::size_t cost_ = 0;
  std::size_t key_ = 0;
  std::size_t maps_ = 0;
  std::size_t variants_ = 0;
  std::vector<HlsRendition> renditions_;
  std::set<std::string, std::less<>> chosen_; // addresses of variants and renditions
  // The tags of the next address.
  std::string variant_;
  std::string segment_;
  std::string range_;
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
  list.text.append(first_line) += '\n';
  Reader reader(list, base);
  while (!text.empty()) {
    const std::size_t end = text.find_first_of(std::string_view("\r\n\0", 3));
    if (!reader.line(trimmed(text.substr(0, end))))
      return std::nullopt;
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  reader.end_of_text();
  if (list.segments && list.choices)
    return std::nullopt;
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
