; The installer: for the user who runs it, without elevation. ./package defines VERSION (1.2.3), STAGE (the folder with
; the files), FILES (a script with a macro for what is to be installed and one for what is to be removed), KILOBYTES
; and OUT.
Unicode true
Target amd64-unicode
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include MUI2.nsh
!include "${FILES}"

!define SETTINGS "Software\Ostrel Corp.\Tagrix"
!define UNINSTALLS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL "${UNINSTALLS}\Tagrix"

Name "Tagrix"
OutFile "${OUT}"
BrandingText "Tagrix ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Tagrix"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tagrix"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Tagrix ${VERSION} setup"
VIAddVersionKey CompanyName "Tagrix contributors"
VIAddVersionKey LegalCopyright "Tagrix contributors, MIT License"

!define MUI_ICON "${STAGE}/../tagrix.ico"
!define MUI_UNICON "${STAGE}/../tagrix.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${STAGE}/../welcome.bmp"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tagrix.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; The language of Windows, when it is one of these.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE French
!insertmacro MUI_LANGUAGE German
!insertmacro MUI_LANGUAGE Italian
!insertmacro MUI_LANGUAGE Spanish
LangString InUse ${LANG_ENGLISH} "Tagrix is running. Please close it, then press Retry."
LangString InUse ${LANG_FRENCH} "Tagrix est en cours d'exécution. Veuillez le fermer, puis appuyer sur Réessayer."
LangString InUse ${LANG_GERMAN} "Tagrix läuft noch. Bitte schließen Sie es, und klicken Sie dann auf „Wiederholen“."
LangString InUse ${LANG_ITALIAN} "Tagrix è in esecuzione. Chiuderlo, quindi premere Riprova."
LangString InUse ${LANG_SPANISH} "Tagrix se está ejecutando. Ciérrelo y pulse Reintentar."
LangString DropSettings ${LANG_ENGLISH} "Do you want to remove your settings, too (patterns, servers, language)?"
LangString DropSettings ${LANG_FRENCH} "Voulez-vous supprimer aussi vos réglages (modèles, serveurs, langue) ?"
LangString DropSettings ${LANG_GERMAN} "Möchten Sie auch Ihre Einstellungen entfernen (Muster, Server, Sprache)?"
LangString DropSettings ${LANG_ITALIAN} "Rimuovere anche le impostazioni (modelli, server, lingua)?"
LangString DropSettings ${LANG_SPANISH} "¿Desea quitar también la configuración (patrones, servidores, idioma)?"
LangString Language ${LANG_ENGLISH} "English"
LangString Language ${LANG_FRENCH} "French"
LangString Language ${LANG_GERMAN} "German"
LangString Language ${LANG_ITALIAN} "Italian"
LangString Language ${LANG_SPANISH} "Spanish"

; Waits until the program in $INSTDIR can be replaced: the one that has started an update takes a moment to close.
!macro WaitUntilClosed
  StrCpy $1 0
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\tagrix.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\tagrix.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    Sleep 250
    IntOp $1 $1 + 1
    ${If} $1 >= 20
      StrCpy $1 0
      ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDCANCEL`
        SetErrorLevel 2
        Quit
      ${EndIf}
    ${EndIf}
  ${Loop}
!macroend

Section
  !insertmacro WaitUntilClosed
  ; An earlier version takes with it what this one has no longer.
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  ${EndIf}
  !insertmacro InstallFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Tagrix.lnk" "$INSTDIR\tagrix.exe"
  CreateShortcut "$SENDTO\Tagrix.lnk" "$INSTDIR\tagrix.exe"  ; opens a folder as an album

  WriteRegStr HKCU "${UNINSTALL}" DisplayName "Tagrix"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\tagrix.exe"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "Tagrix contributors"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" EstimatedSize ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1

  ; A new user starts in the language of Windows.
  ReadRegStr $0 HKCU "${SETTINGS}" langue
  ${If} $0 == ""
    WriteRegStr HKCU "${SETTINGS}" langue "$(Language)"
  ${EndIf}
SectionEnd

Section Uninstall
  !insertmacro WaitUntilClosed
  !insertmacro RemoveFiles
  RMDir /r "$INSTDIR\upd"  ; what the updater has downloaded
  Delete "$INSTDIR\list.c2c"  ; what was burnt last
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir "$LOCALAPPDATA\Programs"  ; when nothing else is in it
  Delete "$SMPROGRAMS\Tagrix.lnk"
  Delete "$SENDTO\Tagrix.lnk"
  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegKey /ifempty HKCU "${UNINSTALLS}"
  ${If} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(DropSettings)" /SD IDNO IDYES`
    DeleteRegKey HKCU "${SETTINGS}"
    DeleteRegKey /ifempty HKCU "Software\Ostrel Corp."
  ${EndIf}
SectionEnd
