#include "ctl/speech/command_line.h"

#include "ctl/speech/slot_list.h"
#include "device/usb_port.h"
#include "loops/facts.h"

namespace kzq::ctl {
namespace {

constexpr const char* footer =
    "Exit status:\n"
    "  0    success\n"
    "  2    wrong usage, or confirmation was needed and standard input is not a terminal\n"
    "  3    no pedal is connected, or it was unplugged\n"
    "  4    no permission to use the pedal, or the computer does not pass on what import needs\n"
    "  5    the pedal refused, is busy, in use, full or silent; the slot is empty; sent firmware is "
    "unconfirmed\n"
    "  6    a file or folder could not be read, converted or written\n"
    "  7    some loops failed or are not as expected; the others succeeded\n"
    "  8    the update server could not be reached, or what it sent cannot be used\n"
    "  130  cancelled, or a question was answered with no\n";

constexpr const char* globalHint = "\"kzq7306ctl --help\" lists the options that all commands have.\n\n";

constexpr const char* audioFiles =
    "WAV, AIFF, FLAC, MP3, M4A, AAC, AC3, Ogg Vorbis, Opus, WavPack, W64, RF64 or CAF";

std::string checkSeconds(const std::string& text) {
    constexpr double limit = 1e6;
    double seconds = -1;
    if (CLI::detail::lexical_cast(text, seconds) && seconds >= 0 && seconds <= limit) {
        return {};
    }
    return "\"" + text + "\" is not a number of seconds between 0 and 1000000";
}

std::string checkSlot(const std::string& text) {
    const auto slot = slotFromWord(text);
    return slot ? ""
           : slot.error().kind == Trouble::Kind::notASlot
               ? "\"" + text + "\" is not a slot number"
               : "There is no slot " + text + "; slots are numbered 1 to " + std::to_string(loopSlots);
}

}  // namespace

CommandLine::CommandLine()
    : app("Manages the loop memory of a 7306 looper pedal.", "kzq7306ctl"), simulate(app) {
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("-V,--version", "kzq7306ctl " KZQ_VERSION, "Show the version and exit");
    app.footer(footer);
    addGlobalOptions();
    addReading();
    addWriting();
    addBackups();
    addConverting();
    addFirmware();
    addRecording();
    addHelp();
    app.require_subcommand(1);
}

void CommandLine::addGlobalOptions() {
    app.add_flag("--json", options.json,
                 "Machine-readable output: one JSON document for list and firmware, one object per line for "
                 "the other commands");
    app.add_flag("--verbose", options.verbose, "Show the log on standard error");
    app.add_option("--wait", words.wait, "Wait up to SECONDS for a pedal to be connected and free")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_option("--patience", words.patience,
                   "Give up if the pedal does not answer for SECONDS (default 30; firmware install 60; 0 = "
                   "never)")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_option(
           "--in-flight", options.readsInFlight,
           "Ask a pedal on USB for up to N pieces of a loop at once, 1 to 32, which is faster (default "
           "1; no real pedal has been tried with more)")
        ->option_text("N")
        ->check(CLI::Range(1U, mostReadsInFlight));
    app.add_option("--host", options.host, "Ask this server for firmware, not the maker's")
        ->option_text("HOST[:PORT]");
    app.add_option("--authorities", options.authorities,
                   "Trust these certificates (PEM) instead of the system's")
        ->option_text("FILE");
    app.add_option("--record", words.record,
                   "Record all USB traffic, audio included, to a new file, for troubleshooting")
        ->option_text("FILE");
    app.add_option("--replay", words.replay,
                   "Play a recording in place of a pedal, for the command that it was made with")
        ->option_text("FILE")
        ->excludes("--simulate");
}

CLI::App* CommandLine::add(CLI::App& parent, const char* name, Subcommand subcommand,
                           const std::string& description) {
    auto* const added = parent.add_subcommand(name, description);
    added->callback([this, subcommand] { options.subcommand = subcommand; });
    added->fallthrough()->footer(std::string(globalHint) + footer);
    return added;
}

void CommandLine::addSlots(CLI::App& subcommand) {
    subcommand.add_option("SLOTS", words.slots, "Slots from 1 to 20 and ranges, such as 1 3-5 8")
        ->option_text(" ");
    subcommand.add_flag("--all", options.all, "Every loop on the pedal");
}

void CommandLine::addYes(CLI::App& subcommand) {
    subcommand.add_flag("--yes", options.yes, "Proceed without asking for confirmation");
}

void CommandLine::addReading() {
    add(app, "list", Subcommand::list, "List the loops and the free space on the pedal");

    auto* const import = add(app, "import", Subcommand::import, "Copy loops from the pedal to WAV files");
    addSlots(*import);
    import->add_option("--to", words.folder, "Folder for the files; created if only its last part is missing")
        ->option_text("FOLDER")
        ->required();

    auto* const doctor =
        add(app, "doctor", Subcommand::doctor,
            "Find out what keeps the pedal from being used, and show the commands that fix it");
    auto* const install =
        doctor->add_flag("--install", options.install,
                         "Run those that put the system's rules for the pedal into place, as root");
    doctor
        ->add_flag("--remove", options.remove,
                   "Remove what --install has put into place, as root, and no more")
        ->excludes(install);
    auto* const report =
        doctor
            ->add_option("--report", words.report,
                         "Save what was found, with versions and the log, to a new file that can be sent; "
                         "names of files, and yours, are left out")
            ->option_text("FILE");
    doctor->add_flag("--with-names", options.withNames, "Leave names of files in the report")->needs(report);

    add(app, "watch", Subcommand::watch,
        "Show when the pedal is connected, unplugged or changed, until Ctrl-C");
}

void CommandLine::addWriting() {
    auto* const sending =
        add(app, "export", Subcommand::exportFiles, "Convert audio files and write them to the pedal");
    sending->add_option("FILE", words.files, std::string(audioFiles) + " files")
        ->option_text(" ")
        ->required();
    auto* const slot =
        sending->add_option("--slot", words.slot, "Slot of the first file; the others use the slots after it")
            ->option_text("N")
            ->check(CLI::Validator(checkSlot, ""));
    sending->add_flag("--first-free", words.firstFree, "Use the first free slots (default)")->excludes(slot);
    sending->add_flag("--verify", options.verify, "Read each loop back and compare it, sample for sample");
    addLevels(*sending);
    addYes(*sending);

    auto* const erase = add(app, "erase", Subcommand::erase, "Erase loops on the pedal permanently");
    addSlots(*erase);
    addYes(*erase);
}

void CommandLine::addBackups() {
    auto* const backup = add(
        app, "backup", Subcommand::backup,
        "Copy every loop to a new dated folder in FOLDER, beside those of earlier backups, with an index for "
        "\"restore\". Loops that have not changed take no space where files can have two names. After an "
        "interruption, run it again");
    backup
        ->add_option("FOLDER", words.folder,
                     "Folder of all backups; created if only its last part is missing")
        ->option_text(" ")
        ->required();
    backup->add_flag("--list", options.list, "Show which backups there are; needs no pedal");

    auto* const diff = add(app, "diff", Subcommand::diff,
                           "Compare the pedal with a backup, slot by slot. Exit status 7 if they differ");
    addSnapshot(*diff);
    diff->add_flag("--quick", options.quick, "Compare only lengths; takes no time");

    auto* const restore = add(
        app, "restore", Subcommand::restore,
        "Make the pedal's loops those of a backup, bit for bit. Slots that are empty in the backup are "
        "erased, unless SLOTS are given. Loops that are already the same are left alone, so it can be run "
        "again after an interruption. Only audio is written: the pedal accepts no tempo or channel from a "
        "computer");
    addSnapshot(*restore);
    restore
        ->add_option("SLOTS", words.slots, "Only these loops, such as 1 3-5 8; the others stay as they are")
        ->option_text(" ");
    restore->add_flag("--skip-damaged", options.skipDamaged,
                      "Leave out loops whose files in the backup are missing or were changed");
    addYes(*restore);
}

void CommandLine::addSnapshot(CLI::App& subcommand) {
    subcommand.add_option("FOLDER", words.folder, "Folder of all backups, or of one")
        ->option_text(" ")
        ->required();
    subcommand.add_option("--snapshot", words.snapshot, "The backup of that name, not the newest")
        ->option_text("NAME");
}

void CommandLine::addLevels(CLI::App& command) {
    command.add_flag("--salvage", options.salvage,
                     "Convert what there is of a file that is damaged or incomplete");
    command.add_flag("--normalize", options.normalize, "Bring the true peak to -1 dB");
}

void CommandLine::addConverting() {
    auto* const convert = add(app, "convert", Subcommand::convert,
                              "Convert an audio file to the pedal's format, without a pedal");
    convert->add_option("FILE", words.files, std::string(audioFiles) + " file, or - for standard input")
        ->option_text(" ")
        ->expected(1)
        ->required();
    convert
        ->add_option("--to", words.output,
                     "New file, or - for standard output; existing files are never overwritten")
        ->option_text("OUT.wav")
        ->required();
    addLevels(*convert);
}

void CommandLine::addFirmware() {
    auto* const firmware = add(app, "firmware", Subcommand::firmware,
                               "Show the pedal's firmware version and the newest one available");
    auto* const install = add(
        *firmware, "install", Subcommand::firmwareInstall,
        "Install the newest firmware, if it is newer than the pedal's, or the firmware in FILE. This also "
        "repairs a pedal that is stuck in its loader. Once started, it cannot be cancelled: even after "
        "Ctrl-C, the exit status says how it ended");
    install->add_option("FILE", words.files, "Firmware image from the pedal's maker; it cannot be verified")
        ->option_text(" ")
        ->expected(0, 1);
    addYes(*install);
    // The callback of a subcommand's own subcommand comes first.
    firmware->callback([this, install] {
        options.subcommand = install->parsed() ? Subcommand::firmwareInstall : Subcommand::firmware;
    });
}

void CommandLine::addRecording() {
    auto* const recording =
        add(app, "recording", Subcommand::recording, "Convert a recording for a packet analyser");
    recording->add_option("FILE", words.files, "Made with --record")
        ->option_text(" ")
        ->expected(1)
        ->required();
    recording->add_option("--to-pcapng", words.output, "New file; existing files are never overwritten")
        ->option_text("OUT.pcapng")
        ->required();
    recording->add_flag("--without-audio", options.withoutAudio,
                        "Leave out what audio and firmware consist of");
}

void CommandLine::addHelp() {
    auto* const help = app.add_subcommand("help", "Show the help of a command");
    help->add_option("COMMAND", words.topic, "Such as import, or firmware install")->option_text(" ");
    help->fallthrough()->footer(std::string(globalHint) + footer);
}

}  // namespace kzq::ctl
