# The Debian packages, in a whole Debian with systemd and logind; what the user may do comes from them alone.
node() { printf /dev/bus/usb/%03d/%03d "$(cat "$(device)/busnum")" "$(cat "$(device)/devnum")"; }
access() { user "test -w $(node)"; }
no_access() { [ -e "$(node)" ] && ! access; }
packages_install() { # not by the shell's own dpkg
    /usr/bin/dpkg -i /debs/kzq7306*.deb >/tmp/ctl.err 2>&1
    status=$?
    udevadm settle
    return $status
}
window_imports() {
    user "PATIENCE=120 KZQ7306=/usr/bin/kzq7306 KZQ7306CTL=/usr/bin/kzq7306ctl PYTHONPATH=/vm/e2e PYTHONDONTWRITEBYTECODE=1 \
        /vm/e2e/desktop /usr/bin/python3 -W ignore /vm/window.py /tmp/out" >/tmp/window.out 2>/tmp/ctl.err
    status=$?
    cat /tmp/window.out
    [ $status = 0 ]
}
three_came() {
    n=0
    for file in /tmp/out/*.wav; do
        for slot in 1 5 9; do
            same "$file" "/loops/Loop $slot.wav" 2>/dev/null >&2 && n=$((n + 1))
        done
    done
    [ "$n $(ls /tmp/out | wc -l)" = "3 3" ]
}

package() {
    loginctl list-sessions --no-legend
    /usr/bin/dpkg -i /debs/kzq7306-simulator_*.deb >/tmp/ctl.err 2>&1
    check "the simulated pedal installs" [ $? = 0 ]
    fresh_loops
    pedal $three
    check "without the packages, the user may not use the pedal" no_access
    check "they install while it is plugged in" packages_install
    check "... and the user at the seat may use it" access
    check "the doctor finds nothing" ctl doctor
    cat /tmp/ctl.out
    check "an ordinary user lists the loops" ctl list
    cat /tmp/ctl.out
    check "... and imports them" ctl import --all --to /tmp/out
    check "... bit for bit" three_came
    rm -f /tmp/out/*
    check "the window imports them" window_imports
    check "... bit for bit" three_came
    check "the pedal saw nothing wrong" pedal_ends
}
