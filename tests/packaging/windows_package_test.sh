#!/usr/bin/env bash
# The package for Windows: all there, each DLL of its kind, and registered by its own script, under Wine.
#   windows_package_test.sh OBJDUMP    after script/windows has built both DLLs
set -euo pipefail
objdump=$1
cd "$(dirname "$0")/../.."
work=$PWD/build-windows/"package test"
rm -rf "$work"
mkdir -p "$work"
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

packaging/windows/pack "$work/package.zip"
cd "$work"
cmake -E tar xf package.zip
folder=$(echo zorKancA-*)
found=$(cd "$folder" && find . -type f | LC_ALL=C sort | tr '\n' ' ')
wanted="./LICENSE.txt ./automation_server.md ./readme.txt ./register.cmd ./x64/zorKancA.dll ./x86/zorKancA.dll ./zorKancA.tlb "
[[ $found == "$wanted" ]] || fail "the package holds $found"
for entry in x64:pei-x86-64 x86:pei-i386; do
  "$objdump" -f "$folder/${entry%%:*}/zorKancA.dll" | grep -q "file format ${entry##*:}" || fail "${entry%%:*} is no ${entry##*:}"
done
for text in LICENSE.txt automation_server.md readme.txt register.cmd; do
  [[ $(grep -c $'\r$' "$folder/$text") == $(grep -c '' "$folder/$text") ]] || fail "$text has other line ends than Windows'"
done
grep -q "^zorKancA ${folder#zorKancA-}: " "$folder/readme.txt" || fail "readme.txt names another version"

if ! command -v wine >/dev/null; then
  echo "registering: skipped (no wine)"
  exit 0
fi
wine() { "$OLDPWD/script/wine" "$@" 2>/dev/null | tr -d '\r'; }
script="Z:${PWD//\//\\}\\$folder\\register.cmd"
server() { wine reg query "HKCR\\CLSID\\$1\\InprocServer32" /ve; }
wine cmd /c "$script" | tee registered
grep -q '^x64: done' registered || fail "not registered"
grep -qE '^x86: (done|skipped)' registered || fail "nothing is said of 32-bit programs"
class=$(wine reg query 'HKCR\zorKancA.cZorOffice\CLSID' /ve | grep -o '{[-0-9A-Fa-f]*}') || fail "no cZorOffice"
server "$class" | grep -qF "$folder\\x64\\zorKancA.dll" || fail "another DLL is registered: $(server "$class")"
wine cmd /c "$script" /u | grep -q '^x64: done' || fail "not taken out again"
! server "$class" | grep -q zorKancA || fail "the class is still there"
echo "the package is complete and registers"
