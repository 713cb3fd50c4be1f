// SPDX-License-Identifier: LGPL-2.1-or-later
// The self-test for a real Windows: says what it will do, runs the parts in "programy" and writes one report,
// zprava.txt.
//   zkouska [ano]   with the word, without asking first
// Everything that the parts write lies in the folder "docasne" beside it, which is removed at the end.
#include "demo/start/sandbox.h"
#include "tests/selftest/part.h"
#include "tests/selftest/report.h"
#include "tests/selftest/system_facts.h"
#include "version.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace lumotune::selftest;
namespace fs = std::filesystem;

struct PartToRun {
  const char* name;
  const wchar_t* program;
};
constexpr PartToRun to_run[] = {
    {"smlouva", L"contract_win32.exe"}, // what the program asks of Windows
    {"zvuk", L"zvuk.exe"},
    {"pád", L"pad.exe"},
    {"prohlídka", L"prohlidka.exe"},
};

constexpr const char* introduction =
    "Zkouška programu Lumotune na tomto počítači\n\n"
    "Potrvá několik minut. Otevírá a zavírá okna a nabídky, hýbe myší, mačká klávesy, krátce hraje a přepíše\n"
    "schránku. Některé její programy schválně spadnou. Soubory zapisuje jen do této složky, do internetu nic "
    "neposílá.\n"
    "Výsledek bude v souboru zprava.txt; není v něm vaše jméno ani názvy složek a nikam se sám neposílá.\n\n"
    "Zavřete prosím Lumotune, uložte si rozdělanou práci a během zkoušky na nic neklikejte.\n"
    "Enter zkoušku spustí, zavření tohoto okna ji kdykoli ukončí.\n";

void say(const std::string& text) {
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

bool write_report(const fs::path& folder, const std::vector<std::string>& system, const std::vector<Part>& parts) {
  const fs::path path = folder / L"zprava.txt";
  const fs::path made = folder / L"zprava.txt.new";
  {
    std::ofstream out(made, std::ios::binary | std::ios::trunc);
    out << report_text(LUMOTUNE_VERSION, system, parts);
    if (!out.good())
      return false;
  }
  return MoveFileExW(made.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

// The parts take the folder for what they write, the radio and the program folder from here.
void prepare(const fs::path& folder, const fs::path& scratch, std::uint16_t port) {
  fs::copy(folder / L"lumotune", scratch / L"lumotune", fs::copy_options::recursive);
  SetEnvironmentVariableW(L"TEMP", scratch.c_str());
  SetEnvironmentVariableW(L"TMP", scratch.c_str());
  SetEnvironmentVariableW(L"LUMOTUNE_DEMO_QUIET", L"1");
  SetEnvironmentVariableW(L"LUMOTUNE_SELFTEST_FOLDER", (scratch / L"lumotune").c_str());
  SetEnvironmentVariableW(L"LUMOTUNE_SELFTEST_RADIO", (L"http://127.0.0.1:" + std::to_wstring(port)).c_str());
}

int run_all(const fs::path& folder, const fs::path& scratch) {
  const sandbox::Radio radio(folder / L"radio" / L"demo_radio.exe");
  if (radio.port() == 0) {
    say("Rádio pro zkoušku se nepodařilo spustit. Rozbalte prosím celý archiv do jedné složky.\n");
    return 1;
  }
  prepare(folder, scratch, radio.port());
  const std::vector<std::string> system = system_lines();
  std::vector<Part> parts;
  for (const PartToRun& part : to_run)
    parts.push_back({part.name, {}, false});
  if (!sandbox::lay_address(scratch / L"lumotune", radio.port()) || !write_report(folder, system, parts)) {
    say("Do této složky nelze zapisovat. Rozbalte ji prosím třeba na plochu.\n");
    return 1;
  }
  for (std::size_t index = 0; index < parts.size(); ++index) {
    Part& part = parts[index];
    say("část " + part.name + "\n");
    part.result = run_part(folder / L"programy" / to_run[index].program, {}, [](const Result& result) {
      say("\r  prošlo " + std::to_string(result.passed) + ", neprošlo " + std::to_string(result.failed.size()) + "   ");
    });
    part.done = true;
    say("\n");
    if (!write_report(folder, system, parts)) // also if the next part ends this program
      say("Zprávu se nepodařilo zapsat.\n");
  }
  say(all_well(parts) ? "Všechno je v pořádku. Zpráva je v souboru zprava.txt.\n"
                      : "Něco neprošlo; co, stojí v souboru zprava.txt.\n");
  return all_well(parts) ? 0 : 2;
}

} // namespace

int wmain(int count, wchar_t** words) {
  SetConsoleOutputCP(CP_UTF8);
  say(introduction);
  if (count < 2 || std::wstring(words[1]) != L"ano")
    (void)std::getchar();
  if (sandbox::lumotune_runs()) {
    say("Lumotune běží. Ukončete je prosím a zkoušku spusťte znovu.\n");
    return 1;
  }
  const fs::path folder = sandbox::own_folder();
  const fs::path scratch = folder / L"docasne";
  std::error_code ignored;
  int result = 1;
  try {
    fs::remove_all(scratch, ignored);
    fs::create_directory(scratch);
    result = run_all(folder, scratch);
  } catch (const std::exception&) {
    say("Zkoušku nelze provést: soubory v této složce nejsou celé, nebo do ní nelze zapisovat.\n");
  }
  fs::remove_all(scratch, ignored);
  return result;
}
