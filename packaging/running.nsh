; SPDX-License-Identifier: LGPL-2.1-or-later
; The copy that runs from the folder, and another installer. For the installer and the uninstaller.

!define WRITE_ACCESS 0x40000000
!define SHARE_ALL 7
!define OPEN_EXISTING 3
!define SYNCHRONIZE_AND_QUERY 0x101000
!define CLOSE_MESSAGE 0x10
!define LONGEST_END_MS 15000 ; the program ends within six seconds
!define ALREADY_EXISTS 183
!define SHARING_VIOLATION 32

!macro RunningFunctions UN
; The system removes the mark with the process.
Function ${UN}OneAtATime
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Local\Lumotune.Setup") p .r0 ?e'
  Pop $1
  ${If} $1 = ${ALREADY_EXISTS}
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(BusyText)" /SD IDOK
    SetErrorLevel 5
    Quit
  ${EndIf}
FunctionEnd

; Whether a process runs the program of the folder: such a file cannot be opened for writing. $R0: 1 or 0.
Function ${UN}InUse
  StrCpy $R0 0
  StrCpy $R1 "$INSTDIR\lumotune.exe"
  System::Call 'kernel32::CreateFileW(w R1, i ${WRITE_ACCESS}, i ${SHARE_ALL}, p 0, i ${OPEN_EXISTING}, i 0, p 0) p .r0 ?e'
  Pop $1
  ${If} $0 P<> -1
    System::Call 'kernel32::CloseHandle(p r0)'
  ${ElseIf} $1 = ${SHARING_VIOLATION}
    StrCpy $R0 1
  ${EndIf}
FunctionEnd

; The one name that a file has, whatever links and short names lead to it. $R1: path, then that name; empty when it cannot be had.
Function ${UN}FinalPath
  System::Call 'kernel32::CreateFileW(w R1, i 0, i ${SHARE_ALL}, p 0, i ${OPEN_EXISTING}, i 0, p 0) p .r0'
  StrCpy $R1 ""
  ${If} $0 P<> -1
    System::Call 'kernel32::GetFinalPathNameByHandleW(p r0, w .R1, i ${NSIS_MAX_STRLEN}, i 0) i .r1'
    System::Call 'kernel32::CloseHandle(p r0)'
    ${If} $1 = 0
    ${OrIf} $1 >= ${NSIS_MAX_STRLEN}
      StrCpy $R1 ""
    ${EndIf}
  ${EndIf}
FunctionEnd

; Asks the process of window $R3 to end if it runs the program $R2 (a final path), and waits for its end.
Function ${UN}EndWindow
  System::Call 'user32::GetWindowThreadProcessId(p R3, *i .r2) i'
  System::Call 'kernel32::OpenProcess(i ${SYNCHRONIZE_AND_QUERY}, i 0, i r2) p .r3'
  ${If} $3 P= 0
    Return
  ${EndIf}
  StrCpy $R1 ""
  System::Call 'kernel32::QueryFullProcessImageNameW(p r3, i 0, w .R1, *i ${NSIS_MAX_STRLEN}) i'
  Call ${UN}FinalPath
  ${If} $R1 != ""
  ${AndIf} $R1 == $R2
    System::Call 'user32::PostMessageW(p R3, i ${CLOSE_MESSAGE}, p 0, p 0) i'
    System::Call 'kernel32::WaitForSingleObject(p r3, i ${LONGEST_END_MS}) i'
  ${EndIf}
  System::Call 'kernel32::CloseHandle(p r3)'
FunctionEnd

; $Failed: empty when no copy runs from the folder afterwards, or the program's path.
Function ${UN}EndRunning
  Call ${UN}InUse
  ${If} $R0 = 0
    Return
  ${EndIf}
  StrCpy $Failed "$INSTDIR\lumotune.exe"
  MessageBox MB_OKCANCEL|MB_ICONINFORMATION "$(RunningText)" /SD IDOK IDOK +2
  Return
  StrCpy $R1 "$INSTDIR\lumotune.exe"
  Call ${UN}FinalPath
  StrCpy $R2 $R1
  StrCpy $R3 0
  ${Do}
    FindWindow $R3 "LumotuneWindow" "Lumotune" 0 $R3
    ${If} $R3 P= 0
      ${ExitDo}
    ${EndIf}
    Call ${UN}EndWindow
    Call ${UN}InUse
  ${LoopUntil} $R0 = 0
  Call ${UN}InUse
  ${If} $R0 = 0
    StrCpy $Failed ""
  ${EndIf}
FunctionEnd
!macroend
!insertmacro RunningFunctions ""
!insertmacro RunningFunctions "un."
