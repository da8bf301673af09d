#!/bin/sh
# Regenerates the small archives in tests/launch/fixtures with outside archivers (Debian's
# jlha-utils, Info-ZIP zip, gcab, python3's zipfile for the hostile names). Member times are
# fixed, so that the tests can check them.
set -eu
out=$(cd "$(dirname "$0")/.." && pwd)/tests/launch/fixtures
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$out"
cd "$work"

sjis_game=$(printf '\203\121\201\133\203\200.D88')  # "ゲーム.D88" in Shift-JIS
mkdir -p src/A src/B
printf 'disk in A\n' > src/A/GAME.D88
printf 'disk in B, another one\n' > src/B/GAME.D88
seq 1 400 > src/README.TXT                         # large enough to be compressed
printf 'japanese name\n' > "src/ゲーム.D88"
printf 'japanese name\n' > "src/$sjis_game"
printf 'memo\n' > "src/メモ.TXT"
find src -exec touch -h -d '2001-02-03 04:05:06' {} +

# LZH: jlha writes Shift-JIS names with "y" (else a "?" for each character); methods -lh5-,
# -lh6-, -lh7- (o5, o6, o7); header levels 0, 1, 2.
cd src
# (The header level digit goes before the method option.)
jlha a1o5y "$work/jlha_lh5.lzh" README.TXT A/GAME.D88 B/GAME.D88 "ゲーム.D88" >/dev/null
jlha a0o5 "$work/jlha_level0.lzh" README.TXT >/dev/null
jlha a2o5y "$work/jlha_level2.lzh" README.TXT "ゲーム.D88" >/dev/null
jlha a2o6 "$work/jlha_lh6.lzh" README.TXT >/dev/null
jlha a1o7 "$work/jlha_lh7.lzh" README.TXT >/dev/null
# An archive that held one file which was deleted again: no member left.
jlha a1o5 "$work/empty.lzh" README.TXT >/dev/null
jlha d "$work/empty.lzh" README.TXT >/dev/null

# ZIP: Info-ZIP keeps the bytes of a Shift-JIS file name and flags a UTF-8 one.
zip -q -X "$work/infozip.zip" README.TXT A/GAME.D88 B/GAME.D88 "$sjis_game" "メモ.TXT"
zip -q -X "$work/empty.zip" README.TXT
zip -q -d "$work/empty.zip" README.TXT
ln -s /etc/passwd passwd.lnk
zip -q -X -y "$work/symlink.zip" passwd.lnk README.TXT

# CAB: gcab with MSZIP, paths kept (A\GAME.D88), a raw Shift-JIS name and a UTF-8 one.
gcab -cz "$work/gcab.cab" README.TXT A/GAME.D88 B/GAME.D88 "$sjis_game" "メモ.TXT"
cd "$work"

# Shift-JIS names whose characters end in the byte of "\\" ("ソフト表"), at the top and in a
# subdirectory: LZH of header levels 0, 1 and 2, ZIP and CAB with the raw bytes.
mkdir -p s5c/DIR
s5c=$(printf '\203\134\203\164\203\147\225\134')  # "ソフト表" in Shift-JIS
printf 'soft\n' > "s5c/ソフト表.D88"
printf 'in dir\n' > "s5c/DIR/ソフト表2.D88"
printf 'soft\n' > "s5c/$s5c.D88"
printf 'in dir\n' > "s5c/DIR/${s5c}2.D88"
find s5c -exec touch -h -d '2001-02-03 04:05:06' {} +
(cd s5c &&
    for l in 0 1 2; do
        jlha a${l}o5y "$work/sjis5c_level$l.lzh" "ソフト表.D88" "DIR/ソフト表2.D88" >/dev/null
    done &&
    zip -q -X "$work/sjis5c.zip" "$s5c.D88" "DIR/${s5c}2.D88" &&
    gcab -cz "$work/sjis5c.cab" "$s5c.D88" "DIR/${s5c}2.D88")

# Hostile names: parent directories, absolute paths, drive letters, backslashes, devices.
python3 - <<'PY'
import zipfile
with zipfile.ZipFile("slip.zip", "w", zipfile.ZIP_DEFLATED) as z:
    t = (2001, 2, 3, 4, 5, 6)
    for name, data in [("../evil1.txt", b"1"), ("/tmp/evil2.txt", b"2"),
                       ("C:\\evil\\evil3.txt", b"3"), ("..\\..\\evil4.txt", b"4"),
                       ("sub/../../evil5.txt", b"5"), ("CON", b"6"), ("lpt1.txt", b"7"),
                       ("..", b"8"), ("ok.txt", b"ok")]:
        z.writestr(zipfile.ZipInfo(name, t), data)
PY

# Damaged copies: a flipped byte inside the compressed data, and a truncated archive.
damage() { # file offset
    printf '\377' | dd of="$1" bs=1 seek="$2" conv=notrunc status=none
}
cp jlha_lh5.lzh corrupt.lzh && damage corrupt.lzh 200
head -c 300 jlha_lh5.lzh > truncated.lzh
cp infozip.zip corrupt.zip && damage corrupt.zip 80
head -c 200 infozip.zip > truncated.zip
cp gcab.cab corrupt.cab && damage corrupt.cab 230
head -c 260 gcab.cab > truncated.cab

for f in *.lzh *.zip *.cab; do cp "$f" "$out/$f"; done
