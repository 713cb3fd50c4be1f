; SPDX-License-Identifier: LGPL-2.1-or-later
; Unpacks everything beside the old version, then moves file after file; when one cannot be moved, all go back. What goes where
; stands in files.nsh: "EachShipped PATH SOURCE", "EachKept PATH SOURCE" for a file that a listener or the client may have an own one of,
; "EachFolder PATH" from the outermost inwards and "EachFolderBack PATH" the other way round.

!define REPLACE_AND_WRITE 9 ; MOVEFILE_REPLACE_EXISTING, MOVEFILE_WRITE_THROUGH
!define REPARSE_POINT 0x400

!macro Nothing1 PATH
!macroend
!macro Nothing2 PATH SOURCE
!macroend
; Goes through the list with these macros for a file, for one that is kept, for folders inwards and outwards.
!macro ForEach FILE KEPT FOLDER BACK
  !define EachShipped "!insertmacro ${FILE}"
  !define EachKept "!insertmacro ${KEPT}"
  !define EachFolder "!insertmacro ${FOLDER}"
  !define EachFolderBack "!insertmacro ${BACK}"
  !include "${FILES}/files.nsh"
  !undef EachShipped
  !undef EachKept
  !undef EachFolder
  !undef EachFolderBack
!macroend
!macro CallFor FUNCTION PATH
  StrCpy $R1 "${PATH}"
  Call ${FUNCTION}
!macroend

; A folder of ours that leads elsewhere is neither written to nor emptied. $Failed: the last such one.
!macro RefuseLink PATH
  System::Call 'kernel32::GetFileAttributesW(w "${PATH}") i .r0'
  ${If} $0 <> -1
    IntOp $0 $0 & ${REPARSE_POINT}
    ${If} $0 <> 0
      StrCpy $Failed "${PATH}"
    ${EndIf}
  ${EndIf}
!macroend
!macro LinkFunctions UN
Function ${UN}RefuseLink
  !insertmacro RefuseLink "$INSTDIR\$R1"
  !insertmacro RefuseLink "$INSTDIR\${NEW}\$R1"
  !insertmacro RefuseLink "$INSTDIR\${OLD}\$R1"
FunctionEnd
!macroend
!insertmacro LinkFunctions ""
!insertmacro LinkFunctions "un."
!macro LinkFolder PATH
  !insertmacro CallFor RefuseLink "${PATH}"
!macroend
!macro un.LinkFolder PATH
  !insertmacro CallFor un.RefuseLink "${PATH}"
!macroend
!macro LinksFunctions UN
Function ${UN}RefuseLinks
  !insertmacro RefuseLink "$INSTDIR\${NEW}"
  !insertmacro RefuseLink "$INSTDIR\${OLD}"
  !insertmacro ForEach Nothing2 Nothing2 ${UN}LinkFolder Nothing1
FunctionEnd
!macroend
!insertmacro LinksFunctions ""
!insertmacro LinksFunctions "un."

; All of it beside the old version. A failure ends the section, or is seen when the file is moved.
!macro UnpackFolder PATH
  CreateDirectory "$INSTDIR\${NEW}\${PATH}"
!macroend
!macro UnpackFile PATH SOURCE
  File "/oname=$INSTDIR\${NEW}\${PATH}" "${SOURCE}"
!macroend
Function Unpack
  CreateDirectory "$INSTDIR\${NEW}"
  !insertmacro ForEach UnpackFile UnpackFile UnpackFolder Nothing1
  WriteUninstaller "$INSTDIR\${NEW}\${UNINSTALLER}"
FunctionEnd

; Moves $R1 into its place, the old one aside. Does nothing once one failed.
Function Replace
  ${If} $Failed != ""
    Return
  ${EndIf}
  StrCpy $Failed "$INSTDIR\$R1"
  ${If} ${FileExists} "$INSTDIR\$R1"
    System::Call 'kernel32::MoveFileExW(w "$INSTDIR\$R1", w "$INSTDIR\${OLD}\$R1", i ${REPLACE_AND_WRITE}) i .r0'
    ${If} $0 = 0
      Return
    ${EndIf}
  ${EndIf}
  System::Call 'kernel32::MoveFileExW(w "$INSTDIR\${NEW}\$R1", w "$INSTDIR\$R1", i ${REPLACE_AND_WRITE}) i .r0'
  ${If} $0 <> 0
    StrCpy $Failed ""
  ${EndIf}
FunctionEnd

; Not over a file that no installation brought. That one did is noted in the registry.
Function ReplaceKept
  ${If} ${FileExists} "$INSTDIR\$R1"
    ReadRegStr $0 HKCU "${KEY}" "Own $R1"
    ${If} $0 != $INSTDIR
      Return
    ${EndIf}
  ${EndIf}
  Call Replace
  ${If} $Failed == ""
    WriteRegStr HKCU "${KEY}" "Own $R1" "$INSTDIR"
  ${EndIf}
FunctionEnd

; What was moved goes back: an old file over the new one, and a new one that replaced nothing goes away.
Function PutBack
  ${If} ${FileExists} "$INSTDIR\${OLD}\$R1"
    System::Call 'kernel32::MoveFileExW(w "$INSTDIR\${OLD}\$R1", w "$INSTDIR\$R1", i ${REPLACE_AND_WRITE}) i'
  ${ElseIfNot} ${FileExists} "$INSTDIR\${NEW}\$R1"
    Delete "$INSTDIR\$R1"
  ${EndIf}
FunctionEnd

!macro ReplaceFolder PATH
  CreateDirectory "$INSTDIR\${PATH}"
  CreateDirectory "$INSTDIR\${OLD}\${PATH}"
!macroend
!macro ReplaceFile PATH SOURCE
  !insertmacro CallFor Replace "${PATH}"
!macroend
!macro ReplaceKeptFile PATH SOURCE
  !insertmacro CallFor ReplaceKept "${PATH}"
!macroend
!macro PutBackFile PATH SOURCE
  !insertmacro CallFor PutBack "${PATH}"
!macroend
!macro PutBackFolder PATH
  RMDir "$INSTDIR\${PATH}"
!macroend
Function ReplaceAll
  CreateDirectory "$INSTDIR\${OLD}"
  !insertmacro ForEach ReplaceFile ReplaceKeptFile ReplaceFolder Nothing1
  !insertmacro CallFor Replace "${UNINSTALLER}"
  ${If} $Failed != ""
    StrCpy $2 $Failed
    !insertmacro ForEach PutBackFile PutBackFile Nothing1 PutBackFolder
    !insertmacro CallFor PutBack "${UNINSTALLER}"
    StrCpy $Failed $2
  ${EndIf}
FunctionEnd

; What lies in the two folders beside the program, name by name.
!macro LeftoverFile PATH SOURCE
  Delete "$INSTDIR\${NEW}\${PATH}"
  Delete "$INSTDIR\${OLD}\${PATH}"
!macroend
!macro LeftoverFolder PATH
  RMDir "$INSTDIR\${NEW}\${PATH}"
  RMDir "$INSTDIR\${OLD}\${PATH}"
!macroend
Function RemoveLeftovers
  SetOutPath "$TEMP"
  !insertmacro ForEach LeftoverFile LeftoverFile Nothing1 LeftoverFolder
  !insertmacro LeftoverFile "${UNINSTALLER}" ""
  RMDir "$INSTDIR\${NEW}"
  RMDir "$INSTDIR\${OLD}"
FunctionEnd

!macro RemoveFile PATH SOURCE
  Delete "$INSTDIR\${PATH}"
!macroend
!macro RemoveKeptFile PATH SOURCE
  ReadRegStr $0 HKCU "${KEY}" "Own ${PATH}"
  ${If} $0 == $INSTDIR
    Delete "$INSTDIR\${PATH}"
  ${EndIf}
!macroend
!macro RemoveFolder PATH
  RMDir "$INSTDIR\${PATH}"
!macroend
Function un.RemoveFiles
  !insertmacro ForEach RemoveFile RemoveKeptFile Nothing1 RemoveFolder
  Delete "$INSTDIR\${UNINSTALLER}"
FunctionEnd
