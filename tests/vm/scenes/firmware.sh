# Firmware, and pedals that fail in the middle of it.
firmware() {
    image 2.17 17000000 >/tmp/image.bin # more than the kernel takes in one transfer
    pedal
    start=$(now)
    check "an image of 17,000,000 bytes, across the restart into the loader" ctl firmware install /tmp/image.bin --yes
    echo "        in $(($(now) - start))0 ms: $(tail -n 1 /tmp/ctl.out)"
    check "the pedal runs the new firmware" runs_firmware 2.17
    check "the pedal saw nothing wrong" pedal_ends
    rm /tmp/image.bin
}

broken_firmware() {
    image 2.18 200000 >/tmp/image.bin
    pedal --fault unplug@E4
    ctl --patience 10 firmware install /tmp/image.bin --yes
    check "a pedal that does not come back from its restart: status 3" [ $? = 3 ]
    check "... in plain words" says "did not come back after restarting. Nothing was installed."
    tail -n 1 /tmp/ctl.err
    check "the pedal saw nothing wrong" pedal_ends
    pedal --fault unplug@out:2
    ctl firmware install /tmp/image.bin --yes
    check "unplugged in the image: status 3" [ $? = 3 ]
    check "... in plain words" says "was unplugged before the firmware was complete.*run the same command again"
    at_pedal plug
    until_ bus 1
    ctl --wait 10 list
    check "it returns with its loader only" says "needs firmware"
    check "the same command again fixes it" ctl --wait 10 firmware install /tmp/image.bin --yes
    check "the pedal runs the new firmware" runs_firmware 2.18
    check "the pedal saw nothing wrong" pedal_ends
}
