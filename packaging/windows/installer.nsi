; The installer: for the user who starts it, without an administrator. build.sh calls makensis with
; FOLDER (what the zip holds), FILES (the file list of it, made by build.sh), VERSION, OUTPUT and
; ICON.
;
; What the user has saved is never overwritten and never removed: hopcast.ini once it differs from
; the shipped one, and every file that is not ours.
;
;   Hopcast-VERSION-setup.exe /S [/D=FOLDER]   without questions; /D last, without quotes
;   uninstall.exe /S
;
; Exit status: 0 done, 1 given up by the user, 2 Hopcast is running or the folder cannot be written.

Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
CRCCheck force

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include "${FILES}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Hopcast"

Name "Hopcast"
OutFile "${OUTPUT}"
BrandingText "Hopcast ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Hopcast"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Hopcast"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Hopcast Setup"
VIAddVersionKey CompanyName "The Hopcast authors"
VIAddVersionKey LegalCopyright "Copyright (c) 2026 The Hopcast authors"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN "$INSTDIR\hopcast.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; A program that runs cannot be opened for writing.
!macro ProgramFreeLook NAME
    ${If} ${FileExists} "$INSTDIR\${NAME}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${NAME}" a
        ${If} ${Errors}
            StrCpy $1 "${NAME}"
        ${Else}
            FileClose $0
        ${EndIf}
    ${EndIf}
!macroend
!macro ProgramsFreeAwait UN
Function ${UN}ProgramsFreeAwait
    ${Do}
        StrCpy $1 ""
        !insertmacro ProgramsEach ProgramFreeLook
        ${If} $1 == ""
            Return
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "$1 is in use or cannot be written. Close Hopcast, then press Retry." /SD IDCANCEL IDCANCEL`
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${Loop}
FunctionEnd
!macroend
!insertmacro ProgramsFreeAwait ""
!insertmacro ProgramsFreeAwait "un."

Section
    Call ProgramsFreeAwait
    ClearErrors
    SetOutPath "$INSTDIR"
    ; The pages and pictures of an older version have other names.
    ${If} ${FileExists} "$INSTDIR\hopcast.exe"
        RMDir /r "$INSTDIR\guide"
    ${EndIf}
    !insertmacro FilesInstall
    SetOutPath "$INSTDIR"
    ${IfNot} ${FileExists} "$INSTDIR\hopcast.ini"
        File "${FOLDER}\hopcast.ini"
    ${EndIf}
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "The files could not be written to $INSTDIR." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    CreateShortCut "$SMPROGRAMS\Hopcast.lnk" "$INSTDIR\hopcast.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Hopcast"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\hopcast.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "The Hopcast authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    IntFmt $0 "0x%08X" $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize "$0"
SectionEnd

; $R0 is "yes" where the profile is still the one that was put down.
Function un.ProfileIsShipped
    InitPluginsDir
    File "/oname=$PLUGINSDIR\shipped.ini" "${FOLDER}\hopcast.ini"
    FileOpen $0 "$PLUGINSDIR\shipped.ini" r
    FileOpen $1 "$INSTDIR\hopcast.ini" r
    ${Do}
        FileRead $0 $2 ; empty at the end
        FileRead $1 $3
        ${If} "$2$3" == ""
        ${OrIf} $2 S!= $3
            ${Break}
        ${EndIf}
    ${Loop}
    FileClose $0
    FileClose $1
    StrCpy $R0 "no"
    ${If} $2 S== $3
        StrCpy $R0 "yes"
    ${EndIf}
FunctionEnd

Section Uninstall
    Call un.ProgramsFreeAwait
    ${If} ${FileExists} "$INSTDIR\hopcast.ini"
        Call un.ProfileIsShipped
        ${If} $R0 == "yes"
            Delete "$INSTDIR\hopcast.ini"
        ${EndIf}
    ${EndIf}
    !insertmacro FilesRemove
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Hopcast.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ; What the engine reads and writes: Hopcast made it, and nobody keeps anything there.
    RMDir /r "$LOCALAPPDATA\Hopcast\itshfbc"
    RMDir "$LOCALAPPDATA\Hopcast"
SectionEnd
