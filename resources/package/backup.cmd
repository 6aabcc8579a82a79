@echo off
rem Copies the configuration into a folder, from which restore.cmd brings it back.
rem
rem   backup.cmd [FOLDER]    without FOLDER: one in the current folder, named after date and time
rem
rem The record of an unfinished save is not copied: it belongs to this machine and this moment. Exit code 0 or 1.
setlocal enableextensions disabledelayedexpansion
set "service=HKLM\SOFTWARE\TALVERON\morcelservice"
set "user=HKCU\SOFTWARE\TALVERON\morcel"
set "reg=%SystemRoot%\System32\reg.exe"

set "folder=%~f1"
if "%~1"=="" call :name_folder
set "message=There is no configuration on this machine."
"%reg%" query "%service%" /reg:64 >nul 2>&1
if errorlevel 1 goto refuse
set "message=There is a copy in %folder% already."
if exist "%folder%\backup.txt" goto refuse
if exist "%folder%\service.reg" goto refuse
set "message=The configuration cannot be written to %folder%."
md "%folder%" >nul 2>&1

"%reg%" export "%service%" "%folder%\service.reg" /y /reg:64 >nul 2>&1
if errorlevel 1 goto take_back
if not exist "%folder%\service.reg" goto take_back
"%reg%" query "%user%" /reg:64 >nul 2>&1
if errorlevel 1 goto exported
"%reg%" export "%user%" "%folder%\user.reg" /y /reg:64 >nul 2>&1
if errorlevel 1 goto take_back
if not exist "%folder%\user.reg" goto take_back
:exported

rem How long the files are, so that restore.cmd takes no others for them and none that was cut off.
call :note_length service.reg
if exist "%folder%\user.reg" call :note_length user.reg
if not exist "%folder%\backup.txt" goto take_back
for /f "delims=" %%m in ("The configuration is in %folder%.") do echo %%m
if not exist "%folder%\user.reg" echo This account has no CS profiles: only the configuration of the service was copied.
exit /b 0

:take_back
del "%folder%\service.reg" "%folder%\user.reg" "%folder%\backup.txt" >nul 2>&1
:refuse
for /f "delims=" %%m in ("%message%") do echo %%m
exit /b 1

:note_length
for %%f in ("%folder%\%1") do >>"%folder%\backup.txt" echo %1 %%~zf
exit /b 0

rem The digits of date and time, whatever stands between them in this account's format.
:name_folder
set "stamp="
set "rest=%DATE%%TIME%"
:next_character
if not defined rest goto named
for %%d in (0 1 2 3 4 5 6 7 8 9) do if "%rest:~0,1%"=="%%d" set "stamp=%stamp%%%d"
set "rest=%rest:~1%"
goto next_character
:named
set "folder=%CD%\%stamp%"
set "stamp=%stamp%1"
if exist "%folder%" goto named
exit /b 0
