#include "audio/cage.h"

#include <sys/prctl.h>

#include <cerrno>
#include <mutex>

#include "audio/call_filter.h"
#include "audio/disk_rules.h"
#include "platform/log.h"

namespace kzq {

Cage::Cage(const std::string& program, int source)
    : rules_(diskRules(program, source)), calls_(callFilter()) {
    static std::once_flag said;
    std::call_once(said, [this] {
        if (!rules_) {
            log(LogCategory::audio,
                "This kernel has no Landlock: a decoder can read the files of this user.");
        }
        if (calls_.empty()) {
            log(LogCategory::audio, "There is no seccomp filter: a decoder can make any system call.");
        }
    });
}

bool Cage::enter() const {
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const bool kept = !rules_ || obeyDiskRules(rules_.get());
    return kept &&
           (calls_.empty() || obeyCallFilter(calls_) || errno == EINVAL);  // a kernel built without filters
}

}  // namespace kzq
