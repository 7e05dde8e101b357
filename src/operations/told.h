#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "loops/slot_number.h"
#include "operations/flash.h"
#include "operations/outcome.h"
#include "platform/result.h"

namespace kzq {

/// What came of something, for a line on the screen and a few more behind it.
struct Told {
    std::string what;         ///< "2 of 10 loops saved"
    std::string why = {};     ///< "no space left on the disk"; may be empty
    std::string detail = {};  ///< further complete sentences; may be empty
    bool failure = false;
    std::vector<std::string> names = {};  ///< of files and folders, as they stand in it
};

/// What an operation does to loops.
enum class Deed : std::uint8_t { save, write, erase };

/// The text of an operation that does this.
constexpr const char* byDeed(Deed deed, const char* save, const char* write, const char* erase) {
    return deed == Deed::save ? save : deed == Deed::write ? write : erase;
}
/// "Nothing was saved"
std::string nothingDone(Deed deed);

/// What became of an operation on `asked`, in the order of the list. Any thread, all of these.
Told told(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked);
Told toldImport(const Outcome& outcome, const std::vector<SlotNumber>& asked,
                const std::filesystem::path& folder);
/// What came of reading back what was written.
Told toldVerify(const Outcome& outcome, const std::vector<SlotNumber>& asked);
Told told(const FlashEnd& end);
/// The same for who knows what was sent: `wanted` is its version, empty if that is not known. A pedal that is
/// back with another one has not taken it, and neither has one that did not agree to it, as `sent` says.
Told told(const FlashEnd& end, const FlashEnd& sent, const std::string& wanted);
/// Of the maker's list of firmware: when it last came, as people read it, empty for never; its newest; and
/// why the last attempt got no further.
Told toldFirmwareList(const std::string& read, const std::string& newest,
                      const std::optional<Trouble>& trouble);
/// Whether the computer did not pass on what an import asked of the pedal, as a rule of the system is
/// missing.
bool isMissingRule(const Trouble& trouble);
/// "Loops cannot be imported: the system rule is missing"
Told toldMissingRule(const Trouble& trouble);
/// Of a report for troubleshooting; `file` is where it is, or should be.
Told toldReport(const std::filesystem::path& file, const Result<void>& saved);
/// Of a recording that was being made.
Told toldRecordingEnd(const Trouble& trouble);
/// Whether what there is of a file can be used.
bool isSalvageable(const Trouble& trouble);
/// A file that was put on a row and cannot be used, or is damaged.
Told toldUnusable(const std::string& name, const Trouble& trouble);

/// What the loops that are missing failed with: the end of the operation, else the first one's. Null if all
/// is well.
const Trouble* mainTrouble(const Outcome& outcome);
/// The loops of `asked` that did not come to a good end.
std::vector<SlotNumber> notDone(const Outcome& outcome, const std::vector<SlotNumber>& asked);

/// "the pedal refused loop 4": the part behind a colon, without a full stop; "it" if no loop is named.
std::string reasonFor(Deed deed, const Trouble& trouble, const std::string& loop = {});
/// The same as the end of a sentence of the tool's, with its full stop and what to do.
std::string reasonSentence(Deed deed, const Trouble& trouble);
/// What is known beyond the reason: a number, the system's own words, what to do. Complete sentences; may be
/// empty.
std::string adviceOn(const Trouble& trouble);
/// "Loops 3, 5 and 7": loopNames at the beginning of a sentence.
std::string listOf(const std::vector<SlotNumber>& slots);

}  // namespace kzq
