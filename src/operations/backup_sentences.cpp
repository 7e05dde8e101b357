#include "loops/facts.h"
#include "operations/outcome.h"
#include "operations/sentences.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

constexpr const char* othersHint = " \"kzq7306ctl backup FOLDER --list\" shows which backups there are.";

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

/// Of an index that is of no use.
std::string indexSentence(const Trouble& trouble, const char* why) {
    return quoted(trouble.where) + why +
           " Nothing was changed. Choose another backup with --snapshot, or write single WAV files from "
           "beside "
           "it with \"export\".";
}

}  // namespace

std::string backupSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::noBackup:
            return trouble.words.empty() ? "There is no backup in " + quoted(trouble.where) + "."
                                         : "There is no backup " + quoted(trouble.words) + " in " +
                                               quoted(trouble.where) + "." + othersHint;
        case Kind::backupIncomplete:
            return "The backup in " + quoted(trouble.where) +
                   " is incomplete. Finish it with \"backup\" first, or name the loops to restore, and the "
                   "unfinished backup with --snapshot.";
        case Kind::backupTooLong:
            return "The backup in " + quoted(trouble.where) + " is longer than the pedal's 24 minutes.";
        case Kind::backupForeign:
            return indexSentence(trouble, " is not a backup index.");
        case Kind::backupNewer:
            return quoted(trouble.where) + " was written by a newer version of this program.";
        case Kind::backupDamaged:
            return indexSentence(trouble, " is damaged.");
        case Kind::damaged:
            return "The backup is damaged: " + quoted(trouble.where) +
                   " is missing or has been changed. Nothing was changed. Add --skip-damaged to restore the "
                   "other loops, or choose another backup with --snapshot.";
        case Kind::emptySlot:
            return "The backup in " + quoted(trouble.where) + " has none of these loops." + othersHint;
        case Kind::noRoom:
            return "The pedal has too little room for these loops beside its others. Nothing was changed. "
                   "Erase "
                   "loops, or restore fewer.";
        case Kind::unreadable:
            return indexSentence(trouble, " cannot be read.");
        case Kind::changed:
            return "The loops on the pedal changed during the backup. Run the same command again.";
        case Kind::file:
            return notSavedSentence("The index", trouble.where, trouble);
        case Kind::folder:
            return folderSentence(trouble);
        default:
            return pedalSentence(trouble);
    }
}

std::string comparedSentence(const SlotOutcome& outcome) {
    const auto name = loopName(outcome.slot);
    if (outcome.trouble && outcome.trouble->kind == Kind::damaged) {
        return name + " is damaged in the backup: " + quoted(outcome.trouble->where) +
               " is missing or has been changed.";
    }
    return slotSentence("compared", outcome);
}

}  // namespace kzq
