// SPDX-License-Identifier: LGPL-2.1-or-later
#include "core/station_lookup.h"

#include "core/text.h"

namespace lumotune::core {
namespace {

constexpr std::size_t id_length = 6;
constexpr int www_index = 16;
constexpr std::string_view delimiter = "/@/";

// The last field is everything after the sixteenth delimiter.
std::string_view field_of(std::string_view record, int index) {
  for (int i = 0; i < index; ++i) {
    const std::size_t cut = record.find(delimiter);
    if (cut == std::string_view::npos)
      return {};
    record.remove_prefix(cut + delimiter.size());
  }
  return index == www_index ? record : record.substr(0, record.find(delimiter));
}

} // namespace

int station_field_index(std::wstring_view FieldName) {
  if (equal_ignoring_case(FieldName, L"name"))
    return 1;
  if (equal_ignoring_case(FieldName, L"kk"))
    return 5;
  if (equal_ignoring_case(FieldName, L"www"))
    return www_index;
  const bool numbered = FieldName.size() == 2 && FieldName[1] >= L'1' && FieldName[1] <= L'5';
  if (!numbered)
    return -1;
  const int number = FieldName[1] - L'1';
  if (fold(FieldName[0]) == L'u')
    return 6 + number;
  return fold(FieldName[0]) == L'k' ? 11 + number : -1;
}

// Folding by the code page: the byte whose character is the small letter of this byte's character.
StationLookup::StationLookup(const Uses& uses) : uses_(uses) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    folded_[byte] = static_cast<unsigned char>(byte);
    const std::string bytes(1, static_cast<char>(byte));
    const std::wstring text = uses_.codec.decode(bytes);
    if (text.size() != 1 || fold(text[0]) == text[0])
      continue;
    const std::wstring small(1, fold(text[0]));
    const std::string encoded = uses_.codec.encode(small);
    if (encoded.size() == 1 && uses_.codec.decode(encoded) == small)
      folded_[byte] = static_cast<unsigned char>(encoded[0]);
  }
}

bool StationLookup::is_record_of(std::string_view line, std::string_view wanted) const {
  if (line.size() < id_length)
    return false;
  for (std::size_t i = 0; i < id_length; ++i) {
    if (folded_[static_cast<unsigned char>(line[i])] != folded_[static_cast<unsigned char>(wanted[i])])
      return false;
  }
  return true;
}

// One pass over the bytes, in which the searches for the line ends are the system's fast ones and no line is copied.
std::string_view StationLookup::last_record(std::string_view wanted) const {
  std::string_view found;
  std::string_view rest = List3;
  while (!rest.empty()) {
    const std::size_t feed = rest.find('\n');
    std::string_view part = rest.substr(0, feed);
    rest = feed == std::string_view::npos ? std::string_view() : rest.substr(feed + 1);
    // A carriage return ends a line too, the pair with the line feed being one end.
    for (std::size_t end = part.find('\r'); end != std::string_view::npos; end = part.find('\r')) {
      if (is_record_of(part.substr(0, end), wanted))
        found = part.substr(0, end);
      part.remove_prefix(end + 1);
    }
    if (is_record_of(part, wanted))
      found = part;
  }
  return found;
}

std::wstring StationLookup::RadioInfo(const std::wstring& ID, const std::wstring& FieldName) {
  const int index = station_field_index(FieldName);
  if (index < 0 || ID.size() != id_length)
    return {};
  if (!uses_.files.read_into(uses_.machine.program_folder() + L"\\radios.tt", List3))
    return {};
  const std::string wanted = uses_.codec.encode(ID);
  if (wanted.size() != id_length || uses_.codec.decode(wanted) != ID)
    return {};
  return uses_.codec.decode(field_of(last_record(wanted), index));
}

} // namespace lumotune::core
