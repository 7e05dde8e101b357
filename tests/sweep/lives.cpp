#include "lives.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "platform/descriptor.h"

namespace kzq::test {

Trace anyTrace(std::uint64_t seed) {
    std::mt19937_64 random(seed);
    Trace trace(20 + random() % 3000, '0');
    std::ranges::generate(trace, [&] { return static_cast<char>('0' + random() % ('~' - '0' + 1)); });
    return trace;
}

/// RapidCheck would try chunks of every length, and again from the longest on after each that it can do
/// without.
Trace shortened(Trace trace, const std::function<bool(const Trace&)>& fails) {
    int attempts = 300;
    const auto better = [&](const Trace& other) {
        const bool is = other != trace && --attempts > 0 && fails(other);
        trace = is ? other : trace;
        return is;
    };
    for (auto size = trace.size(); size > 0; size /= 2) {
        for (std::size_t at = 0; at < trace.size();) {
            const auto length = std::min(size, trace.size() - at);
            if (!better(Trace(trace).erase(at, length))) {
                better(Trace(trace).replace(at, length, length, '0'));
                at += size;
            }
        }
    }
    return trace;
}

Ended apart(const std::function<void()>& life) {
    constexpr unsigned patience = 60;  // seconds
    const Descriptor output(::memfd_create("story", 0));
    std::fflush(nullptr);
    const auto child = ::fork();
    if (child == 0) {
        ::dup2(output.get(), STDOUT_FILENO);
        ::dup2(output.get(), STDERR_FILENO);
        std::setvbuf(stdout, nullptr, _IOLBF, 0);  // also what comes before a crash
        ::alarm(patience);
        life();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    std::string story(static_cast<std::size_t>(::lseek(output.get(), 0, SEEK_END)), '\0');
    EXPECT_EQ(::pread(output.get(), story.data(), story.size(), 0), story.size());
    if (WIFSIGNALED(status)) {
        story += "It ended by signal " + std::to_string(WTERMSIG(status)) + ".\n";
    }
    return {status == 0, std::move(story)};
}

}  // namespace kzq::test
