#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "operations/flash.h"
#include "operations/outcome.h"
#include "platform/trouble.h"

namespace kzq {

// The only place that puts troubles into words for a user: what is, why, and what to do. Complete sentences.
// Any thread. What only the tool says is in English, and so are its parts of the others.

/// Why the pedal cannot be used, or why work with it has ended.
std::string pedalSentence(const Trouble& trouble);
/// Of a loop that failed or is not what it should be. `done`, here and below, is what the operation does to
/// loops: "saved", "written", "erased". "Loop 4 was not saved: the slot is empty."
std::string slotSentence(std::string_view done, const SlotOutcome& outcome);
/// What ended an operation before its last loop, and what may have come of it; empty if nothing did.
std::string endSentence(std::string_view done, const Outcome& outcome);
/// Of a loop that was under way at the end.
std::string doubtSentence(const SlotOutcome& doubt);
/// "2 of 3 loops saved."; empty if even that is not known.
std::string countSentence(std::string_view done, const Outcome& outcome);

/// "loop 3", "loops 3 and 7", "loops 3, 7 and 9".
std::string loopNames(const std::vector<SlotNumber>& slots);

/// Of a file that was not written: "No space left on device. Free some space or choose another folder."
std::string fileSentence(const Trouble& trouble);
/// What to do about it alone; empty if that is not known. `error` is an errno.
std::string fileRemedy(int error);
/// The same about something that was to be saved in `folder`.
std::string notSavedSentence(const std::string& what, const std::filesystem::path& folder,
                             const Trouble& trouble);
/// Of a folder for files, before there is one.
std::string folderSentence(const Trouble& trouble);
/// Of one without room for the loops.
std::string spaceSentence(const Trouble& trouble);

/// Of an audio file or its conversion.
std::string audioSentence(const Trouble& trouble);
/// What is wrong with a file of which part can be converted: "908 ms are missing at its end".
std::string flawWords(const Trouble& flaw);
/// The same for the tool, with the file's name: `name`, such as "standard input", or the quoted `where`. Also
/// of the standard streams.
std::string conversionSentence(const Trouble& trouble, const std::string& name = {});

/// Of a backup that cannot be made or restored, which the pedal may be the reason of.
std::string backupSentence(const Trouble& trouble);
/// Of a loop that is not as in the backup.
std::string comparedSentence(const SlotOutcome& outcome);
/// Of slots on a command line.
std::string slotsSentence(const Trouble& trouble);
/// Of firmware: its file, or the maker's server.
std::string firmwareSentence(const Trouble& trouble);
/// What became of an update. `again`: how it is tried again, "install the firmware again".
std::string flashSentence(const FlashEnd& end, const std::string& again);

/// Of a request that the computer did not pass on to the pedal, so that a loop was not read: the part behind
/// "Loop 4 was not saved: ".
std::string roadSentence(const Trouble& trouble);

/// Whether the maker's list of firmware came: `read` is when it last did, as people read it, empty for never;
/// `trouble` why the last attempt got no further.
std::string firmwareListSentence(const std::string& read, const std::optional<Trouble>& trouble);

/// Of a simulated pedal: its folder, its faults, its address.
std::string simulationSentence(const Trouble& trouble);

/// Why there is no recording of a session; why it ends.
std::string recordingSentence(const Trouble& trouble);
std::string recordingEndSentence(const Trouble& trouble);
/// Why a recording cannot be played or converted.
std::string badRecordingSentence(const Trouble& trouble);

}  // namespace kzq
