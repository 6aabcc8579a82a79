@echo off
rem Brings back the configuration that backup.cmd has copied into a folder. What has been made since is gone afterwards; a copy
rem of it is made first, beside that folder.
rem
rem   restore.cmd FOLDER
rem
rem Needs the rights of an administrator. Exit code 0 or 1.
setlocal enableextensions disabledelayedexpansion
set "service=HKLM\SOFTWARE\TALVERON\morcelservice"
set "record=HKLM\SOFTWARE\TALVERON\morcelservice editor"
set "reg=%SystemRoot%\System32\reg.exe"
set "find=%SystemRoot%\System32\find.exe"

set "message=Name the folder of the copy: restore.cmd FOLDER"
if "%~1"=="" goto refuse
set "folder=%~f1"
set "message="
call :look_at_files
if defined message goto refuse
call :look_for_program
if defined message goto refuse

for /f "delims=" %%m in ("The configuration of this machine is replaced by that in %folder%.") do echo %%m
set "answer="
set /p "answer=Y and Enter goes on, anything else leaves all as it is: "
set "message=Nothing has been changed."
if not defined answer goto refuse
set "answer=%answer:"=%"
if /i not "%answer%"=="Y" goto refuse

set "safety="
"%reg%" query "%service%" /reg:64 >nul 2>&1
if errorlevel 1 goto nothing_to_keep
call :name_safety
set "message=The present configuration cannot be copied to %safety%; nothing has been changed."
call "%~dp0backup.cmd" "%safety%" >nul
if errorlevel 1 goto refuse
"%reg%" query "%record%" /reg:64 >nul 2>&1
if errorlevel 1 goto kept
"%reg%" export "%record%" "%safety%\unfinished.reg" /y /reg:64 >nul 2>&1
if errorlevel 1 goto refuse
:kept
for /f "delims=" %%m in ("The present configuration is in %safety%.") do echo %%m
:nothing_to_keep

set "step=deleted"
call :delete_service
if errorlevel 1 goto bring_back
set "step=imported"
"%reg%" import "%folder%\service.reg" /reg:64 >nul 2>&1
if errorlevel 1 goto bring_back
if not exist "%folder%\user.reg" goto restored
"%reg%" import "%folder%\user.reg" /reg:64 >nul 2>&1
if errorlevel 1 goto bring_back
:restored
echo The configuration has been restored.
exit /b 0

:bring_back
call :delete_service
set "message=The configuration cannot be %step%; there is none on this machine, as before."
if not defined safety goto refuse
set "message=The configuration cannot be %step%; what was there before is back."
"%reg%" import "%safety%\service.reg" /reg:64 >nul 2>&1
if errorlevel 1 set "message=The configuration cannot be %step%, and what was there before is not back: import the files in %safety%."
if exist "%safety%\user.reg" "%reg%" import "%safety%\user.reg" /reg:64 >nul 2>&1
if exist "%safety%\unfinished.reg" "%reg%" import "%safety%\unfinished.reg" /reg:64 >nul 2>&1
:refuse
for /f "delims=" %%m in ("%message%") do echo %%m
exit /b 1

rem The service's tree and the record of an unfinished save, where they are.
:delete_service
set "left="
for %%k in ("%service%" "%record%") do call :delete_key %%k
if defined left exit /b 1
exit /b 0

:delete_key
"%reg%" query %1 /reg:64 >nul 2>&1
if errorlevel 1 exit /b 0
"%reg%" delete %1 /f /reg:64 >nul 2>&1
"%reg%" query %1 /reg:64 >nul 2>&1
if not errorlevel 1 set "left=%~1"
exit /b 0

rem Each sets the message when there is something to refuse.
:look_at_files
set "message=There is no copy of a configuration in %folder%."
if not exist "%folder%\backup.txt" exit /b 0
set "listed="
set "message="
for /f "usebackq tokens=1,2" %%a in ("%folder%\backup.txt") do call :look_at_length %%a %%b
if not defined message if not defined listed set "message=There is no copy of a configuration in %folder%."
if not defined message call :look_at_keys service.reg "HKEY_LOCAL_MACHINE\SOFTWARE\TALVERON\morcelservice"
if not defined message if exist "%folder%\user.reg" call :look_at_keys user.reg "HKEY_CURRENT_USER\SOFTWARE\TALVERON\morcel"
exit /b 0

rem They have to be those that backup.cmd has written, whole.
:look_at_length
if "%1"=="service.reg" set "listed=yes"
set "length=none"
for %%f in ("%folder%\%1") do if exist "%%~f" set "length=%%~zf"
if "%length%"=="none" set "message=The file %folder%\%1 is missing."
if not "%length%"=="none" if not "%length%"=="%2" set "message=The file %folder%\%1 is not the one that backup.cmd has written."
exit /b 0

rem And they may hold keys of their tree only: the tree itself, or something below it.
:look_at_keys
set "strange="
for /f "tokens=1-4 delims=[]\" %%a in ('type "%folder%\%1" ^| "%find%" "[HKEY_"') do if /i not "%%a\%%b\%%c\%%d"=="%~2" set "strange=yes"
for /f "delims=" %%l in ('type "%folder%\%1" ^| "%find%" "[-HKEY_"') do set "strange=yes"
if defined strange set "message=The file %folder%\%1 holds keys that do not belong to the configuration."
exit /b 0

rem A program that runs cannot be opened for writing; another copy than the one beside this file is known by its name.
:look_for_program
"%SystemRoot%\System32\tasklist.exe" /nh /fi "imagename eq brisgate.exe" 2>nul | "%find%" /i "brisgate.exe" >nul
if not errorlevel 1 set "message=Close the program first: brisgate.exe is open."
"%reg%" add "HKLM\SOFTWARE\TALVERON" /f /reg:64 >nul 2>&1
if errorlevel 1 set "message=Start this as administrator."
if defined message exit /b 0
if not exist "%~dp0brisgate.exe" exit /b 0
set "closed="
call :open_for_writing 2>nul
if not defined closed set "message=Close the program first: brisgate.exe is open, or its folder cannot be written to."
exit /b 0

rem The command runs only where the file can be opened; it writes nothing.
:open_for_writing
>>"%~dp0brisgate.exe" set "closed=yes"
exit /b 0

rem Named like a copy of backup.cmd.
:name_safety
set "stamp="
set "rest=%DATE%%TIME%"
:next_character
if not defined rest goto named
for %%d in (0 1 2 3 4 5 6 7 8 9) do if "%rest:~0,1%"=="%%d" set "stamp=%stamp%%%d"
set "rest=%rest:~1%"
goto next_character
:named
for %%p in ("%folder%\..") do set "safety=%%~fp\%stamp%"
set "stamp=%stamp%1"
if exist "%safety%" goto named
exit /b 0
