# Other programs, which want the pedal, or keep the computer busy.
second_program() {
    twelve_loops
    import_twelve
    user "exec kzq7306ctl --wait 100 list" >/tmp/wait.out 2>&1 &
    waiting=$!
    lists=0
    while importing; do
        ctl list
        [ $? = 5 ] && says "in use by kzq7306ctl" && lists=$((lists + 1))
        ctl doctor
    done
    check "a list in a loop beside an import costs it nothing" all_twelve
    check "... and says who has the pedal ($lists times)" [ $lists -gt 0 ]
    check "... and with --wait it has its turn" wait $waiting
    check "the pedal saw nothing wrong" pedal_ends
}

busy_udev() {
    # Access comes a second and a half late, as on a busy machine.
    echo 'SUBSYSTEM=="usbmisc", PROGRAM="/bin/sleep 1.5"' >/usr/lib/udev/rules.d/60-slow.rules
    udevadm control --reload
    fresh_loops
    pedal $three
    check "imports though access comes late" ctl import --all --to /tmp/out
    check "... all of it" [ "$(ls /tmp/out | wc -l)" = 3 ]
    check "the pedal saw nothing wrong" pedal_ends
    rm /usr/lib/udev/rules.d/60-slow.rules
    udevadm control --reload
    twelve_loops
    import_twelve
    while importing; do
        udevadm trigger --action=add --subsystem-match=usb --subsystem-match=usbmisc
        udevadm settle
        sleep 0.3
    done
    check "imports while udev is triggered again and again" all_twelve
    udevadm settle
    check "the pedal saw nothing wrong" pedal_ends
}

left_bound() {
    fresh_loops
    pedal $three
    device=$(basename "$(device)")
    echo "$device:1.0" >/sys/bus/usb/drivers/usbtmc/bind
    check "the driver has the interface" [ -e "/sys/bus/usb/drivers/usbtmc/$device:1.0" ]
    check "the driver that a killed program left there is no obstacle" ctl import 5 --to /tmp/out
    check "... bit for bit" same /tmp/out/*.wav "/loops/Loop 5.wav"
    check "the pedal saw nothing wrong" pedal_ends
}

# What the kernel does to a claim when the computer wakes up and resets the pedal: it takes the interface away and
# offers it to the driver that knows the pedal.
take_away() {
    interface=$(basename "$(device)"):1.0
    echo "$interface" >/sys/bus/usb/drivers/usbfs/unbind
    echo "$interface" >/sys/bus/usb/drivers/usbtmc/bind
}

taken_away() {
    fresh_loops
    pedal $three
    watched
    take_away
    sleep 7
    check "a claim lost while nothing happens: gone and back" grep -q '"disconnected"' /tmp/watch.out
    end_watch
    check "... and usable" ctl list
    export_twelve
    until_ at_pedal has 3
    take_away
    wait $export
    status=$?
    cat /tmp/ctl.err
    check "lost in an export: status $status" [ $status = 3 ]
    check "... no slot after it is touched" [ "$(grep -c 'may now be empty' /tmp/ctl.err)" -le 1 ]
    check "... and the pedal is back" ctl --wait 5 list
    image 2.19 3000000 >/tmp/image.bin
    user "kzq7306ctl firmware install /tmp/image.bin --yes" >/tmp/ctl.out 2>/tmp/ctl.err &
    flash=$!
    sleep 6
    take_away
    wait $flash
    echo "        firmware: status $?: $(tail -n 1 /tmp/ctl.err)"
    check "lost in an update: the same command again installs it" ctl --wait 10 firmware install /tmp/image.bin --yes
    check "the pedal runs the new firmware" runs_firmware 2.19
    check "the pedal saw nothing wrong" pedal_ends
}
