// SPDX-License-Identifier: LGPL-2.1-or-later
// Any station file: lines, fields, rows and look-ups agree with the plain way of finding them.
#include "base/options_lines.h"
#include "base/record_bytes.h"
#include "base/text.h"
#include "directory/station_rows.h"
#include "platform/memory/files.h"
#include "platform/memory/messages.h"
#include "stations/station_table.h"
#include "tests/fuzz/fuzzing.h"

#include <cstddef>
#include <cstdint>
#include <set>

using namespace lumotune;
using fuzz::demand;

namespace {

const platform::memory::Codec codec;
const platform::memory::Machine machine;

// What the reader looks for.
constexpr const char* const words[] = {"/@/", "\r\n", "\n",     "\r",     "tip",      "tip x", "RADIO1", "radio1",
                                       "@/",  "/@",   "100000", "100001", "100001ab", "\x8e",  "\x9e",   "x"};

std::wstring folded(std::wstring text) {
  for (wchar_t& character : text)
    character = base::fold(character);
  return text;
}

std::wstring plain_field(const std::wstring& line, std::size_t number) {
  const auto fields = base::split_record(line, line.size() + 1);
  return number < fields.size() ? fields[number] : std::wstring();
}

void check_record(const std::string& line) {
  const std::wstring text = codec.decode(line);
  const stations::StationRecord record(line, codec);
  for (std::size_t number = 0; number < 17; ++number) {
    demand(codec.decode(base::record_field(line, number)) == plain_field(text, number));
    demand(record.text(static_cast<stations::StationField>(number)) == plain_field(text, number));
  }
}

bool plainly_shown(const std::wstring& line, const std::wstring& category) {
  const std::wstring code = folded(plain_field(line, 5));
  if (category.empty() || category == L"100000")
    return true;
  if (category[0] == L'x')
    return std::wstring(base::mid(code, 7)) == folded(category.substr(1));
  return code.substr(0, category.size()) == folded(category);
}

void check_rows(const stations::StationTable& table, const base::TextLines& lines, std::wstring category) {
  std::set<std::wstring> ids;
  std::vector<std::wstring> expected;
  for (const std::string& bytes : lines) {
    const std::wstring line = codec.decode(bytes);
    if (!line.empty() && plainly_shown(line, category) && ids.insert(folded(plain_field(line, 0))).second)
      expected.push_back(L"orb" + plain_field(line, 0));
  }
  static directory::StationRows rows(codec); // used again and again, as the window does
  rows.ZobrazKategoriiRadii(table.lines(), category);
  demand(rows.count() == expected.size());
  for (std::size_t row = 1; row <= rows.count(); ++row) {
    const std::wstring id = rows.key(row).substr(3);
    demand(rows.key(row) == expected[row - 1] && rows.find(id) == (id.empty() ? 0 : row));
    (void)rows.text(row, 0);
    (void)rows.text(row, 1);
    (void)rows.bold(row);
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::expanded(data, size, words);
  static platform::memory::Files files;
  static const base::ProgramFolder folder(files, codec, machine);
  static stations::StationFiles station_files(folder);
  static stations::StationTable table({station_files, codec});
  demand(files.replace(machine.program_folder() + L"\\radios.tt", bytes));
  files.forget_changes();
  table.load();
  const base::TextLines lines = base::split_text_lines(bytes);
  demand(table.lines()->count() == lines.size());
  std::wstring last_name;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    demand(table.lines()->line(i) == lines[i]);
    check_record(lines[i]);
    if (folded(codec.decode(lines[i]).substr(0, 6)) == L"radio1")
      last_name = plain_field(codec.decode(lines[i]), 1);
  }
  demand(table.RadioInfo(L"Radio1", L"name") == last_name);
  for (const wchar_t* category : {L"", L"100000", L"100001", L"xab"})
    check_rows(table, lines, category);
  return 0;
}
