#!/usr/bin/env bash
# Shows a document as LibreOffice does: to_png.sh FILE FOLDER writes FOLDER/NAME.pdf and FOLDER/NAME-1.png and
# so on. LibreOffice runs with a profile of its own, so it neither waits for nor disturbs one that is open.
set -euo pipefail

file=$1
folder=$2
name=$(basename "${file%.*}")
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT

mkdir -p "$folder"
soffice "-env:UserInstallation=file://$profile" --headless --norestore --convert-to pdf --outdir "$folder" \
    "$file" >/dev/null 2>"$profile/errors" || { cat "$profile/errors" >&2; exit 1; }
# LibreOffice ends without an error when it could not read the file.
[ -f "$folder/$name.pdf" ] || { echo "LibreOffice could not read $file." >&2; exit 1; }
pdftoppm -r "${DPI:-70}" -png "$folder/$name.pdf" "$folder/$name"
