#!/usr/bin/env bash
# Installs the built project into an empty folder and uses it from outside: the program, the library by CMake and by
# pkg-config, the man page, the completion, the Debian package.
#   install_test.sh BUILD_FOLDER SOURCE_FOLDER
set -euo pipefail
build=$1 source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
export ZORKANCA_HOME=$work/home TMPDIR=$work DISPLAY='' WAYLAND_DISPLAY=''

cmake --install "$build" --prefix "$prefix" >"$work/install.log"
sqlite3 "$work/sklad.db" <"$source/examples/sklad.sql"
"$prefix/bin/zorkanca" html --db "$work/sklad.db" --select 'SELECT kod, nazev, zasoba FROM zbozi ORDER BY kod' \
  --title 'Zásoby' -o "$work/program.htm" >/dev/null

# By CMake.
cmake -S "$source/examples/embedding" -B "$work/embedding" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >"$work/cmake.log"
cmake --build "$work/embedding" >"$work/cmake.log" || { cat "$work/cmake.log"; exit 1; }
"$work/embedding/stock_list" "$work/sklad.db" "$work/cmake.htm" 2>"$work/events"
cmp "$work/program.htm" "$work/cmake.htm"
grep -qx '100 %' "$work/events"

# By pkg-config.
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name zorkanca.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046
c++ $(pkg-config --cflags zorkanca) "$source/examples/embedding/stock_list.cpp" -o "$work/stock_list" \
  $(pkg-config --libs zorkanca)
"$work/stock_list" "$work/sklad.db" "$work/pkgconfig.htm" 2>/dev/null
cmp "$work/program.htm" "$work/pkgconfig.htm"

# The man page was made by this program, names every command and every option, and formats without complaints.
page=$prefix/share/man/man1/zorkanca.1
"$prefix/bin/zorkanca" man | cmp - "$page"
export PATH=$prefix/bin:$PATH
man_text=$(man --warnings -l "$page" 2>"$work/man.errors" | col -b)
[[ ! -s "$work/man.errors" ]] || { cat "$work/man.errors"; exit 1; }
commands=0
while IFS=$'\t' read -r command _; do
  commands=$((commands + 1))
  grep -q "^ *zorkanca $command" <<<"$man_text" || { echo "zorkanca.1 does not tell of $command"; exit 1; }
  while IFS=$'\t' read -r option _; do
    grep -q -- "^ .*$option" <<<"$man_text" || { echo "zorkanca.1 does not tell of $command $option"; exit 1; }
  done < <(zorkanca complete "$command" -- | grep -v -e '^--help')
done < <(zorkanca complete '')
[[ $commands -gt 20 ]]

# The completion offers commands, sub-commands, options and values.
# shellcheck disable=SC1091
source "$prefix/share/bash-completion/completions/zorkanca.bash"
completions() {
  COMP_WORDS=(zorkanca "$@") COMP_CWORD=$#
  _zorkanca
  echo "${COMPREPLY[*]}"
}
[[ "$(completions ht)" == html ]]
[[ "$(completions --locale cs-CZ registry ex)" == export ]]
[[ "$(completions html --sel)" == --select ]]
[[ "$(completions --locale = s)" == sk-SK ]]
for shell in zsh/vendor-completions/_zorkanca fish/vendor_completions.d/zorkanca.fish; do
  grep -q ' complete ' "$prefix/share/$shell"
done

# The Debian package needs nothing of the build folder.
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/package" >"$work/cpack.log" || { cat "$work/cpack.log"; exit 1; }
dpkg -x "$work"/package/zorkanca_*.deb "$work/root"
[[ "$(env -i "$work/root/usr/bin/zorkanca" number 0.00 1)" == 1,00 ]]

# Its licence lies where Debian looks for it, and says what LICENSE says.
documents=$work/root/usr/share/doc/zorkanca
diff <(sed -n '/^License: Expat$/,$ { s/^ //; s/^\.$//; p }' "$documents/copyright" | tail -n +4) <(tail -n +5 "$source/LICENSE")
zcat "$documents/changelog.gz" | cmp - "$source/CHANGELOG.md"
