#!/usr/bin/env bash
# Lets LibreOffice read a document and write it in another format: convert.sh FORMAT FILE FOLDER writes
# FOLDER/NAME.FORMAT; the format "png" writes a picture of each page, FOLDER/NAME-1.png and so on. LibreOffice
# runs with a profile of its own, so it neither waits for nor disturbs one that is open.
set -euo pipefail

format=$1
file=$2
folder=$3
name=$(basename "${file%.*}")
written=${format/png/pdf}
profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT

mkdir -p "$folder"
soffice "-env:UserInstallation=file://$profile" --headless --norestore --convert-to "$written" \
    --outdir "$folder" "$file" >/dev/null 2>"$profile/errors" || { cat "$profile/errors" >&2; exit 1; }
# LibreOffice ends without an error when it could not read the file.
[ -f "$folder/$name.$written" ] || { echo "LibreOffice could not read $file." >&2; exit 1; }
if [ "$format" = png ]; then
    pdftoppm -r "${DPI:-70}" -png "$folder/$name.pdf" "$folder/$name"
fi
