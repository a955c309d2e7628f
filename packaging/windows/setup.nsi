; The setup of Kelvane Diamond Table: for one person, without an administrator. It is given VERSION,
; TREE (the folder of all that ships), ICON and OUT. What the person has stands in a folder of his own
; that neither the setup nor its removal touches.
Target amd64-unicode  ; it runs where the board does
SetCompressor /SOLID lzma
SetCompressorDictSize 64

!include MUI2.nsh
!include FileFunc.nsh

!define PRODUCT "Kelvane Diamond Table"
!define BOARD "kelvane-diamond-table.exe"
!define REMOVAL "Software\Microsoft\Windows\CurrentVersion\Uninstall\KelvaneDiamondTable"

Name "${PRODUCT}"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${PRODUCT}"
InstallDirRegKey HKCU "${REMOVAL}" "InstallLocation"
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Setup of ${PRODUCT}"
VIAddVersionKey "LegalCopyright" "The Kelvane Diamond Table authors"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\${BOARD}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs cannot be replaced: Windows gives its file to nobody for writing.
!macro RequireClosed
  closed:
  ClearErrors
  IfFileExists "$INSTDIR\${BOARD}" 0 free
  FileOpen $0 "$INSTDIR\${BOARD}" a
  IfErrors 0 writable
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "The board is open. Finish your game or leave it, close the board, and try again." /SD IDCANCEL IDRETRY closed
  SetErrorLevel 2
  Quit
  writable:
  FileClose $0
  free:
!macroend

; Where the program stands its folders are its own, so what an older version had there goes.
!macro RemoveProgram
  IfFileExists "$INSTDIR\${BOARD}" 0 removed
  RMDir /r "$INSTDIR\shipped"
  RMDir /r "$INSTDIR\platforms"
  RMDir /r "$INSTDIR\imageformats"
  RMDir /r "$INSTDIR\fonts"
  Delete "$INSTDIR\kelvane-diamond-table*.exe"
  Delete "$INSTDIR\dtb_jet_reader.exe"
  Delete "$INSTDIR\Qt6*.dll"
  Delete "$INSTDIR\lib*.dll"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\LIBRARIES.txt"
  Delete "$INSTDIR\CHANGELOG.txt"
  removed:
!macroend

Section
  !insertmacro RequireClosed
  !insertmacro RemoveProgram
  SetOutPath "$INSTDIR"
  File /r "${TREE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortCut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\${BOARD}"

  WriteRegStr HKCU "${REMOVAL}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKCU "${REMOVAL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REMOVAL}" "DisplayIcon" "$INSTDIR\${BOARD}"
  WriteRegStr HKCU "${REMOVAL}" "Publisher" "The Kelvane Diamond Table authors"
  WriteRegStr HKCU "${REMOVAL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REMOVAL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REMOVAL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REMOVAL}" "NoModify" 1
  WriteRegDWORD HKCU "${REMOVAL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${REMOVAL}" "EstimatedSize" "$0"
SectionEnd

Section "Uninstall"
  !insertmacro RequireClosed
  !insertmacro RemoveProgram
  Delete "$SMPROGRAMS\${PRODUCT}.lnk"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"  ; only if nothing else is in it
  DeleteRegKey HKCU "${REMOVAL}"
SectionEnd
