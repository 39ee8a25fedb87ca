@echo off
rem Pedigree Watch without typing commands. It must stand beside pedigreewatch.exe.
rem   A double click opens the desk in the browser.
rem   An export dragged onto it is prepared (what cannot be decided is asked), checked, and made a report and a page with
rem   charts, all in a folder beside it: NAME_pedigreewatch.
rem   A folder with pedigreewatch.ini (or a file in it) dragged onto it is checked and made a report and a page. Where
rem   pedigreewatch.ini stands beside run.cmd itself, a double click does that.
rem What the programs say is kept in pedigreewatch-prepare.txt, pedigreewatch-check.txt and pedigreewatch-console.txt,
rem names that no data file has by chance; warnings and errors are shown here too.
rem "run.cmd FOLDER nowait" asks nothing, does not wait for a key and opens nothing.
setlocal enableextensions disabledelayedexpansion
set "program=%~dp0pedigreewatch.exe"
set "tools=%~dp0pedigreewatch-tools.exe"
set "desk=%~dp0pedigreewatch-desk.html"
set "folder=%~dp0"
set "attributes=%~a1"
if not "%~1"=="" set "folder=%~dp1"
if "%attributes:~0,1%"=="d" set "folder=%~1"
if not "%folder:~-1%"=="\" set "folder=%folder%\"
set "status=1"

if not exist "%program%" (
  echo run.cmd must stand in the same folder as pedigreewatch.exe.
  goto finish
)
if exist "%folder%pedigreewatch.ini" goto with_steer_file
if "%~1"=="" goto open_desk
if not "%attributes:~0,1%"=="d" if exist "%tools%" goto with_export
echo There is no pedigreewatch.ini in "%folder%".
echo Drag the export of your office program itself onto run.cmd, or open pedigreewatch-desk.html.
goto finish

:open_desk
if not exist "%desk%" (
  echo pedigreewatch-desk.html is missing: unpack the whole archive.
  goto finish
)
echo The desk opens in your browser: "%desk%"
if /i not "%~2"=="nowait" start "" "%desk%"
exit /b 0

rem --- An export: a data file and a steer file are made of it ---

:with_export
set "made=%~dpn1_pedigreewatch"
set "answers="
set "tried="
if not exist "%made%\" mkdir "%made%"
set "prepare_said=%made%\pedigreewatch-prepare.txt"

:prepare
chcp 65001 >nul 2>nul
"%tools%" prepare "%~1" --out "%made%" %tried% >"%prepare_said%" 2>&1
set "status=%errorlevel%"
type "%prepare_said%"
if "%status%"=="0" goto prepared
if /i "%~2"=="nowait" goto not_prepared
rem Wrong arguments are forgotten, answers are kept.
if "%status%"=="1" set "answers=%tried%"
set "more="
echo.
echo Type the answers and press Enter, for instance: --species sheep
echo Or press Enter alone to stop.
set /p "more=> "
if not defined more goto not_prepared
set "tried=%answers% %more%"
echo.
goto prepare

:not_prepared
del "%prepare_said%"
rem Only an empty folder is removed.
rd "%made%" 2>nul
echo.
echo Nothing has been made. The desk asks the same questions in your browser: pedigreewatch-desk.html
goto finish

:prepared
set "folder=%made%\"
echo.

rem --- A folder with a steer file: check, report, page ---

:with_steer_file
set "report="
set "shown=0"
set "in_message="
set "has_mark="
set "is_enough="
set "is_shown="
set "status=1"
set "page="
set "page_status=0"
pushd "%folder%"
if exist pedigreewatch-console.txt del pedigreewatch-console.txt
if exist pedigreewatch-console.txt goto in_use

if exist "%tools%" call :check

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
if "%status%"=="0" if exist "%tools%" call :make_page
echo.
if not "%status%"=="0" goto failed
echo Finished. The report is "%folder%%report%"
if not "%shown%"=="0" echo The messages above are about the data; the report has been made all the same.
echo All that the program has said stands in pedigreewatch-console.txt in the same folder.
if defined page echo The charts are "%folder%%page%"
if defined page if /i not "%~2"=="nowait" start "" "%folder%%page%"
set "status=%page_status%"
goto finish

:failed
echo The run has stopped, there is NO complete report. The reason stands above.
echo All that the program has said stands in pedigreewatch-console.txt in "%folder%"
goto finish

:in_use
echo pedigreewatch-console.txt in "%folder%" cannot be replaced. Close the program that shows it and try again.
goto finish

rem What is wrong with the data: the summary, and the first of the findings.
:check
chcp 65001 >nul 2>nul
"%tools%" check >pedigreewatch-check.txt 2>&1
set "lines=0"
for /f "usebackq delims=" %%l in ("pedigreewatch-check.txt") do (
  call :count_finding
  if not defined is_enough echo %%l
)
if defined is_enough echo    ... all of it stands in pedigreewatch-check.txt
set "is_enough="
echo.
goto :eof

:count_finding
set /a lines+=1
if %lines% gtr 40 set "is_enough=1"
goto :eof

rem The page, of which the last line says the name: "dogs.html: the page ...".
:make_page
"%tools%" page >pedigreewatch-page.txt 2>&1
set "page_status=%errorlevel%"
if "%page_status%"=="0" for /f "usebackq delims=:" %%p in ("pedigreewatch-page.txt") do set "page=%%p"
if not "%page_status%"=="0" type pedigreewatch-page.txt
if defined page set "page=%page:/=\%"
del pedigreewatch-page.txt
goto :eof

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
