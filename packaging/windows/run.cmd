@echo off
rem Runs Pedigree Watch and stays open. Double-click it in the folder with pedigreewatch.ini and the data file, or drag
rem that folder (or a file in it) onto it. It must stand beside pedigreewatch.exe. What the program says is kept in
rem pedigreewatch-console.txt, a name that no data file has by chance; warnings and errors in it are shown here.
rem "run.cmd FOLDER nowait" does not wait for a key.
setlocal enableextensions disabledelayedexpansion
set "program=%~dp0pedigreewatch.exe"
set "folder=%~dp0"
set "attributes=%~a1"
if not "%~1"=="" set "folder=%~dp1"
if "%attributes:~0,1%"=="d" set "folder=%~1"
if not "%folder:~-1%"=="\" set "folder=%folder%\"
set "report="
set "shown=0"
set "in_message="
set "has_mark="
set "is_enough="
set "is_shown="
set "status=1"

if not exist "%program%" (
  echo run.cmd must stand in the same folder as pedigreewatch.exe.
  goto finish
)
pushd "%folder%"
if exist pedigreewatch-console.txt del pedigreewatch-console.txt
if exist pedigreewatch-console.txt goto in_use

rem The texts of the program are in Windows-1252.
chcp 1252 >nul 2>nul
echo Pedigree Watch is at work in "%folder%"
rem Nobody answers the program while it writes to a file: it must not wait for the keyboard.
"%program%" <nul >pedigreewatch-console.txt 2>pedigreewatch-errors.txt
set "status=%errorlevel%"

rem A message begins in a line that begins with certain words, and ends in another one. That of a birth before a
rem parent's ends in the date behind its line of exclamation marks.
for /f "usebackq tokens=1,2*" %%a in ("pedigreewatch-console.txt") do (
  if "%%a %%b"=="and written" set "report=%%c"
  if "%%a %%b"=="en weggeschreven" set "report=%%c"
  if "%%a"=="Warning:" set "in_message=1"
  if "%%a"=="Waarschuwing:" set "in_message=1"
  if "%%a"=="ERROR:" set "in_message=1"
  if "%%a"=="animal" if not "%%b"=="no." set "in_message=1"
  if "%%a"=="dier" if not "%%b"=="nr." if not "%%b"=="nr" set "in_message=1"
  if "%%a"=="Name" if not "%%b"=="found" set "in_message=1"
  if "%%a %%b"=="No name" set "in_message=1"
  if "%%a"=="Naam" if not "%%b"=="gevonden" set "in_message=1"
  if "%%a %%b"=="Geen naam" set "in_message=1"
  set "is_shown="
  if defined in_message set "is_shown=1"
  if defined is_enough set "is_shown="
  if defined is_shown echo    %%a %%b %%c
  if defined is_shown call :count_line
  if "%%a"=="characters" set "in_message="
  if "%%a"=="tekens" set "in_message="
  if "%%a"=="of" set "in_message="
  if "%%a"=="Van" set "in_message="
  if "%%a"=="Column" set "in_message="
  if "%%a"=="Kolom" set "in_message="
  if "%%a"=="!!!!!!!!!!" set "has_mark=1"
  if "%%a"=="geboortedatum" if defined has_mark call :end_birth
)

if not "%status%"=="0" call :show_end
set "size=0"
for %%f in (pedigreewatch-errors.txt) do set "size=%%~zf"
if not "%size%"=="0" call :show_errors
del pedigreewatch-errors.txt
rem "to NAME", "naar NAME", with blanks behind it.
if defined report for /f "tokens=1*" %%d in ("%report%") do set "report=%%e"
call :trim_report
echo.
if not "%status%"=="0" goto failed
echo Finished. The report is "%folder%%report%"
if not "%shown%"=="0" echo The messages above are about the data; the report has been made all the same.
echo All that the program has said stands in pedigreewatch-console.txt in the same folder.
goto finish

:failed
echo The run has stopped, there is NO complete report. The reason stands above.
echo All that the program has said stands in pedigreewatch-console.txt in "%folder%"
goto finish

:in_use
echo pedigreewatch-console.txt in "%folder%" cannot be replaced. Close the program that shows it and try again.
goto finish

:count_line
set /a shown+=1
if %shown% lss 60 goto :eof
set "is_enough=1"
echo    ... more of them stand in pedigreewatch-console.txt
goto :eof

:end_birth
set "in_message="
set "has_mark="
echo.
goto :eof

rem The last lines of the console say why a run has stopped.
:show_end
set "lines=0"
for /f "usebackq delims=" %%l in ("pedigreewatch-console.txt") do set /a lines+=1
set /a skipped=lines-40
set "option=usebackq delims="
if %skipped% gtr 0 set "option=usebackq skip=%skipped% delims="
echo.
for /f "%option%" %%l in ("pedigreewatch-console.txt") do echo   %%l
goto :eof

:show_errors
echo.
type pedigreewatch-errors.txt
type pedigreewatch-errors.txt >>pedigreewatch-console.txt
goto :eof

rem The program prints the name in a field of fixed width.
:trim_report
if not defined report goto :eof
if not "%report:~-1%"==" " goto :eof
set "report=%report:~0,-1%"
goto trim_report

:finish
if /i "%~2"=="nowait" exit /b %status%
echo.
pause
exit /b %status%
