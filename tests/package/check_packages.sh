#!/usr/bin/env bash
# Unpacks the three packages, looks for everything that belongs in them, and runs their programs on their examples: the
# reports must be those of the source tree, byte for byte.
#   tests/package/check_packages.sh FOLDER VERSION
set -euo pipefail
[[ $# -eq 2 ]] || { sed -n '4s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
packages="$(realpath "$1")"
version="$2"
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
sources="$(cd "$here/../.." && pwd)"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

fail() { echo "check_packages: $*" >&2; exit 1; }

the_one() {  # the_one PATTERN...: the only file of that name
  [[ $# -eq 1 && -f "$1" ]] || fail "one package was expected, found: $*"
  echo "$1"
}

expect_files() {  # expect_files FOLDER NAME...
  local name
  for name in "${@:2}"; do
    [[ -s "$1/$name" ]] || fail "${1#"$work"/}: $name is missing or empty"
  done
}

# Runs PROGRAM on copies of the examples in FOLDER.
run_examples() {
  local program="$1" example name
  for example in "$2"/*/; do
    name="$(basename "$example")"
    rm -rf "$work/run"
    cp -r "$example" "$work/run"
    chmod -R u+w "$work/run"
    rm -f "$work/run"/*.out
    (cd "$work/run" && timeout 60 "$program" </dev/null >console.txt) || fail "$program failed on $name"
    cmp "$work/run"/*.out "$sources/examples/$name"/*.out || fail "$program: another report on $name"
  done
}

# Prepares a small export with the program for it.
check_tools() {
  [[ "$("$1" --version)" == "pedigreewatch-tools $version" ]] || fail "$1 is not of version $version"
  rm -rf "$work/run"
  mkdir "$work/run"
  printf 'Indiv,Sire,Dam,Sex,Born\nrex,NA,NA,reu,2001-12-31\n' >"$work/run/export.csv"
  (cd "$work/run" && "$1" prepare export.csv >/dev/null) || fail "$1 could not prepare an export"
  [[ "$(tail -n 1 "$work/run/export.txt")" == "rex;m;2001-12-31;;" ]] || fail "$1 prepared something else"
}

check_manual_page() {
  gzip -cd "$1" >"$work/page" || fail "$1 is not compressed"
  grep -qF "Pedigree Watch $version\"" "$work/page" || fail "$1 does not name the version $version"
  local complaints
  complaints="$(groff -man -ww -z "$work/page" 2>&1)"
  [[ -z "$complaints" ]] || fail "$1: $complaints"
}

documents=(README CHANGELOG CONTRIBUTING docs/steer-file docs/data-file docs/report docs/prepare docs/check docs/desk docs/desk-nl docs/running)
examples=()
for example in moorland-en/moorland heide-nl/heide; do
  examples+=("examples/$example.txt" "examples/$example.out" "examples/${example%/*}/pedigreewatch.ini")
done

user_files=("${documents[@]/%/.md}" "${examples[@]}" docs/pictures/desk-4-results.png)

# Every link of a page leads to a file, and to a place that is there.
check_links() {  # check_links PAGE...
  local page link file place
  for page in "$@"; do
    while read -r link; do
      file="${link%%#*}"
      [[ -n "$file" ]] && file="$(dirname "$page")/$file" || file="$page"
      [[ -e "$file" ]] || fail "${page#"$work"/}: the link $link leads nowhere"
      [[ "$link" == *'#'* ]] || continue
      place="${link#*#}"
      grep -qF "id=\"$place\"" "$file" || fail "${page#"$work"/}: the link $link leads to no heading"
    done < <(grep -oE 'href="[^"]*"' "$page" | sed 's/^href="//; s/"$//' | grep -v '^https\{0,1\}:')
  done
}

# --- Debian ---
deb="$(the_one "$packages"/*.deb)"
root="$work/deb"
dpkg-deb -x "$deb" "$root"
[[ "$(dpkg-deb -f "$deb" Version)" == "$version" ]] || fail "$deb is not of version $version"
for library in libc6 libstdc++6; do
  [[ "$(dpkg-deb -f "$deb" Depends)" == *"$library ("* ]] || fail "$deb does not depend on $library"
done
expect_files "$root/usr/share/doc/pedigreewatch" "${user_files[@]}" copyright changelog.gz
grep -qF "Permission is hereby granted" "$root/usr/share/doc/pedigreewatch/copyright" || fail "copyright: no licence"
gzip -cd "$root/usr/share/doc/pedigreewatch/changelog.gz" | grep -qF "pedigreewatch ($version)" ||
  fail "the changelog does not begin with version $version"
expect_files "$root/usr/share" pedigreewatch/pedigreewatch-desk.html icons/hicolor/scalable/apps/pedigreewatch.svg
menu_entry="$root/usr/share/applications/pedigreewatch.desktop"
desktop-file-validate "$menu_entry" || fail "$deb: the menu entry is not valid"
[[ -s "$root$(sed -n 's/^Exec=xdg-open //p' "$menu_entry")" ]] || fail "$deb: the menu entry opens nothing"
check_manual_page "$root/usr/share/man/man1/pedigreewatch.1.gz"
check_manual_page "$root/usr/share/man/man1/pedigreewatch-tools.1.gz"
check_manual_page "$root/usr/share/man/man5/pedigreewatch.ini.5.gz"
file "$root/usr/bin/pedigreewatch" | grep -q ', stripped' || fail "$deb: the program is not stripped"
run_examples "$root/usr/bin/pedigreewatch" "$root/usr/share/doc/pedigreewatch/examples"
check_tools "$root/usr/bin/pedigreewatch-tools"
lintian --allow-root --fail-on error,warning,info --display-info "$deb" || fail "$deb: lintian complains"
echo "$(basename "$deb"): good"

# --- any Linux ---
archive="$(the_one "$packages"/*.tar.gz)"
root="$work/linux"
mkdir "$root"
tar -xzf "$archive" -C "$root" --strip-components=1
expect_files "$root" "${user_files[@]}" LICENSE pedigreewatch-desk.html
check_manual_page "$root/man/man1/pedigreewatch.1.gz"
check_manual_page "$root/man/man1/pedigreewatch-tools.1.gz"
check_manual_page "$root/man/man5/pedigreewatch.ini.5.gz"
file "$root/pedigreewatch" | grep -q 'statically linked.*, stripped' || fail "$archive: the program needs libraries"
run_examples "$root/pedigreewatch" "$root/examples"
check_tools "$root/pedigreewatch-tools"
echo "$(basename "$archive"): good"

# --- Windows ---
archive="$(the_one "$packages"/*.zip)"
unzip -q "$archive" -d "$work/zip"
windows="$work/zip/$(basename "$archive" .zip)"
expect_files "$windows" "${documents[@]/%/.html}" "${examples[@]}" LICENSE.txt run.cmd pedigreewatch-desk.html docs/pictures/desk-4-results.png manual/pedigreewatch{,.ini,-tools}.txt pedigreewatch-tools.exe
check_links "$windows"/*.html "$windows"/docs/*.html
for name in README.html run.cmd manual/pedigreewatch.txt examples/moorland-en/{pedigreewatch.ini,moorland.txt}; do
  [[ "$(grep -c $'\r$' "$windows/$name")" -eq "$(wc -l <"$windows/$name")" ]] || fail "$name: lines without CR"
done
grep -qF "Pedigree Watch $version" "$windows/manual/pedigreewatch.txt" || fail "the manual does not name the version"
run_examples "$root/pedigreewatch" "$windows/examples"  # line ends make no difference
status=0
"$here/check_windows.sh" "$windows/pedigreewatch.exe" "$windows/run.cmd" || status=$?
case $status in
  0) echo "$(basename "$archive"): good" ;;
  77) echo "$(basename "$archive"): good, but its program was not run" ;;
  *) fail "$archive: the program for Windows is not right" ;;
esac
