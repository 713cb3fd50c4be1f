; SPDX-License-Identifier: LGPL-2.1-or-later
; Where the program goes: where it is already, where the client runs or lies, or where the user says.

; Whether $R1 is a folder of a drive, without a share's or a device's name. $R0: 1 or 0. Looks at nothing on a disk, so that
; no computer is asked for a share that another program wrote into the registry.
Function IsOnDrive
  StrCpy $R0 0
  StrCpy $0 $R1 2 1
  ${If} $0 == ":\"
    StrCpy $R0 1
  ${EndIf}
FunctionEnd

; Takes $R1 as the folder if the file $R4 lies in it and the user can write there.
Function TryFolder
  ${If} $Found != ""
    Return
  ${EndIf}
  Call IsOnDrive
  ${If} $R0 = 1
  ${AndIf} ${FileExists} "$R1\$R4"
    StrCpy $INSTDIR $R1
    Call CheckWritable
    StrCpy $INSTDIR ""
    ${If} $Failed == ""
      StrCpy $Found $R1
    ${EndIf}
  ${EndIf}
FunctionEnd

; The folder of the client that runs: of the process that owns the window which the program talks to.
Function TryRunningClient
  FindWindow $0 "" "Orb - Lumotune"
  ${If} $0 P= 0
    Return
  ${EndIf}
  System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r2) i'
  System::Call 'kernel32::OpenProcess(i ${SYNCHRONIZE_AND_QUERY}, i 0, i r2) p .r3'
  ${If} $3 P= 0
    Return
  ${EndIf}
  StrCpy $R1 ""
  System::Call 'kernel32::QueryFullProcessImageNameW(p r3, i 0, w .R1, *i ${NSIS_MAX_STRLEN}) i'
  System::Call 'kernel32::CloseHandle(p r3)'
  StrCpy $0 $R1 8 -8
  ${If} $0 == "\orb.exe"
    StrCpy $R1 $R1 -8
    Call TryFolder
  ${EndIf}
FunctionEnd

; $Found: the folder, or nothing.
Function FindFolder
  StrCpy $Found ""
  ReadRegStr $R1 HKCU "${KEY}" "InstallLocation"
  StrCpy $R4 "lumotune.exe"
  Call TryFolder
  StrCpy $R4 "orb.exe"
  Call TryRunningClient
  !macro Try FOLDER
    StrCpy $R1 "${FOLDER}"
    Call TryFolder
  !macroend
  !insertmacro Try "$LOCALAPPDATA\Orb"
  !insertmacro Try "$LOCALAPPDATA\Programs\Orb"
  !insertmacro Try "$APPDATA\Orb"
  !insertmacro Try "$PROFILE\Orb"
  !insertmacro Try "$PROGRAMFILES64\Orb"
  !insertmacro Try "$PROGRAMFILES32\Orb"
FunctionEnd

; $Failed: empty, or the folder when the user cannot write there. A folder that it had to make goes again.
Function CheckWritable
  StrCpy $Failed "$INSTDIR"
  StrCpy $R1 "$INSTDIR"
  Call IsOnDrive
  ${If} $R0 = 0
    Return
  ${EndIf}
  StrCpy $2 0
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    CreateDirectory "$INSTDIR"
    StrCpy $2 1
  ${EndIf}
  ClearErrors
  GetTempFileName $0 "$INSTDIR"
  ${IfNot} ${Errors}
    Delete "$0"
    StrCpy $Failed ""
  ${EndIf}
  ${If} $2 = 1
    RMDir "$INSTDIR"
  ${EndIf}
FunctionEnd

Function LeaveFolder
  Call CheckWritable
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(NotWritableText)"
    Abort
  ${EndIf}
  ${IfNot} ${FileExists} "$INSTDIR\orb.exe"
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(NoClientText)" IDYES +2
    Abort
  ${EndIf}
FunctionEnd
