#pragma once

#include <linux/filter.h>

#include <string>
#include <vector>

#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq {

/// What a child process that handles untrusted data may do, kept by the kernel (Landlock and seccomp). Of the
/// disk it may read its program, shared libraries and its source, and execute only the program and the
/// loader. It cannot change any file, start a process, reach another one, or use sockets.
///
/// A kernel without one of the two leaves it out; the log says so once.
class Cage : Fixed {
  public:
    /// Prepared before the fork, as nothing may be allocated after it. `program` is the path of an executable
    /// file, `source` an open file.
    Cage(const std::string& program, int source);

    /// In the child, just before it executes the program. False, with errno set, if the kernel refuses.
    bool enter() const;

  private:
    Descriptor rules_;                       ///< for the disk; none without Landlock
    const std::vector<sock_filter>& calls_;  ///< the system calls; none without seccomp
};

}  // namespace kzq
