@echo off
rem SPDX-License-Identifier: LGPL-2.1-or-later
title Lumotune - zkouska
"%~dp0zkouska.exe" %*
set vysledek=%errorlevel%
if not "%1"=="ano" pause
exit /b %vysledek%
