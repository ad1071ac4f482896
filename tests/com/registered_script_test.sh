#!/usr/bin/env bash
# The library as an administrator registers it and a script creates it: registered_script_test.sh WINE DLL
set -euo pipefail
wine=$1
cd "$(dirname "$2")"
scripts=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/scripts

# By its bare name: the host of scripts takes "/" for the beginning of an option.
run_script() { (cd "$scripts" && "$wine" cscript //nologo smoke.vbs); }
unregister() { "$wine" regsvr32 /s /u zorKancA.dll; }
"$wine" regsvr32 /s zorKancA.dll
trap unregister EXIT
status=0
run_script || status=$?
[[ $status -eq 7 ]] || { echo "the script ended with $status"; exit 1; }
trap - EXIT
unregister
# Without registration nothing is created, and the script comes to its end.
status=0
run_script || status=$?
[[ $status -ne 7 ]] || { echo "still registered"; exit 1; }
echo "registered, used, unregistered"
