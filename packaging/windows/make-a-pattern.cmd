@echo off
rem Makes a pattern for a board of 29 x 29 beads, and a picture of it, from the example photo; or from
rem your own: drop a PNG or JPEG file onto this one. A square photo is not stretched.
setlocal
cd /d "%~dp0"
if "%~1"=="" (
    kavrin.exe picture --crop 121 0 300 300 --pegboard square 29 examples\chelsea.png palettes/hama.txt pattern.txt
) else (
    kavrin.exe picture --pegboard square 29 "%~1" palettes/hama.txt pattern.txt
)
if errorlevel 1 goto failed
kavrin.exe show -s 16 --background 1 1 1 palettes/hama.txt pattern.txt pattern.png
if errorlevel 1 goto failed
echo pattern.txt is the pattern, pattern.png a picture of it.
if not defined KAVRIN_UNSEEN start "" pattern.png
exit /b 0

:failed
if not defined KAVRIN_UNSEEN pause
exit /b 1
