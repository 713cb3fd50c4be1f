// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/selftest/desk.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace lumotune::selftest {
namespace {

constexpr DWORD longest_ms = 30000;
constexpr DWORD step_ms = 100;

std::vector<std::string> parts(const std::string& text, char separator) {
  std::vector<std::string> found;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(separator, at), text.size());
    found.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return found;
}

// The output of a program that is run to its end.
std::string output_of(std::wstring line) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE input = nullptr;
  HANDLE output = nullptr;
  if (CreatePipe(&input, &output, &inherited, 0) == 0)
    return {};
  const sandbox::Handle ours(input);
  SetHandleInformation(input, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESTDHANDLES;
  how.hStdOutput = output;
  PROCESS_INFORMATION made{};
  const BOOL started =
      CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &how, &made);
  CloseHandle(output);
  if (started == 0)
    return {};
  CloseHandle(made.hThread);
  const sandbox::Handle process(made.hProcess);
  std::string text;
  std::array<char, 4096> bytes{};
  DWORD count = 0;
  while (ReadFile(input, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0 && count > 0)
    text.append(bytes.data(), count);
  return text;
}

struct Item {
  int depth;
  std::string kind; // "s" a separator, "h" highlighted
  std::string caption;
};

std::vector<Item> reachable(int depth) {
  std::vector<Item> items;
  for (const auto& row : probe(L"menuitems")) {
    if (row.size() == 5 && std::atoi(row[0].c_str()) == depth && row[1].find('s') == std::string::npos)
      items.push_back({depth, row[1], row[4]});
  }
  return items;
}

// How many steps down the item of that caption lies from the highlighted one; nothing without it.
std::optional<std::ptrdiff_t> steps_to(int depth, const std::string& caption) {
  const std::vector<Item> items = reachable(depth);
  const auto wanted =
      std::find_if(items.begin(), items.end(), [&](const Item& item) { return item.caption == caption; });
  if (wanted == items.end())
    return std::nullopt;
  const auto now = std::find_if(items.begin(), items.end(),
                                [](const Item& item) { return item.kind.find('h') != std::string::npos; });
  return (wanted - items.begin()) - (now == items.end() ? -1 : now - items.begin());
}

bool highlight(int depth, const std::string& caption) {
  constexpr int tries = 60;
  for (int count = 0; count < tries; ++count) {
    const auto left = steps_to(depth, caption);
    if (left == 0)
      return true;
    if (left)
      press(*left > 0 ? VK_DOWN : VK_UP);
    Sleep(step_ms);
  }
  return false;
}

} // namespace

bool until(const std::function<bool()>& fact) {
  const DWORD begun = GetTickCount();
  while (!fact()) {
    if (GetTickCount() - begun > longest_ms)
      return false;
    Sleep(step_ms);
  }
  return true;
}

std::vector<std::vector<std::string>> probe(const std::wstring& words) {
  std::string text = output_of(L"\"" + sandbox::own_folder() + L"\\probe.exe\" " + words);
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : parts(text, '\n')) {
    if (!line.empty())
      rows.push_back(parts(line, '\t'));
  }
  return rows;
}

std::optional<Control> control(const std::string& name, const std::wstring& window) {
  for (const auto& row : probe(L"controls " + window)) {
    if (row.size() == 11 && row[0] == name)
      return Control{row[9],
                     row[2] == "1",
                     std::atoi(row[5].c_str()),
                     std::atoi(row[6].c_str()),
                     std::atoi(row[7].c_str()),
                     std::atoi(row[8].c_str())};
  }
  return std::nullopt;
}

std::string text(const std::string& name, const std::wstring& window) {
  const auto found = control(name, window);
  return found ? found->text : std::string();
}

void click(int x, int y, int times) {
  SetCursorPos(x, y);
  (void)until([&] {
    POINT now{};
    return GetCursorPos(&now) != 0 && now.x == x && now.y == y;
  });
  for (int count = 0; count < times; ++count) {
    std::array<INPUT, 2> input{};
    for (INPUT& each : input)
      each.type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT));
  }
}

bool click(const std::string& name, const std::wstring& window) {
  const auto found = control(name, window);
  if (!found || !found->visible)
    return false;
  click(found->left + found->width / 2, found->top + found->height / 2);
  return true;
}

void press(WORD key) {
  std::array<INPUT, 2> input{};
  for (INPUT& each : input) {
    each.type = INPUT_KEYBOARD;
    each.ki.wVk = key;
  }
  input[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT));
}

bool choose(const std::vector<std::string>& captions) {
  for (std::size_t depth = 0; depth < captions.size(); ++depth) {
    const bool last = depth + 1 == captions.size();
    if (!until([&] { return probe(L"menus").size() == depth + 1; }) ||
        !highlight(static_cast<int>(depth), captions[depth]))
      return false;
    press(last ? VK_RETURN : VK_RIGHT);
  }
  return until([] { return probe(L"menus").empty(); });
}

} // namespace lumotune::selftest
