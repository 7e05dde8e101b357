#!/bin/bash
# The real program with the simulated pedal, as a user's script would run it: cli_test.sh PROGRAM
set -u
set -m  # a job in the background of a script without it ignores Ctrl-C

ctl=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

# expect CODE arguments...: runs the program; its output is in $work/out and $work/err
expect() {
    wanted=$1
    shift
    "$ctl" "$@" >"$work/out" 2>"$work/err"
    code=$?
    [ "$code" -eq "$wanted" ] || fail "$* ended with $code instead of $wanted: $(cat "$work/err")"
    [ "$wanted" -eq 0 ] || [ "$wanted" -eq 130 ] || grep -q '^kzq7306ctl: [A-Z"-].*' "$work/err" ||
        fail "$* gave no sentence: $(cat "$work/err")"
}

# fresh: an empty folder, in $to
fresh() {
    to=$(mktemp -d "$work/to.XXXXXX")
}

no_rubbish() {
    rubbish=$(find "$to" -name '.*' -type f)
    [ -z "$rubbish" ] || fail "$1 left $rubbish"
}

# --- what works
fresh
expect 0 --simulate import --all --to "$to"
[ "$(find "$to" -name 'Loop *.wav' | wc -l)" -eq 6 ] || fail "import --all: $(ls -a "$to")"
no_rubbish "import"
first=$to
fresh
expect 0 import --to "$to" 1-3 13 "--simulate=$first"
for slot in 1 2 3 13; do
    cmp "$first/Loop $slot.wav" "$to/Loop $slot.wav" || fail "loop $slot differs after another round"
done
# says TEXT COMMAND...: how other programs read our files
says() {
    text=$1
    shift
    "$@" 2>&1 | tr -s ' ' | grep -q -- "$text" || fail "$* does not say $text: $("$@" 2>&1)"
}
says 'pcm_s24le,44100,2,94500' ffprobe -v error -of csv \
    -show_entries stream=codec_name,sample_rate,channels,duration_ts "$to/Loop 3.wav"

# --- the other direction, with a simulated pedal that keeps what is written to it
fresh
pedal=$to
fresh
expect 0 --simulate import --all --to "$pedal"
TMPDIR=$work/temporary
mkdir "$TMPDIR"
export TMPDIR
expect 0 "--simulate=$pedal" export "$pedal/Loop 1.wav" --slot 20 --verify
cmp "$pedal/Loop 1.wav" "$pedal/Loop 20.wav" || fail "export changed the audio"
expect 2 "--simulate=$pedal" export "$pedal/Loop 1.wav" --slot 20 </dev/null
# answered ANSWER COMMAND...: with a "y" typed ahead; answers once it is asked
answered() {
    reply=$1
    shift
    rm -f "$work/keys" "$work/screen"
    mkfifo "$work/keys" "$work/screen"
    script -qec "read -r line; '$ctl' '--simulate=$pedal' $*" /dev/null \
        <"$work/keys" >"$work/screen" &
    pid=$!
    exec 3>"$work/keys" 4<"$work/screen"
    printf 'go\ny\n' >&3
    read -r -d ']' asked <&4  # up to "[y/N]"
    printf '%s\n' "$reply" >&3
    cat <&4 >"$work/out"
    wait "$pid"
    code=$?
    exec 3>&- 4<&-
}
if command -v script >/dev/null; then
    answered n erase 20
    [ $code -eq 130 ] && [ -e "$pedal/Loop 20.wav" ] || fail "no is not no: $asked $(cat "$work/out")"
    answered y erase 20
    [ $code -eq 0 ] && [ ! -e "$pedal/Loop 20.wav" ] || fail "yes is not yes: $asked $(cat "$work/out")"
else
    echo "skipped: questions on a terminal"
fi
[ -z "$(ls -A "$TMPDIR")" ] || fail "left in $TMPDIR: $(ls -A "$TMPDIR")"
unset TMPDIR

# --- standard streams and JSON
"$ctl" convert - --to - <"$first/Loop 1.wav" 2>"$work/err" | cmp - "$first/Loop 1.wav" ||
    fail "convert - --to -: $(cat "$work/err")"
"$ctl" convert "$first/Loop 1.wav" --to - >/dev/full 2>"$work/err"
[ $? -eq 6 ] || fail "audio onto a full standard output: $(cat "$work/err")"
expect 6 convert - --to - </dev/null
[ ! -s "$work/out" ] || fail "an empty standard input was converted"
# document CODE TROUBLE arguments...: fails, with a document that says so
document() {
    wanted=$1
    trouble=$2
    shift 2
    expect "$wanted" --json "$@"
    python3 -c 'import json, sys
last = [json.loads(line) for line in open(sys.argv[1])][-1]
assert (last["schema"], last["event"], last["exit"], last["trouble"]) == (1, "finished", int(sys.argv[2]), sys.argv[3])
' "$work/out" "$wanted" "$trouble" || fail "--json $*: $(cat "$work/out")"
}
document 2 usage lst
document 3 unplugged --simulate --fault unplug@in:1200 import --all --to "$to"
expect 0 --json --version

# --- closed standard streams must not get a recording's number
for _ in 1 2; do
    fresh
    "$ctl" --simulate import --all --to "$to" <&- >&- 2>/dev/null
    [ $? -eq 6 ] || fail "a closed standard output is no error"
    for slot in 1 2 3 13; do
        cmp "$first/Loop $slot.wav" "$to/Loop $slot.wav" || fail "loop $slot differs without standard streams"
    done
done

# --- a recording on a full disk, after which the work goes on without it
fresh
(
    ulimit -f 1200
    "$ctl" --simulate --record "$to/session" import 1 --to "$to" >/dev/null 2>"$work/err"
) || fail "a recording without room: $(cat "$work/err")"
[ "$(grep -c "ends here" "$work/err")" = 1 ] && [ -z "$(tail -c 1 "$to/session" | tr -d '\n')" ] ||
    fail "a recording without room: $(cat "$work/err")"
cmp "$first/Loop 1.wav" "$to/Loop 1.wav" || fail "an import beside a recording without room differs"

# --- a recording plays as the pedal that it was made with, and becomes a capture
fresh
expect 0 --simulate --record "$to/session" import 3 --to "$to"
mkdir "$to/again"
expect 0 --replay "$to/session" import 3 --to "$to/again"
cmp "$to/Loop 3.wav" "$to/again/Loop 3.wav" || fail "a replay differs from its session"
expect 5 --replay "$to/session" import 2 --to "$to/again"
grep -q 'something else: line [0-9]*: recorded' "$work/err" || fail "another command: $(cat "$work/err")"
expect 0 --simulate --record "$to/sent" export "$to/Loop 3.wav" --slot 20
expect 0 --replay "$to/sent" export "$to/Loop 3.wav" --slot 20
printf x | dd of="$to/Loop 3.wav" bs=1 seek=2000 conv=notrunc status=none
expect 5 --replay "$to/sent" export "$to/Loop 3.wav" --slot 20
grep -q 'something else: line [0-9]*: recorded' "$work/err" || fail "other audio: $(cat "$work/err")"
for options in "" --without-audio; do
    expect 0 recording "$to/session" --to-pcapng "$to/capture$options" $options
done
[ "$(stat -c %s "$to/capture")" -gt 500000 ] && [ "$(stat -c %s "$to/capture--without-audio")" -lt 500000 ] ||
    fail "captures: $(ls -l "$to")"
expect 6 recording "$to/session" --to-pcapng "$to/capture"
expect 6 recording "$to/Loop 3.wav" --to-pcapng "$to/none"
[ ! -e "$to/none" ] || fail "a capture of nothing"

# --- exit codes
expect 2
expect 2 --simulate --fault nonsense list
expect 2 --simulate import $'\e[2J' --to "$to"
grep -q '"?\[2J" is not a slot' "$work/err" || fail "control bytes: $(cat -v "$work/err")"
expect 5 --simulate --fault silence@in:5 --patience 0.2 import --all --to "$to"
no_rubbish "a failed import"
"$ctl" --simulate list >/dev/full 2>"$work/err"
[ $? -eq 6 ] || fail "a full standard output is no error"

# --- Ctrl-C as soon as the first loop is saved; the next one hangs in its first read
# interrupted CODE SIGNAL...
interrupted() {
    wanted=$1
    shift
    fresh
    rm -f "$work/pipe"
    mkfifo "$work/pipe"
    "$ctl" --simulate --fault silence@in:1035 import 1 2 --to "$to" >"$work/pipe" 2>"$work/err" &
    pid=$!
    exec 3<"$work/pipe"
    read -r line <&3
    for signal in "$@"; do
        kill -s "$signal" "$pid"
    done
    wait "$pid"
    code=$?
    exec 3<&-
    [ "$code" -eq "$wanted" ] || fail "$* ended with $code: $(cat "$work/err")"
    [ "$(ls -A "$to")" = "Loop 1.wav" ] || fail "$* after \"$line\" left $(ls -A "$to")"
}
interrupted 130 INT
grep -q '^kzq7306ctl: Cancelled' "$work/err" || fail "Ctrl-C gave no sentence"
interrupted 130 TERM

# --- firmware; signals during the installation
image=$work/new.bin
printf 'an image of the 7306 firmware 1.06, or so' >"$image"
mkfifo "$work/signalled" "$work/pipe.bin"
"$ctl" --simulate firmware install "$image" --yes >"$work/signalled" 2>"$work/signalled.err" &
pid=$!
exec 5<"$work/signalled"
while read -r line <&5 && [[ $line != *"prepares for 8 seconds"* ]]; do :; done
kill -s INT "$pid"
kill -s TERM "$pid"
signalled=$pid
expect 6 --simulate firmware install "$work/pipe.bin" --yes
wait "$signalled"
code=$?
cat <&5 >"$work/out"
[ $code -eq 5 ] && grep -q 'not known whether it is installed' "$work/signalled.err" &&
    grep -q 'Waiting until the firmware is complete' "$work/signalled.err" ||
    fail "firmware, Ctrl-C: $code $(cat "$work/out" "$work/signalled.err")"

[ "$failures" -eq 0 ]
