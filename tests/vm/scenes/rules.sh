# A part of the rules is missing. Comes last, since it changes them.
refused_in_time() {
    start=$(now)
    ctl list
    usual=$(($(now) - start)) # on a busy host, starting a program alone takes its time
    start=$(now)
    ctl import 1 --to /tmp/out
    status=$?
    took=$(($(now) - start - usual))
    check "an import fails, which is not the pedal's fault (status $status, ${took}0 ms longer than a list)" [ $status = 4 -a $took -lt ${1}00 ]
    cp /tmp/ctl.err /tmp/first.err
    user "kzq7306ctl import 1 --to /tmp/out" >/tmp/ctl.out 2>/tmp/ctl.err
    check "... with the reason and the remedy" says "this computer did not pass the request on.*Run: "
    cat /tmp/ctl.err
}

without_access() {
    sed -i /usbmisc/d $rules
    udevadm control --reload
    fresh_loops
    pedal $three
    echo "        the driver knows the pedal, but the user may not use its node"
    refused_in_time 12
    ctl doctor
    check "... and the doctor, who tries it, says so" grep -q "could not be opened in time.*rule for it is not installed" /tmp/ctl.out
    check "the pedal is still there" ctl list
    check "the pedal saw nothing wrong" pedal_ends
}

without_road() {
    sed -i /usbtmc/d $rules
    udevadm control --reload
    echo "308a 0104" >/sys/bus/usb/drivers/usbtmc/remove_id
    fresh_loops
    pedal $three
    check "without the usbtmc rules it still lists" ctl list
    ctl doctor
    check "... and the doctor knows what is missing" grep -q "Loops cannot be imported.*rules for that are not installed" /tmp/ctl.out
    refused_in_time 1
    check "the pedal saw nothing wrong" pedal_ends
}

without_rules() {
    rm $rules
    udevadm control --reload
    echo "308a 0104" >/sys/bus/usb/drivers/usbtmc/remove_id 2>/dev/null
    fresh_loops
    pedal $three
    ctl doctor
    check "without any rule, the doctor knows it" grep -q "rule is not installed" /tmp/ctl.out
    ctl list
    check "without any rule: no permission, status 4" [ $? = 4 ]
    check "... with the remedy" says "sudo install .*70-kzq7306.rules .*udevadm trigger"
    tail -n 1 /tmp/ctl.err
    # The command that the diagnosis gives, without pulling the cable.
    cp /original.rules $rules
    udevadm control --reload && udevadm trigger --action=add --subsystem-match=usb --attr-match=idVendor=308a
    udevadm settle
    check "with the rules installed and triggered, an import works" ctl import 5 --to /tmp/out
    check "... bit for bit" same /tmp/out/*.wav "/loops/Loop 5.wav"
    check "the pedal saw nothing wrong" pedal_ends
}
