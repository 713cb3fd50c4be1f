// SPDX-License-Identifier: LGPL-2.1-or-later
// The least that a program with a window can be: what the start of Lumotune is measured against.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, PWSTR, int) {
  WNDCLASSW made{};
  made.lpfnWndProc = DefWindowProcW;
  made.hInstance = program;
  made.lpszClassName = L"BareWindow";
  RegisterClassW(&made);
  CreateWindowExW(0, made.lpszClassName, L"BareWindow", WS_POPUP | WS_VISIBLE, 100, 100, 420, 232, nullptr, nullptr,
                  program, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_CLOSE)
      break;
    DispatchMessageW(&message);
  }
  return 0;
}
