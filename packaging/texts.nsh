; SPDX-License-Identifier: LGPL-2.1-or-later
; What the installer says, in Czech and English.
!macro Text NAME CZECH ENGLISH
  LangString ${NAME} ${LANG_CZECH} "${CZECH}"
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
!macroend

!insertmacro Text FolderText \
  "Lumotune patří do složky klienta Orb, tam, kde leží orb.exe. Zkontrolujte prosím, že je to tato složka.$\r$\n$\r$\n\
Vaše oblíbená rádia, nastavení a skiny zůstanou, jak jsou." \
  "Lumotune belongs in the folder of the Orb client, where orb.exe lies. Please check that this is the folder.$\r$\n$\r$\n\
Your favourites, settings and skins stay as they are."
!insertmacro Text NoClientText \
  "V této složce není klient Orb (orb.exe), a bez něj se Lumotune nespustí. Přesto je sem nainstalovat?" \
  "There is no Orb client (orb.exe) in this folder, and without it Lumotune does not start. Install it here all the same?"
!insertmacro Text NotWritableText \
  "Do této složky nemůžete zapisovat. Vyberte prosím jinou, na disku tohoto počítače." \
  "You cannot write to this folder. Please choose another one, on a drive of this computer."
!insertmacro Text RunningText \
  "Lumotune právě běží. Stisknete-li OK, bude požádáno, aby skončilo; své nastavení si uloží." \
  "Lumotune is running. If you press OK it is asked to end; it saves its settings."
!insertmacro Text LockedText \
  "Soubor $Failed používá jiný program. Zavřete ho a zkuste to znovu." \
  "Another program uses the file $Failed. Close it and try again."
!insertmacro Text LinkText \
  "Složka $Failed vede jinam. Taková se nemění; zkontrolujte ji prosím." \
  "The folder $Failed leads elsewhere. Such a one is not changed; please look at it."
!insertmacro Text WholeText \
  "Nic se nezměnilo." \
  "Nothing was changed."
!insertmacro Text BusyText \
  "Instalace nebo odinstalace Lumotune už běží." \
  "Lumotune is being installed or uninstalled already."
!insertmacro Text RunText "Spustit Lumotune" "Start Lumotune"
!insertmacro Text ManualText "Otevřít příručku" "Open the manual (in Czech)"
