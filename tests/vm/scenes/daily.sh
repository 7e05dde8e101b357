# What a user does every day, and what happens to a cable.
only_9_is_erased() { at_pedal has 1 && ! at_pedal has 9; }

daily_work() {
    fresh_loops
    pedal $three
    check "the interface is free at arrival" [ ! -e "$(device)"/*:1.0/driver ]
    check "the doctor finds nothing" ctl doctor
    cat /tmp/ctl.out
    check "an ordinary user lists the loops" ctl list
    cat /tmp/ctl.out
    start=$(now)
    check "imports loops of the channels 1, 2 and 255" ctl import --all --to /tmp/out
    echo "        in $(($(now) - start))0 ms"
    ls /tmp/out >/tmp/names
    check "three files" [ "$(wc -l </tmp/names)" = 3 ]
    for slot in 1 5 9; do
        imported=$(ls -S /tmp/out/*.wav | sed -n "$(case $slot in 9) echo 1 ;; 5) echo 2 ;; 1) echo 3 ;; esac)p")
        check "loop $slot is the same bit for bit" same "$imported" "/loops/Loop $slot.wav"
    done
    check "exports onto an empty slot" ctl export /loops/new.wav --slot 2 --yes
    check "... bit for bit" at_pedal holds 2 new
    check "exports onto an occupied slot" ctl export /loops/other.wav --slot 5 --yes --verify
    check "... bit for bit" at_pedal holds 5 other
    check "erases" ctl erase 9 --yes
    check "... the right one" only_9_is_erased
    check "the pedal saw nothing wrong" pedal_ends
}

pulled_cable() {
    fresh_loops
    pedal $three --fault unplug@in:100 --fault unplug@out:50
    start=$(now)
    ctl import 9 --to /tmp/out
    check "unplugged in an import: status 3" [ $? = 3 ]
    echo "        after $(($(now) - start))0 ms: $(tail -n 1 /tmp/ctl.err)"
    check "no half file" [ -z "$(ls /tmp/out)" ]
    at_pedal plug
    until_ bus 1
    check "it returns and the import goes on" ctl --wait 10 import 9 --to /tmp/out
    check "... bit for bit" same /tmp/out/*.wav "/loops/Loop 9.wav"
    ctl export /loops/new.wav --slot 3 --yes
    check "unplugged in an export: status 3" [ $? = 3 ]
    echo "        $(tail -n 1 /tmp/ctl.err)"
    at_pedal plug
    until_ bus 1
    check "it returns and the export goes on" ctl --wait 10 export /loops/new.wav --slot 3 --yes
    check "... bit for bit" at_pedal holds 3 new
    check "the pedal saw nothing wrong" pedal_ends
}

replugged() {
    fresh_loops
    pedal $three
    watched
    for n in 1 2 3 4 5 6 7 8 9 10; do
        at_pedal pull
        sleep 0.$((n % 3))2
        at_pedal plug
        sleep 0.$((n % 4))7
    done
    until_ bus 1
    udevadm settle
    check "ten quick replugs end with the pedal in use" until_ in_use
    end_watch
    check "... and it can be used" ctl --wait 5 list
    check "the pedal saw nothing wrong" pedal_ends
}

# The way of developers who do not let the pedal attach itself: Debian's own tools.
usbip_tools() {
    kzq7306-pedal >/tmp/pedal.out 2>/tmp/pedal.err &
    pedal=$!
    until_ usbip list -r 127.0.0.1 2>/dev/null | grep -q 308a:0104
    check "usbip lists it" [ $? = 0 ]
    check "usbip attaches it" usbip attach -r 127.0.0.1 -b 1-1
    until_ bus 1
    udevadm settle
    check "an ordinary user lists the loops" ctl --wait 10 list
    at_pedal pull
    check "it leaves when the cable is pulled" until_ bus 0
    at_pedal plug
    check "usbip attaches it again" until_ usbip attach -r 127.0.0.1 -b 1-1 2>/dev/null
    check "it is there" until_ bus 1
    usbip port 2>/dev/null | sed -n "s/^Port \([0-9]*\).*/\1/p" | head -n 1 >/tmp/port
    check "usbip detaches it" usbip detach -p "$(cat /tmp/port)"
    check "the pedal saw nothing wrong" pedal_ends
}

decoder_is_caged() {
    user "test_locked_child --gtest_filter=*ReachesNothing*" >/tmp/ctl.err 2>&1 && says "PASSED.* 1 test"
}
decoders_cage() {
    mount -t securityfs none /sys/kernel/security
    check "this kernel has Landlock" grep -q landlock /sys/kernel/security/lsm
    check "a decoder reaches nothing but its source" decoder_is_caged
}
