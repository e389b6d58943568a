; SPDX-License-Identifier: GPL-3.0-or-later
; The installer of the Windows edition, for one user and without administrator rights. windows/installer compiles it and
; defines VERSION, OUT, USER_PATH (the program user-path) and FILES (the lines that install and delete the files).
; Options: /S asks nothing, /D=FOLDER (the last option) sets the folder, /PATH puts tarnwick-cli on the user's PATH.
; The uninstaller has /S, too, and /SETTINGS to remove the settings and cookies.
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off
ManifestDPIAware true
RequestExecutionLevel user
Name "Tarnwick ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Tarnwick"
BrandingText "Tarnwick ${VERSION}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarnwick"
!define FILE_TYPE "Tarnwick.Search"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 ProductName "Tarnwick"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileDescription "Installer of Tarnwick"
VIAddVersionKey /LANG=0 LegalCopyright "GNU General Public License, version 3 or later"

!define MUI_ICON "..\src\app\icons\tarnwick.ico"
!define MUI_UNICON "..\src\app\icons\tarnwick.ico"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\tarnwick.exe"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
; The first one is used where Windows speaks none of them.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE German
!insertmacro MUI_LANGUAGE French

!macro TEXT name english german french
LangString ${name} ${LANG_ENGLISH} "${english}"
LangString ${name} ${LANG_GERMAN} "${german}"
LangString ${name} ${LANG_FRENCH} "${french}"
!macroend
!insertmacro TEXT sectionPrograms "Tarnwick and tarnwick-cli" "Tarnwick und tarnwick-cli" "Tarnwick et tarnwick-cli"
!insertmacro TEXT aboutPrograms "The program with windows and the one for the console." \
    "Das Programm mit Fenstern und das für die Konsole." "Le programme à fenêtres et celui pour la console."
!insertmacro TEXT sectionMenu "Entry in the start menu" "Eintrag im Startmenü" "Entrée dans le menu Démarrer"
!insertmacro TEXT aboutMenu "Starts Tarnwick from the start menu." "Startet Tarnwick aus dem Startmenü." \
    "Lance Tarnwick depuis le menu Démarrer."
!insertmacro TEXT sectionFiles "Open search files (.twk)" "Suchdateien öffnen (.twk)" \
    "Ouvrir les fichiers de recherche (.twk)"
!insertmacro TEXT aboutFiles "A double click on a search file opens it in Tarnwick." \
    "Ein Doppelklick auf eine Suchdatei öffnet sie in Tarnwick." \
    "Un double clic sur un fichier de recherche l’ouvre dans Tarnwick."
!insertmacro TEXT sectionPath "tarnwick-cli on the PATH" "tarnwick-cli im PATH" "tarnwick-cli dans le PATH"
!insertmacro TEXT aboutPath "Every new console knows the command tarnwick-cli." \
    "Jede neue Konsole kennt den Befehl tarnwick-cli." \
    "Toute nouvelle console connaît la commande tarnwick-cli."
!insertmacro TEXT sectionSettings "Settings and cookies" "Einstellungen und Cookies" "Réglages et cookies"
!insertmacro TEXT aboutSettings "Also removes your settings and stored cookies." \
    "Entfernt auch die Einstellungen und die gespeicherten Cookies." \
    "Supprime aussi vos réglages et les cookies enregistrés."
!insertmacro TEXT fileType "Tarnwick search" "Tarnwick-Suche" "Recherche Tarnwick"
!insertmacro TEXT isRunning "Tarnwick is running. Close it, then try again." \
    "Tarnwick läuft noch. Bitte schließen Sie das Programm und versuchen Sie es erneut." \
    "Tarnwick est ouvert. Fermez-le, puis réessayez."
!insertmacro TEXT pathFailed "The PATH could not be changed. It is as it was." \
    "Der PATH konnte nicht geändert werden. Er ist wie zuvor." \
    "Le PATH n’a pas pu être modifié. Il est resté tel quel."

!include "${FILES}" ; defines the macros INSTALL_FILES and DELETE_FILES

; A program that runs cannot be written to.
!macro END_WHILE_RUNNING
    ${DoWhile} ${FileExists} "$INSTDIR\tarnwick.exe"
        ClearErrors
        FileOpen $0 "$INSTDIR\tarnwick.exe" a
        ${IfNot} ${Errors}
            FileClose $0
            ${ExitDo}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(isRunning)" /SD IDCANCEL IDCANCEL`
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${Loop}
!macroend

; Leaves the exit status of `user-path COMMAND FOLDER` in $0.
!macro USER_PATH command
    InitPluginsDir
    File "/oname=$PLUGINSDIR\user-path.exe" "${USER_PATH}"
    ExecWait '"$PLUGINSDIR\user-path.exe" ${command} "$INSTDIR"' $0
!macroend

; Tells Windows that the programs of file types have changed.
!macro REFRESH_FILE_TYPES
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section "$(sectionPrograms)" secPrograms
    SectionIn RO
    !insertmacro END_WHILE_RUNNING
    ; The files of an older version may have other names.
    ${If} ${FileExists} "$INSTDIR\uninstall.exe"
        CopyFiles /SILENT "$INSTDIR\uninstall.exe" "$PLUGINSDIR\old.exe"
        ExecWait '"$PLUGINSDIR\old.exe" /S _?=$INSTDIR'
    ${EndIf}
    !insertmacro INSTALL_FILES
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Tarnwick"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\tarnwick.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "The authors of Tarnwick"
    WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
    SectionGetSize ${secPrograms} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize $0
SectionEnd

Section "$(sectionMenu)" secMenu
    CreateShortcut "$SMPROGRAMS\Tarnwick.lnk" "$INSTDIR\tarnwick.exe"
SectionEnd

Section "$(sectionFiles)" secFiles
    WriteRegStr HKCU "Software\Classes\.twk" "" "${FILE_TYPE}"
    WriteRegStr HKCU "Software\Classes\${FILE_TYPE}" "" "$(fileType)"
    WriteRegStr HKCU "Software\Classes\${FILE_TYPE}\DefaultIcon" "" "$INSTDIR\tarnwick.exe,0"
    WriteRegStr HKCU "Software\Classes\${FILE_TYPE}\shell\open\command" "" '"$INSTDIR\tarnwick.exe" "%1"'
    !insertmacro REFRESH_FILE_TYPES
SectionEnd

Section /o "$(sectionPath)" secPath
    !insertmacro USER_PATH add
    ${If} $0 <> 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(pathFailed)" /SD IDOK
    ${EndIf}
SectionEnd

Function .onInit
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/PATH" $2
    ${If} ${Errors}
        ; An installation over an older one keeps what was chosen then.
        !insertmacro USER_PATH has
    ${Else}
        StrCpy $0 0
    ${EndIf}
    ${If} $0 = 0
        !insertmacro SelectSection ${secPath}
    ${EndIf}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${secPrograms} $(aboutPrograms)
    !insertmacro MUI_DESCRIPTION_TEXT ${secMenu} $(aboutMenu)
    !insertmacro MUI_DESCRIPTION_TEXT ${secFiles} $(aboutFiles)
    !insertmacro MUI_DESCRIPTION_TEXT ${secPath} $(aboutPath)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Section "un.$(sectionPrograms)" secUnPrograms
    SectionIn RO
    !insertmacro END_WHILE_RUNNING
    !insertmacro USER_PATH remove
    ReadRegStr $0 HKCU "Software\Classes\.twk" ""
    ${If} $0 == "${FILE_TYPE}"
        DeleteRegKey HKCU "Software\Classes\.twk"
    ${EndIf}
    DeleteRegKey HKCU "Software\Classes\${FILE_TYPE}"
    !insertmacro REFRESH_FILE_TYPES
    Delete "$SMPROGRAMS\Tarnwick.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$INSTDIR\uninstall.exe"
    ; Files of the user in the folder stay.
    !insertmacro DELETE_FILES
    ; The first program that is installed for one user makes this folder. It is removed only if it is empty.
    RMDir "$LOCALAPPDATA\Programs"
SectionEnd

Section /o "un.$(sectionSettings)" secUnSettings
    RMDir /r "$APPDATA\Tarnwick"
SectionEnd

Function un.onInit
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/SETTINGS" $2
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${secUnSettings}
    ${EndIf}
FunctionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${secUnPrograms} $(aboutPrograms)
    !insertmacro MUI_DESCRIPTION_TEXT ${secUnSettings} $(aboutSettings)
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
