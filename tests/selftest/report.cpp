// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/selftest/report.h"

#include <algorithm>

namespace lumotune::selftest {
namespace {

constexpr std::size_t longest_name = 120;

std::string name_in(std::string_view rest) {
  std::string name;
  for (const char c : rest) {
    const bool kept = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
                      c == '_' || c == '/' || c == '-';
    if (!kept || name.size() == longest_name)
      break;
    name += c;
  }
  return name;
}

void end_test(Result& result, const std::string& name) {
  if (result.running == name)
    result.running.clear();
}

std::string result_line(const Part& part) {
  const Result& result = part.result;
  if (!part.done)
    return "nedošlo na ni";
  return "prošlo " + std::to_string(result.passed) + ", neprošlo " + std::to_string(result.failed.size()) +
         ", vynecháno " + std::to_string(result.skipped) + ", " + std::to_string(result.seconds) + " s";
}

bool is_well(const Part& part) {
  return part.done && part.result.whole && part.result.failed.empty() && part.result.passed > 0 &&
         part.result.exit_code == 0;
}

} // namespace

void take_line(Result& result, std::string_view line) {
  constexpr std::size_t mark = 13; // "[ RUN      ] "
  if (line.size() <= mark || line[0] != '[')
    return;
  const std::string name = name_in(line.substr(mark));
  if (name.find('.') == std::string::npos)
    return;
  if (line.starts_with("[ RUN      ] ")) {
    result.running = name;
  } else if (line.starts_with("[       OK ] ") && result.running == name) {
    ++result.passed;
    end_test(result, name);
  } else if (line.starts_with("[  SKIPPED ] ") && result.running == name) {
    ++result.skipped;
    end_test(result, name);
  } else if (line.starts_with("[  FAILED  ] ") && result.running == name) {
    result.failed.push_back(name); // the list at the end names them once more
    end_test(result, name);
  }
}

bool all_well(const std::vector<Part>& parts) {
  return std::all_of(parts.begin(), parts.end(), is_well);
}

std::string report_text(const std::string& version, const std::vector<std::string>& system,
                        const std::vector<Part>& parts) {
  std::string text = "\xEF\xBB\xBF"
                     "Lumotune – zpráva o zkoušce, tvar 1\r\nverze " +
                     version + "\r\n";
  for (const std::string& line : system)
    text += line + "\r\n";
  int passed = 0;
  std::size_t failed = 0;
  for (const Part& part : parts) {
    const Result& result = part.result;
    text += "\r\nčást " + part.name + ": " + result_line(part) + "\r\n";
    for (const std::string& name : result.failed)
      text += "  neprošlo " + name + "\r\n";
    if (part.done && !result.whole)
      text += "  nedoběhla" + (result.running.empty() ? "" : ", skončila v " + result.running) + ", kód " +
              std::to_string(result.exit_code) + "\r\n";
    passed += result.passed;
    failed += result.failed.size();
  }
  text += "\r\ncelkem: prošlo " + std::to_string(passed) + ", neprošlo " + std::to_string(failed) +
          "\r\nvýsledek: " + (all_well(parts) ? "v pořádku" : "něco neprošlo") + "\r\n";
  return text;
}

} // namespace lumotune::selftest
