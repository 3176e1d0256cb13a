; One file that puts the program into the user's own folder: no administrator is asked. Settings and log
; lie beside the program, where it starts, and stay when it is removed, unless the user wants them gone.
; Silent: /S, and /D=folder as the last argument.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
!include MUI2.nsh
!include LogicLib.nsh

!define NAME "Morlen Utilities"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\MorlenUtilities"
Name "${NAME}"
OutFile "${TARGET}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey CompanyName "Ostrel"
VIAddVersionKey FileDescription "${NAME} ${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "MIT licence"

!define MUI_ICON "morlen-utilities.ico"
!define MUI_UNICON "morlen-utilities.ico"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION runProgram
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_LICENSE "${FOLDER}\licences\Morlen Utilities.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; A program that runs cannot be replaced or removed.
!macro awaitEnd
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\MorlenEditor.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\MorlenEditor.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME} is running. Quit it, then press Retry." \
      /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Quit
  ${Loop}
!macroend

; What every version puts here. Nothing else is touched: the folder may hold the user's own files.
!macro removeProgram
  Delete "$INSTDIR\MorlenEditor.exe"
  Delete "$INSTDIR\*.dll"
  Delete "$INSTDIR\ZENTAM.OCX"
  Delete "$INSTDIR\Donate.htm"
  RMDir /r "$INSTDIR\Docs"
  RMDir /r "$INSTDIR\licences"
  RMDir /r "$INSTDIR\platforms"
  RMDir /r "$INSTDIR\styles"
!macroend

Function runProgram
  SetOutPath "$INSTDIR"
  Exec '"$INSTDIR\MorlenEditor.exe"'
FunctionEnd

Section "${NAME}"
  SectionIn RO
  !insertmacro awaitEnd
  !insertmacro removeProgram
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ; The working folder of a shortcut is the folder of SetOutPath.
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\MorlenEditor.exe"
  WriteRegStr HKCU "${UNINSTALL}" DisplayName "${NAME}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "Ostrel"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\MorlenEditor.exe"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" EstimatedSize ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
SectionEnd

Section /o "Icon on the desktop"
  SetOutPath "$INSTDIR"
  CreateShortcut "$DESKTOP\${NAME}.lnk" "$INSTDIR\MorlenEditor.exe"
SectionEnd

Section "un.${NAME}"
  SectionIn RO
  !insertmacro awaitEnd
  !insertmacro removeProgram
  Delete "$SMPROGRAMS\${NAME}.lnk"
  Delete "$DESKTOP\${NAME}.lnk"
  Delete "$INSTDIR\uninstall.exe"
  DeleteRegKey HKCU "${UNINSTALL}"
  RMDir "$INSTDIR" ; when nothing of the user's is in it
SectionEnd

Section /o "un.Settings and log"
  Delete "$INSTDIR\MorlenE.ini"
  Delete "$INSTDIR\TraceLog.txt"
  RMDir "$INSTDIR"
SectionEnd
