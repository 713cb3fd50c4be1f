// SPDX-License-Identifier: LGPL-2.1-or-later
// Any address, and any entry of any list: what FFmpeg is given stays what its origin may reach.
#include "platform/media/address.h"
#include "tests/fuzz/fuzzing.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace lumotune::media;
using lumotune::fuzz::demand;
using lumotune::platform::AddressOrigin;

constexpr const char* words[] = {"file:",   "file:///", "//localhost/", "\\\\",         "//", "%5c", "%2F",     "C:\\",
                                 "http://", "mms://",   "\\??\\",       "\\\\?\\UNC\\", "\"", "con", "crypto+", "..\\"};

bool is_network(const std::string& address) {
  return address.starts_with("http:") || address.starts_with("https:") || address.starts_with("mmsh:") ||
         address.starts_with("mmst:");
}

// Written anew here, by what Windows makes of a path, and not by the rule under test.
void demand_drive(const std::string& address) {
  demand(address.starts_with("file:"));
  std::string path = address.substr(5);
  std::replace(path.begin(), path.end(), '\\', '/');
  demand(path.find('?') == std::string::npos && path.find("//") != 0);
  const bool drive = path.size() > 2 && std::isalpha(static_cast<unsigned char>(path[0])) != 0 && path[1] == ':';
  demand(path[drive ? 2 : 0] == '/' && path.find(':', 2) == std::string::npos);
  for (std::size_t at = 0; at != std::string::npos; at = path.find('/', at + 1)) {
    std::string name = path.substr(at + 1, path.find('/', at + 1) - at - 1);
    name = name.substr(0, name.find('.'));
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    demand(name != "con" && name != "nul" && name != "com1");
  }
}

void try_address(const std::string& address) {
  for (const AddressOrigin origin : {AddressOrigin::station, AddressOrigin::message, AddressOrigin::listener}) {
    if (!may_open(address, origin))
      continue;
    const auto openable = openable_addresses(address);
    demand(!openable.empty() && openable.size() <= 2);
    for (const std::string& each : openable) {
      demand(each.find_first_of("\r\n") == std::string::npos && each.size() <= max_address_bytes + 5);
      if (origin == AddressOrigin::station)
        demand(is_network(each));
      else if (origin == AddressOrigin::message && !is_network(each))
        demand_drive(each);
    }
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = lumotune::fuzz::expanded(data, size, words);
  try_address(text);
  try_address("file:" + text);
  try_address("C:\\" + text);
  const std::string entry = text.substr(text.size() / 2);
  for (const std::string& list : {text.substr(0, text.size() / 2), std::string("http://h/l"), std::string("file:C:\\l"),
                                  std::string("\\\\nas\\music\\l")}) {
    const std::string whole = resolve_address(list, entry);
    const AddressOrigin origin = origin_of_entry(list, AddressOrigin::listener, whole);
    // The rest of its own share is all that a list adds.
    demand(origin != AddressOrigin::listener || address_kind(list) == AddressKind::local);
    demand(origin_of_entry(list, AddressOrigin::station, whole) == AddressOrigin::station);
    demand(origin_of_entry(list, AddressOrigin::message, whole) != AddressOrigin::listener);
  }
  return 0;
}
