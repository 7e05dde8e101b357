# How fast a loop is read, one piece at a time and with 32 reads in flight, against libusb alone; bench/usb_reads. Not
# among the usual scenes, as it looks at figures:
#     SCENES="vhci:speed gadget:speed" tests/vm/run build/vm .../kzq7306ctl .../kzq7306-pedal .../usb_reads
microseconds() { user "usb_reads $1 7"; }
median() { sort -n "/tmp/$1" | sed -n 4p; }

speed() {
    at_pedal lay twelve
    pedal --channel 7=7
    check "the pedal is in the table" ctl list
    rm -f /tmp/bare /tmp/1 /tmp/32
    for run in 1 2 3 4 5 6 7; do
        for way in bare 1 32; do
            microseconds $way >>/tmp/$way || check "read by $way" false
        done
    done
    bare=$(median bare) one=$(median 1) many=$(median 32)
    echo "        586 pieces: libusb alone $bare µs, one at a time $one µs, 32 in flight $many µs"
    awk "BEGIN { printf \"        one at a time against libusb alone: %.3f; against 32 in flight: %.2f\n\", $one / $bare, $one / $many }"
    check "the pedal saw nothing wrong" pedal_ends
}
