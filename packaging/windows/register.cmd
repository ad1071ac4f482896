@echo off
rem Enters zorKancA in the registry, for 64-bit and for 32-bit programs; run it as an administrator.
rem   register.cmd       enters it, in place of one that was entered from elsewhere
rem   register.cmd /u    takes it out again
rem On 64-bit Windows the regsvr32 for 32-bit programs lies in SysWOW64; a 32-bit command processor there finds the
rem 64-bit one by the name Sysnative.
setlocal
set "here=%~dp0"
set "failed=0"
set "wide=%SystemRoot%\System32\regsvr32.exe"
set "narrow=%SystemRoot%\SysWOW64\regsvr32.exe"
if defined PROCESSOR_ARCHITEW6432 set "wide=%SystemRoot%\Sysnative\regsvr32.exe"
if not defined PROCESSOR_ARCHITEW6432 if /i "%PROCESSOR_ARCHITECTURE%"=="x86" (
  set "narrow=%wide%"
  set "wide="
)
if defined wide call :enter "%wide%" x64 %1
if exist "%narrow%" call :enter "%narrow%" x86 %1
if not exist "%narrow%" echo x86: skipped, this Windows runs no 32-bit programs
exit /b %failed%

:enter
%1 /s %3 "%here%%2\zorKancA.dll"
if errorlevel 1 (
  echo %2: failed; is this an administrator's window?
  set "failed=1"
) else (
  echo %2: done
)
exit /b 0
