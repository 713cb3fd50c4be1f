// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/common/program_file.h"

#include <algorithm>

namespace lumotune::platform {
namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr std::wstring_view separators = L"\\/";

bool is_exe(std::wstring_view ending) {
  constexpr std::wstring_view exe = L"exe";
  return std::equal(ending.begin(), ending.end(), exe.begin(), exe.end(),
                    [](wchar_t given, wchar_t wanted) { return given == wanted || given - L'A' + L'a' == wanted; });
}

// The name with its ending; empty where it is not that of a program.
std::wstring program_name(std::wstring_view name) {
  if (name.empty() || name.find_first_of(L"\"*/:<>?\\|") != npos || name.ends_with(L' '))
    return {};
  const std::size_t dot = name.rfind(L'.');
  if (dot == npos)
    return std::wstring(name) + L".exe";
  return dot > 0 && is_exe(name.substr(dot + 1)) ? std::wstring(name) : std::wstring();
}

bool is_whole(std::wstring_view path) {
  const bool drive = path.size() > 2 && path[1] == L':' && separators.find(path[2]) != npos;
  return drive || path.starts_with(L"\\\\");
}

ProgramFile whole_path(std::wstring_view path) {
  if (!is_whole(path))
    return {};
  const std::size_t begin = path.find_last_of(separators) + 1;
  const std::wstring name = program_name(path.substr(begin));
  return name.empty() ? ProgramFile() : ProgramFile{std::wstring(path.substr(0, begin)) + name, true};
}

} // namespace

ProgramFile program_file(std::wstring_view command_line, std::wstring_view application) {
  const std::wstring_view decides = application.empty() ? command_line : application;
  if (std::any_of(decides.begin(), decides.end(), [](wchar_t each) { return each < L' ' && each != L'\t'; }))
    return {};
  if (!application.empty())
    return whole_path(application);
  if (!command_line.starts_with(L'"'))
    return {program_name(command_line.substr(0, command_line.find_first_of(L" \t"))), false};
  const std::size_t end = command_line.find(L'"', 1);
  if (end == npos)
    return {};
  const std::wstring_view word = command_line.substr(1, end - 1);
  return word.find_first_of(separators) == npos ? ProgramFile{program_name(word), false} : whole_path(word);
}

} // namespace lumotune::platform
