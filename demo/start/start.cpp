// SPDX-License-Identifier: LGPL-2.1-or-later
// What a double click starts the demonstration with: the small radio, then Lumotune in its folder; the radio ends after
// it.
#include "demo/start/sandbox.h"

namespace {

int complain(const wchar_t* text) {
  MessageBoxW(nullptr, text, L"Lumotune – ukázka", MB_OK | MB_ICONINFORMATION);
  return 1;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR words, int) {
  const std::wstring folder = sandbox::own_folder();
  if (sandbox::lumotune_runs())
    return complain(L"Lumotune už běží. Ukončete je a ukázku spusťte znovu.");
  const sandbox::Radio radio(folder + L"\\radio\\demo_radio.exe");
  if (radio.port() == 0)
    return complain(L"Ukázkové rádio se nepodařilo spustit. Rozbalte prosím celý archiv do jedné složky.");
  if (!sandbox::lay_address(folder + L"\\lumotune", radio.port()))
    return complain(L"Do složky s ukázkou nelze zapisovat. Rozbalte ji prosím třeba na plochu.");
  const sandbox::Handle program = sandbox::start(folder + L"\\lumotune\\lumotune.exe", words);
  if (program == nullptr)
    return complain(L"Lumotune se nepodařilo spustit. Rozbalte prosím celý archiv do jedné složky.");
  WaitForSingleObject(program.get(), INFINITE);
  return 0;
}
