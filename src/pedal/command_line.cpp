#include "pedal/command_line.h"

namespace kzq::pedal {
namespace {

constexpr const char* footer =
    "Signals:\n"
    "  SIGUSR1  unplug the pedal\n"
    "  SIGUSR2  plug it in again\n"
    "  SIGINT   end the program, like SIGTERM\n"
    "Exit status:\n"
    "  0  success\n"
    "  1  the computer sent something that it never should (listed on standard error)\n"
    "  2  wrong usage\n"
    "  3  the pedal cannot be offered\n";

}  // namespace

CommandLine::CommandLine() : app("A simulated 7306 looper pedal as a USB device.", "kzq7306-pedal") {
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("-V,--version", "kzq7306-pedal " KZQ_VERSION, "Show the version and exit");
    app.footer(footer);
    app.add_option(
           "--listen", options.place,
           "Offer the pedal over USB/IP at this address (default 127.0.0.1:3240; empty: nowhere). With "
           "any address other than a loopback one, everyone on that network can use the pedal")
        ->option_text("ADDRESS:PORT");
    app.add_flag("--attach", options.attach,
                 "Plug the pedal into this computer, and again whenever it comes back. Requires root and the "
                 "kernel module vhci-hcd");
    app.add_flag(
           "--gadget{/dev/gadget}", options.gadget,
           "Be a true USB device at this computer's device port (or, with the kernel module dummy_hcd, on a "
           "bus of its own), instead of over USB/IP, through GadgetFS. Requires root and GadgetFS mounted at "
           "/dev/gadget")
        ->option_text("FOLDER");
    app.add_option("--usbredir", options.usbredir,
                   "Be in a machine that QEMU emulates, through its usb-redir, instead of over USB/IP: "
                   "connect to the "
                   "Unix socket at which its -chardev listens")
        ->option_text("SOCKET");
    app.add_option("--folder", options.folder, "Keep the loops in this folder, as WAV files")
        ->option_text("FOLDER");
    app.add_option("--firmware", options.firmware, "Firmware version, 4 characters (default 1.05)")
        ->option_text("VERSION");
    app.add_flag("--blank", blank, "Simulate a factory-blank pedal, which runs only its loader");
    app.add_option("--channel", channels, "Channel of a loop, such as 3=255 (repeatable)")
        ->option_text("SLOT=CHANNEL")
        ->allow_extra_args(false);
    app.add_option("--fault", faults,
                   "Make the pedal fail: KIND@WHERE[:COUNT][+], such as unplug@in:100 (repeatable)")
        ->option_text("PLAN")
        ->allow_extra_args(false);
}

}  // namespace kzq::pedal
