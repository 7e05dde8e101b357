#include "file_faults.h"

#include <mutex>
#include <utility>

namespace kzq::test {

namespace {

std::mutex mutex;  ///< guards what follows
bool armed = false;
std::size_t due = 0;
FileFault answer{};
std::vector<std::string> called;

}  // namespace

int answerTo(const FileCall& call) {
    const std::lock_guard guard(mutex);
    if (!armed) {
        return 0;
    }
    called.emplace_back(call.name);
    const bool hit = called.size() == due && answer.concerns(call.name);
    return !hit ? 0 : answer.error == 0 ? -1 : answer.error;
}

void ended(const FileCall& /*call*/) {}

void armFiles(std::size_t at, FileFault fault, unsigned closed) {
    const std::lock_guard guard(mutex);
    armed = true;
    due = at;
    answer = fault;
    closedRoads = closed;
    called.clear();
}

std::vector<std::string> disarmFiles() {
    const std::lock_guard guard(mutex);
    armed = false;
    closedRoads = 0;
    return std::exchange(called, {});
}

}  // namespace kzq::test
