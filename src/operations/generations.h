#pragma once

#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "operations/backup_folder.h"
#include "platform/result.h"

namespace kzq {

/// What time it is, as snapshots are named after it: "2026-11-22 14-02-31".
using Stamp = std::function<std::string()>;
/// By the system's clock, in its time zone. Any thread.
std::string localStamp();
/// The same of a time.
std::string stampOf(std::time_t time);

/// One backup among others.
struct Snapshot {
    std::string name;  ///< that of its folder
    BackupFolder folder;
};

/// A folder with a backup of the pedal for each time that one was made, each in a folder named after that
/// time; doc/backup.md describes it. Names sort in the order in which they were given, whatever the clock
/// did: of two in one second, or if the clock was set back, the later one is "2026-11-22 14-02-31-02".
/// Blocks; one thread at a time.
class Generations {
  public:
    /// The name of a backup that lies directly in the folder, as older versions made it.
    static constexpr const char* undated = ".";

    explicit Generations(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

    /// The complete ones, from the oldest to the newest; before them those with a name of the user's, and the
    /// undated one.
    std::vector<Snapshot> snapshots() const;
    /// What interrupted runs left, from the oldest to the newest.
    std::vector<Snapshot> unfinished() const;
    /// The one of that name, which may be an unfinished one, or the newest complete one if it is empty.
    /// Errors: noBackup (`words` is the name), backupIncomplete: there are only unfinished ones; unreadable.
    Result<Snapshot> find(const std::string& name) const;

    /// Makes a folder of a new name for a backup that begins.
    Result<std::filesystem::path> makeUnfinished(const std::string& stamp) const;
    /// Gives a complete one the name it keeps.
    Result<Snapshot> name(const std::filesystem::path& unfinished, const std::string& stamp) const;

    /// Whether that is how dated folders are named.
    static bool isDated(std::string_view name);

  private:
    std::vector<std::string> namesOf(bool unfinished, bool anyKind) const;

    std::filesystem::path path_;
};

}  // namespace kzq
