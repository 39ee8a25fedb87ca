#!/usr/bin/env bash
# Makes the workbooks of every subcommand that writes one, and opens them with two readers that are not this project's:
# they must hold what the text tables hold, cell by cell.
#   tests/workbooks/open_elsewhere.sh PEDIGREEWATCH_TOOLS SOURCE_FOLDER
set -euo pipefail

tools="$1" source="$2"
python=/usr/bin/python3  # the one that Debian's packages are for
"$python" -c 'import openpyxl' || { echo "scripts/setup installs python3-openpyxl, which is missing" >&2; exit 1; }
perl -MSpreadsheet::ParseXLSX -e1 || { echo "scripts/setup installs libspreadsheet-parsexlsx-perl, which is missing" >&2; exit 1; }
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cp "$source"/examples/moorland-en/* "$folder"
cd "$folder"

same() {  # same WORKBOOK SHEET=TABLE...
  "$python" "$source/tests/workbooks/same_as_tables.py" "$@"
  perl "$source/tests/workbooks/same_as_tables.pl" "$@"
}

"$tools" tables >/dev/null
"$tools" tables --workbook >/dev/null
sheets=()
for table in years subpopulations animals diversity standing cohorts by_kinship most_inbred used_sires division; do
  sheets+=("$table=moorland_$table.tsv")
done
same moorland_tables.xlsx "${sheets[@]}"

"$tools" check >/dev/null || [[ $? -eq 1 ]]
"$tools" check --workbook >/dev/null || [[ $? -eq 1 ]]
same moorland_check.xlsx findings=moorland_check.tsv

"$tools" plan >/dev/null
mkdir tables
mv moorland_plan.tsv moorland_contributions.tsv tables
"$tools" plan --workbook >/dev/null
same moorland_plan.xlsx plan=tables/moorland_plan.tsv contributions=tables/moorland_contributions.tsv
