#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

/// How long a locked-down child process may take.
struct ChildPatience {
    std::chrono::milliseconds silence = std::chrono::seconds(30);  ///< without a byte of output
    std::chrono::milliseconds whole = std::chrono::minutes(10);
};

/// A program that handles untrusted data, in a Cage. It can read one open file, as descriptor `childSource`,
/// and write to its standard output, which may be a file of ours, and error; its environment is clean, it has
/// no terminal, cannot gain privileges, has limits of memory (768 MB) and processor time (120 s), and dies
/// with the thread that runs it.
struct ChildTask {
    std::string program = {};  ///< path of an executable file; $PATH is not searched
    std::vector<std::string> arguments = {};
    int source = -1;  ///< stays open, with its offset unchanged
    /// Receives the child's standard output in pieces, on the calling thread; return false to stop the child.
    std::function<bool(std::span<const std::uint8_t>)> output = nullptr;
    /// Instead: a file that is the child's standard output, at its offset, up to a length of `sinkLimit`.
    int sink = -1;
    std::uint64_t sinkLimit = 0;
    /// Receives the length of that file each time it has grown, on the calling thread; return false to stop
    /// the child.
    std::function<bool(std::uint64_t)> grown = nullptr;
    const std::atomic<bool>* cancelled = nullptr;
    ChildPatience patience = {};
};

/// The descriptor of the source in the child.
inline constexpr int childSource = 3;

struct ChildEnd {
    enum class How {
        exited,      ///< `value` is the exit status
        killed,      ///< `value` is the signal
        notStarted,  ///< `value` is an errno value
        stopped,     ///< by `output`
        cancelled,
        outOfPatience
    };

    How how = How::notStarted;
    int value = 0;
    std::string complaint;  ///< the end of what the child said on standard error; at most 4 KiB

    bool succeeded() const { return how == How::exited && value == 0; }
};

/// Runs the child and waits for its end. Any thread; several may run at once.
ChildEnd runLockedChild(const ChildTask& task);

}  // namespace kzq
