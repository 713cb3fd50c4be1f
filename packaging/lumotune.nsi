; SPDX-License-Identifier: LGPL-2.1-or-later
; The installer: per user, into the folder of the Orb client. tools/package compiles it with
;   VERSION, NUMBERS (four of them), OUT, ICON, KILOBYTES, and FILES: the folder of what packaging/setup.py makes.
; Exit codes: 0 installed; 1 the user gave up; 2 no folder of the client; 3 no folder to write to; 4 a file is in use or
; could not be replaced, and the old version is whole; 5 another installer runs.
Target amd64-unicode
!include "MUI2.nsh"
!include "LogicLib.nsh"

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumotune"
!define UNINSTALLER "lumotune-odinstalovat.exe"
; Beside the program, on the same volume: what is moved from there is moved whole.
!define NEW "lumotune-novy"
!define OLD "lumotune-stary"

Name "Lumotune"
OutFile "${OUT}"
BrandingText "Lumotune ${VERSION}"
RequestExecutionLevel user
ManifestSupportedOS Win10
ManifestDPIAware true
SetCompressor /SOLID lzma
SetDateSave off
SetOverwrite on
AllowSkipFiles off
CRCCheck on
AllowRootDirInstall false
ShowInstDetails nevershow
ShowUninstDetails nevershow

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${FILES}/side.bmp"
!define MUI_ABORTWARNING
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(FolderText)"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\lumotune.exe"
!define MUI_FINISHPAGE_RUN_TEXT "$(RunText)"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\prirucka.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "$(ManualText)"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
; The first one is for every system that speaks neither.
!insertmacro MUI_LANGUAGE "Czech"
!insertmacro MUI_LANGUAGE "English"
!include "texts.nsh"

VIProductVersion "${NUMBERS}"
VIFileVersion "${NUMBERS}"
!macro VersionTexts LANGUAGE DESCRIPTION
  VIAddVersionKey /LANG=${LANGUAGE} "ProductName" "Lumotune"
  VIAddVersionKey /LANG=${LANGUAGE} "ProductVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "FileDescription" "${DESCRIPTION}"
  VIAddVersionKey /LANG=${LANGUAGE} "LegalCopyright" "LGPL-2.1-or-later"
!macroend
!insertmacro VersionTexts ${LANG_CZECH} "Lumotune - instalace"
!insertmacro VersionTexts ${LANG_ENGLISH} "Lumotune setup"

Var Failed ; the file that could not be replaced; empty while all goes well
Var Found  ; the folder that was found; empty for none

!include "running.nsh"
!include "folder.nsh"
!include "replacing.nsh"

Function .onInit
  Call OneAtATime
  ${If} $INSTDIR == ""
    Call FindFolder
    StrCpy $INSTDIR $Found
  ${EndIf}
  ${If} ${Silent}
    ${If} $INSTDIR == ""
      SetErrorLevel 2
      Quit
    ${EndIf}
    Call CheckWritable
    ${If} $Failed != ""
      SetErrorLevel 3
      Quit
    ${EndIf}
  ${ElseIf} $INSTDIR == ""
    StrCpy $INSTDIR "$LOCALAPPDATA\Orb"
  ${EndIf}
FunctionEnd

Section
  AddSize ${KILOBYTES} ; the files are unpacked by a function, which NSIS does not count
  StrCpy $Failed ""
  CreateDirectory "$INSTDIR"
  Call RefuseLinks
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONSTOP "$(LinkText)" /SD IDOK
    SetErrorLevel 4
    Abort "$(WholeText)"
  ${EndIf}
  Call RemoveLeftovers
  Call Unpack
  Call EndRunning
  ${If} $Failed == ""
    Call ReplaceAll
  ${EndIf}
  Call RemoveLeftovers
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONSTOP "$(LockedText)" /SD IDOK
    SetErrorLevel 4
    Abort "$(WholeText)"
  ${EndIf}
  WriteRegStr HKCU "${KEY}" "DisplayName" "Lumotune"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\lumotune.exe"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD HKCU "${KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
  SetShellVarContext current
  SetOutPath "$INSTDIR" ; the folder that the entry starts the program in
  CreateShortcut "$SMPROGRAMS\Lumotune.lnk" "$INSTDIR\lumotune.exe" "" "$INSTDIR\lumotune.exe" 0
SectionEnd

; A full disk ends the section while it unpacks, before anything was replaced.
Function .onInstFailed
  Call RemoveLeftovers
FunctionEnd

Function un.onInit
  Call un.OneAtATime
FunctionEnd

; Only what the installer brought, name by name; folders only when they are empty then.
Section "Uninstall"
  StrCpy $Failed ""
  Call un.RefuseLinks
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONSTOP "$(LinkText)" /SD IDOK
    SetErrorLevel 4
    Abort
  ${EndIf}
  Call un.EndRunning
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONSTOP "$(LockedText)" /SD IDOK
    SetErrorLevel 4
    Abort
  ${EndIf}
  Call un.RemoveFiles
  SetOutPath "$TEMP" ; a folder that is somebody's current one cannot go
  RMDir "$INSTDIR"
  ; Another copy, installed later elsewhere, keeps its entries.
  ReadRegStr $0 HKCU "${KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    SetShellVarContext current
    Delete "$SMPROGRAMS\Lumotune.lnk"
    DeleteRegKey HKCU "${KEY}"
  ${EndIf}
SectionEnd
