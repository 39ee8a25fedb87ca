#!/usr/bin/env bash
# Makes a page for the browser of one of the project's documents, on standard output: tables and paragraphs by
# cmark-gfm, each heading with the name by which links know it, links to documents turned into links to their pages.
#   packaging/windows/make_page.sh DOCUMENT.md
set -euo pipefail
[[ $# -eq 1 ]] || { sed -n '4s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2; }

title="$(sed -n 's/^# //p' "$1" | head -n 1)"
cat <<PAGE
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>$title</title>
<style>
body { font: 16px/1.5 "Segoe UI", Verdana, sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em; color: #222; }
h1, h2, h3 { line-height: 1.2; margin-top: 1.6em; }
code, pre { font-family: Consolas, "DejaVu Sans Mono", monospace; font-size: 0.92em; background: #f3f3ee; }
pre { padding: 0.8em; overflow-x: auto; line-height: 1.25; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #bbb; padding: 0.3em 0.6em; vertical-align: top; text-align: left; }
th { background: #eee; }
@media print { body { max-width: none; margin: 0; } }
</style>
</head>
<body>
PAGE
cmark-gfm --extension table "$1" |
  sed -E 's/href="([^":]*)\.md(#[^"]*)?"/href="\1.html\2"/g; s/>([^<>]*)\.md<\/a>/>\1.html<\/a>/g' |
  awk '
    # The name of a heading: its letters and digits in lower case, blanks as hyphens.
    /^<h[1-6]>/ {
      name = tolower($0)
      gsub(/<[^>]*>|&[a-z]+;/, "", name)
      gsub(/[^a-z0-9 _-]/, "", name)
      gsub(/ /, "-", name)
      sub(/>/, " id=\"" name "\">")
    }
    { print }'
echo "</body>"
echo "</html>"
