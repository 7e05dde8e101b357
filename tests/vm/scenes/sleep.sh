# The computer sleeps, and its USB controller has forgotten everything when it wakes up: in the middle of things.

# With xHCI a true sleep (the controller loses its power). The pedal of "gadget" is in the computer itself, and may not.
sleeps() {
    if [ "$transport" = gadget ]; then
        echo devices >/sys/power/pm_test
    else
        echo none >/sys/power/pm_test
        echo 0 >/sys/class/rtc/rtc0/wakealarm
        echo +3 >/sys/class/rtc/rtc0/wakealarm
    fi
    echo mem >/sys/power/state
    slept=$?
    check "the computer sleeps" [ $slept = 0 ]
}

sleep_idle() {
    fresh_loops
    pedal $three
    echo "        persist: $(cat "$(device)/power/persist")"
    watched
    sleeps
    check "idle: the pedal was gone" until_ grep -q '"disconnected"' /tmp/watch.out
    check "... and is in use again" until_ in_use
    end_watch
    check "... and can be used" ctl --wait 5 import 5 --to /tmp/out
    check "... bit for bit" same /tmp/out/*.wav "/loops/Loop 5.wav"
    check "the pedal saw nothing wrong" pedal_ends
}

# The pedal falls silent in the middle of the audio, so that the sleep comes there. A reset lets it speak again.
silent_under() { # silent_under PROGRAM: waits for that, however slow the machine is
    until at_pedal is_silent || ! kill -0 "$1" 2>/dev/null; do
        sleep 0.1
    done
}
sleep_import() {
    twelve_loops --fault silence@in:800
    import_twelve
    silent_under $import
    sleeps
    wait $import
    status=$?
    echo "        status $status: $(tail -n 1 /tmp/import.err)"
    check "asleep in an import: status 3" [ $status = 3 ]
    check "... no half file" [ "$(ls /tmp/out)" = "Loop 1.wav" ]
    check "... bit for bit" same "/tmp/out/Loop 1.wav" "/loops/twelve/Loop 1.wav"
    until_ ctl --wait 10 list
    import_twelve
    check "... and then all of them" all_twelve
    check "the pedal saw nothing wrong" pedal_ends
}

sleep_export() {
    fresh_loops
    pedal $three --fault silence@out:1500
    export_twelve
    silent_under $export
    sleeps
    wait $export
    status=$?
    cat /tmp/ctl.err
    check "asleep in an export: status 3" [ $status = 3 ]
    check "... no slot after it is touched" [ "$(grep -c 'may now be empty' /tmp/ctl.err)" -le 1 ]
    check "... no loop is lost" at_pedal holds 9 "Loop 9"
    check "... and the pedal is back" ctl --wait 10 list
    check "... and takes loops" ctl --wait 5 export /loops/new.wav --slot 20 --yes --verify
    check "the pedal saw nothing wrong" pedal_ends
}

sleep_firmware() {
    image 2.21 200000 >/tmp/image.bin
    fresh_loops
    pedal --fault silence@out:2
    user "exec kzq7306ctl firmware install /tmp/image.bin --yes" >/tmp/ctl.out 2>/tmp/ctl.err &
    flash=$!
    silent_under $flash
    sleeps
    wait $flash
    status=$?
    echo "        status $status: $(tail -n 1 /tmp/ctl.err)"
    check "asleep in an image: status 3" [ $status = 3 ]
    check "... the same command again installs it" ctl --wait 10 firmware install /tmp/image.bin --yes
    check "the pedal runs the new firmware" runs_firmware 2.21
    check "the pedal saw nothing wrong" pedal_ends
}

# Where the rule is not installed, the kernel takes the pedal away from the program, unseen, when it wakes up.
without_persist() {
    sed -i /persist/d $rules
    udevadm control --reload
    "$1"
    cp /original.rules $rules
    udevadm control --reload
}
sleep_idle_without_rule() { without_persist sleep_idle; }
sleep_import_without_rule() { without_persist sleep_import; }
sleep_export_without_rule() { without_persist sleep_export; }
sleep_firmware_without_rule() { without_persist sleep_firmware; }
