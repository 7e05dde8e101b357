#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/bytes.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

/// A file while it is written: without a name, or under a hidden one and locked. Unless it got its final
/// name, nothing of it remains, or, if the program is killed, until the next one in that folder. Failures are
/// of kind `file`: `where` is the step ("create", "write", "sync", "put into place"), `error` an errno value.
/// One thread at a time.
class Draft : Fixed {
  public:
    /// How a file gets its final name without overwriting another, in order of preference. File systems
    /// differ in what they support.
    enum class Road : std::uint8_t {
        unnamed,  ///< written without any name, then linked: nothing remains even if the program is killed
        renameNoReplace,  ///< written under a hidden name, renamed
        link,             ///< written under a hidden name, linked, unlinked
        reserve  ///< written under a hidden name, renamed over an empty file made to reserve the final name,
                 ///< which remains if the program is killed in between
    };
    static constexpr const char* placing = "put into place";

    /// `first` is the road tried first; the others follow if the file system lacks it.
    explicit Draft(std::filesystem::path folder, Road first = Road::unnamed);
    ~Draft();

    /// Before all that follows, once.
    Result<void> open();
    /// At the end of what has been written.
    Result<void> write(ByteView bytes);
    Result<void> writeAt(ByteView bytes, std::uint64_t offset);
    Result<void> sync();
    /// Has the disk begin with what has been written, so that `sync` takes less. Does not wait.
    void hasten() const;
    /// For a child process that writes the rest itself: the file, at `offset`, opened once more, so that what
    /// the child sets on it, such as to append, is not set on ours.
    Result<Descriptor> handOver(std::uint64_t offset) const;
    /// To read what has been written.
    Result<Descriptor> reader() const;
    /// Gives the file its name; EEXIST if that is taken, and then another may be tried.
    Result<void> place(const std::string& name);
    /// Gives it its name in place of a file that has it. Not for a file on the road `unnamed`.
    Result<void> replace(const std::string& name);
    /// Makes the name durable. The file is complete and in place, so a failure is only logged.
    void syncFolder() const;

  private:
    int openNamed();
    std::string self() const;
    int give(const std::string& name);
    int linkUnnamed(const std::string& name) const;
    int renameNoReplace(const std::string& name);
    int renameOver(const std::string& name);
    int renameOverReserved(const std::string& name);

    const std::filesystem::path path_;
    Road road_;
    Descriptor folder_;
    Descriptor file_;
    std::string hidden_;  ///< empty for a file without a name, and once it has its own
};

/// Makes the names in `folder` durable; a failure is only logged. Any thread.
void syncFolder(const std::filesystem::path& folder);

}  // namespace kzq
