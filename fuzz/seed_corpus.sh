#!/usr/bin/env bash
# Fills a seed corpus folder per fuzz target from the shared data:
#   fuzz/seed_corpus.sh OUT_DIR [SHARED_DATA]
# OUT_DIR/engine_open gets every CDF of the shared data (samples, format and
# compression files, the multi-file parts too) and the regression files; each
# OUT_DIR/codec_<method> gets the stored compressed payloads prefixed with their
# expected size; OUT_DIR/gateway starts with a few byte patterns (its inputs are
# choices, not files). Nothing here is committed: the corpora are rebuilt at will.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
out="${1:?usage: seed_corpus.sh OUT_DIR [SHARED_DATA]}"
data="${2:-$here/../../shared/data}"
[ -d "$data" ] || { echo "no shared data at $data" >&2; exit 1; }

mkdir -p "$out/engine_open" "$out/gateway"
for m in rle huff ahuff gzip; do mkdir -p "$out/codec_$m"; done

# Whole files for the open-and-read target.
find "$data" -type f \( -name '*.cdf' -o -name '*.z[0-9]*' -o -name '*.v[0-9]*' \) -print0 |
    while IFS= read -r -d '' f; do
        rel="${f#"$data"/}"
        cp "$f" "$out/engine_open/${rel//\//_}"
    done
regressions="$here/../tests/corpus/regressions"
if [ -d "$regressions" ]; then
    find "$regressions" -type f -name '*.cdf' -exec cp {} "$out/engine_open/" \;
fi

# Stored payloads for the decoders: two bytes of expected size (up to 64 KiB, the
# rest is cut), then the payload.
seed_payload() {  # method file
    local size
    size=$(stat -c %s "$data/compression/large_input.bin")
    [ "$size" -gt 65535 ] && size=65535
    { printf "\\x$(printf %02x $((size >> 8)))\\x$(printf %02x $((size & 255)))"; cat "$2"; } \
        >"$out/codec_$1/$(basename "$2")"
}
for m in rle huff ahuff; do
    [ -f "$data/compression/large_$m.bin" ] && seed_payload "$m" "$data/compression/large_$m.bin"
done
# GZIP streams of slices of the sample input, each with its exact size.
if command -v gzip >/dev/null 2>&1; then
    for size in 1 100 4096 30000; do
        for level in 1 6 9; do
            {
                printf "\\x$(printf %02x $((size >> 8)))\\x$(printf %02x $((size & 255)))"
                dd if="$data/compression/large_input.bin" bs="$size" count=1 status=none |
                    gzip -"$level" -c
            } >"$out/codec_gzip/slice_${size}_$level"
        done
    done
fi
# Small payloads cut from the sample files give every decoder short, varied inputs.
for m in rle huff ahuff gzip; do
    for f in "$data"/compression/var_"$m"*.cdf "$data"/compression/file_"$m"*.cdf; do
        [ -f "$f" ] || continue
        for at in 512 2048 4096; do
            { printf '\x04\x00'; dd if="$f" bs=1 skip="$at" count=1024 status=none; } \
                >"$out/codec_$m/$(basename "$f" .cdf)_$at"
        done
    done
done

# The gateway target reads its bytes as choices: a few patterns to start from.
for n in 0 1 2 3 4 5 6 7; do
    printf "%0256d" 0 | tr 0 "\\$(printf %03o $((n * 31 + 1)))" >"$out/gateway/fill_$n"
done
dd if="$data/compression/large_input.bin" bs=4096 count=1 status=none >"$out/gateway/text"

echo "seed corpora in $out: $(find "$out" -type f | wc -l) files"
