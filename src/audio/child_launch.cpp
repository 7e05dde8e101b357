#include "audio/child_launch.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

#include "audio/cage.h"

namespace kzq {
namespace {

constexpr rlim_t mostMemory = 768ULL << 20U;
constexpr rlim_t mostProcessorSeconds = 120;
/// Above every descriptor number the child uses, so that moving one there never overwrites another.
constexpr int firstFreeNumber = 10;

struct Pipe {
    Descriptor read;
    Descriptor write;
};

Descriptor raised(int number) {
    return Descriptor(::fcntl(number, F_DUPFD_CLOEXEC, firstFreeNumber));
}

/// Both ends are closed on exec; without descriptors on failure.
Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return {};
    }
    const Descriptor low(ends[0]);
    const Descriptor high(ends[1]);
    return {raised(low.get()), raised(high.get())};
}

void limit(__rlimit_resource resource, rlim_t most) {
    const struct rlimit limits { most, most };
    ::setrlimit(resource, &limits);
}

/// What the child needs; created before the fork, because nothing may be allocated after it.
struct Recipe {
    const char* program;
    char* const* arguments;
    char* const* environment;
    int nothing;
    int output;
    int complaint;
    int source;
    int errorReport;
    rlim_t mostFile;
    pid_t parent;
    const Cage& cage;
};

void resetSignals() {
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;  // NOLINT(cppcoreguidelines-pro-type-union-access)
    for (int number = 1; number < SIGRTMIN; ++number) {
        ::sigaction(number, &usual, nullptr);
    }
    sigset_t none;
    ::sigemptyset(&none);
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

/// How long it may make its file, in bytes; our own limit holds for it, too.
rlim_t mostFileOf(const ChildTask& task) {
    struct rlimit ours {};
    return task.sink < 0 || ::getrlimit(RLIMIT_FSIZE, &ours) != 0
               ? 0
               : std::min<rlim_t>(ours.rlim_cur, task.sinkLimit);
}

void lockDown(rlim_t mostFile) {
    limit(RLIMIT_AS, mostMemory);
    limit(RLIMIT_CPU, mostProcessorSeconds);
    limit(RLIMIT_FSIZE, mostFile);
    limit(RLIMIT_CORE, 0);
}

bool placeDescriptors(const Recipe& recipe) {
    return ::dup2(recipe.nothing, STDIN_FILENO) >= 0 && ::dup2(recipe.output, STDOUT_FILENO) >= 0 &&
           ::dup2(recipe.complaint, STDERR_FILENO) >= 0 && ::dup2(recipe.source, childSource) >= 0 &&
           ::close_range(childSource + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0;
}

/// The child's side of the fork: only calls that are safe in a multithreaded program.
[[noreturn]] void becomeChild(const Recipe& recipe) {
    resetSignals();
    ::setsid();
    // The signal comes if the starting thread ends; otherwise that thread waits for the child.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL, 0, 0, 0);
    if (::getppid() == recipe.parent && placeDescriptors(recipe)) {
        lockDown(recipe.mostFile);
        if (recipe.cage.enter()) {
            ::execve(recipe.program, recipe.arguments, recipe.environment);
        }
    }
    const int error = errno;
    [[maybe_unused]] const auto written = ::write(recipe.errorReport, &error, sizeof error);
    ::_exit(127);
}

/// 0 if the child now runs its program, else the errno value that it reported.
int reportedError(const Descriptor& report) {
    int error = 0;
    ssize_t got = 0;
    do {
        got = ::read(report.get(), &error, sizeof error);
    } while (got < 0 && errno == EINTR);
    return got == sizeof error ? error : 0;
}

LaunchedChild failed(int error) {
    LaunchedChild child;
    child.error = error;
    return child;
}

/// Pointers to `texts`, ended by a null, as execve takes them.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (auto& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

LaunchedChild launchLockedChild(const ChildTask& task) {
    std::vector<std::string> words{task.program};
    words.insert(words.end(), task.arguments.begin(), task.arguments.end());
    // One thread for the resampler's library too; messages in the language that we read.
    std::vector<std::string> variables{"LC_ALL=C", "OMP_NUM_THREADS=1"};
    const std::vector<char*> arguments = pointersTo(words);
    const std::vector<char*> environment = pointersTo(variables);

    Pipe output = task.sink < 0 ? makePipe() : Pipe{{}, raised(task.sink)};
    Pipe complaint = makePipe();
    Pipe report = makePipe();
    const Descriptor nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const Descriptor nothingRaised = raised(nothing.get());
    const Descriptor source = raised(task.source);
    if (!output.write || !complaint.write || !report.write || !nothingRaised || !source) {
        return failed(errno);
    }
    const Cage cage(task.program, task.source);
    const Recipe recipe{task.program.c_str(),
                        arguments.data(),
                        environment.data(),
                        nothingRaised.get(),
                        output.write.get(),
                        complaint.write.get(),
                        source.get(),
                        report.write.get(),
                        mostFileOf(task),
                        ::getpid(),
                        cage};
    const pid_t pid = ::fork();
    if (pid == 0) {
        becomeChild(recipe);
    }
    if (pid < 0) {
        return failed(errno);
    }
    report.write.close();
    if (const int error = reportedError(report.read); error != 0) {
        ::waitpid(pid, nullptr, 0);
        return failed(error);
    }
    ::fcntl(complaint.read.get(), F_SETFL, O_NONBLOCK);
    if (output.read) {
        ::fcntl(output.read.get(), F_SETFL, O_NONBLOCK);
        ::fcntl(output.read.get(), F_SETPIPE_SZ, 1 << 20);  // fewer reads; harmless if refused
    }
    return {pid, std::move(output.read), std::move(complaint.read), 0};
}

}  // namespace kzq
