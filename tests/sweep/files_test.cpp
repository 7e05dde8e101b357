#include <algorithm>
#include <array>
#include <cerrno>

#include "file_faults.h"
#include "operation.h"

namespace kzq::test {
namespace {

constexpr auto faults =
    std::to_array<FileFault>({{"no space", ENOSPC},
                              {"no permission", EACCES},
                              {"gone", ENOENT},
                              {"interrupted", EINTR},
                              {"failing disk", EIO},
                              {"failing at the end", EIO, "close"},
                              {"read-only", EROFS, "open mkdir link rename unlink chmod fchmod ftruncate"},
                              {"short", 0, "write pwrite"}});

/// With the calls that it took.
std::vector<std::string> runCase(const Make& make, unsigned closed, std::size_t at, FileFault fault) {
    const auto operation = make();
    World world(operation->stage());
    operation->prepare(world);
    world.begin(operation->window(), operation->cancels());
    armFiles(at, fault, closed);
    EXPECT_TRUE(operation->perform(world));
    auto calls = disarmFiles();
    const auto failed = at == 0 ? "" : calls.at(at - 1);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(world.folder.path())) {
        if (entry.path().filename().string().starts_with('.')) {
            EXPECT_EQ(failed, "unlink") << entry.path() << " is left";
            std::filesystem::remove(entry);
        }
    }
    operation->checkFiles(world);
    operation->check(world);
    const bool again = failed == "write" || failed == "pread" || failed == "fsync" || failed == "pwrite";
    const bool otherwise = failed == "close" || (failed == "link" && closed == 0);
    if (at == 0 || fault.error == 0 || (fault.error == EINTR && again) || otherwise) {
        EXPECT_EQ(operation->said().exit, 0) << "another attempt or another way would do, or all is done";
    }
    world.expectRecovery(operation->leavesBehind());
    return calls;
}

void sweepFiles(const Make& make, unsigned closed) {
    const auto calls = runCase(make, closed, 0, {});
    EXPECT_GT(calls.size(), 5U);
    for (std::size_t at = 1; at <= calls.size(); ++at) {
        for (const auto& fault : faults) {
            if (fault.concerns(calls[at - 1])) {
                SCOPED_TRACE("call " + std::to_string(at) + ", " + calls[at - 1] + ": " + fault.name);
                const auto descriptors = openDescriptors();
                runCase(make, closed, at, fault);
                EXPECT_EQ(openDescriptors(), descriptors) << "files are left open";
            }
        }
    }
}

TEST(SweepOfFiles, AnImportAndKeptCopiesOnEveryKindOfFileSystem) {
    for (unsigned closed = 0; closed <= mostClosedRoads; ++closed) {
        SCOPED_TRACE(closed);
        sweepFiles(importOperation(false), closed);
        sweepFiles(keepOperation(), closed);
    }
    sweepFiles(importOperation(true), 0);
}

TEST(SweepOfFiles, ABackup) {
    sweepFiles(backupOperation(), 0);
}

TEST(SweepOfFiles, WhatOnlyReads) {
    sweepFiles(exportOperation(false), 0);
    sweepFiles(exportOperation(true), 0);
    sweepFiles(restoreOperation(), 0);
}

}  // namespace
}  // namespace kzq::test
