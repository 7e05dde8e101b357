#pragma once

#include <sys/types.h>

#include "audio/locked_child.h"
#include "platform/descriptor.h"

namespace kzq {

/// A started child process, to be reaped by us, in a session and process group of its own.
struct LaunchedChild {
    pid_t pid = -1;
    Descriptor output;     ///< its standard output, not blocking; none if that is a file
    Descriptor complaint;  ///< its standard error, not blocking
    int error = 0;         ///< an errno value if it could not be started
};

/// Starts `task.program` as ChildTask describes.
LaunchedChild launchLockedChild(const ChildTask& task);

}  // namespace kzq
