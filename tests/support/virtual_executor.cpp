#include "virtual_executor.h"

#include <algorithm>
#include <deque>
#include <map>
#include <stdexcept>
#include <thread>
#include <utility>

namespace kzq::test {

namespace {

/// A timer's is queued when it is due, and so may overtake, or be overtaken by, what is queued then.
struct MainTask {
    Executor::Task task;
    bool timer = false;
};
using MainTasks = std::map<std::pair<Executor::TimePoint, std::uint64_t>, MainTask>;

/// Unwinds a job whose executor is destroyed. Not a std::exception, so that no handler takes it for a
/// failure.
struct Abandoned {};

}  // namespace

struct VirtualExecutor::Worker {
    std::thread thread;
    Task task;
    bool forever = false;
    bool started = false;
    bool ended = false;
    bool running = false;  ///< has the turn
    std::uint64_t order = 0;
    TimePoint due;                ///< sleeping until then
    std::function<bool()> woken;  ///< waiting for this, when set
    std::condition_variable turn;
};

/// What can go on now.
struct VirtualExecutor::Ready {
    std::uint64_t order = 0;
    Worker* worker = nullptr;
    MainTasks::iterator task = {};
};

struct VirtualExecutor::State {
    std::thread::id mainThread = std::this_thread::get_id();
    std::mutex mutex;  ///< guards what follows; free while a worker runs its own code
    std::condition_variable yielded;
    TimePoint now;
    std::uint64_t order = 0;
    MainTasks mainTasks;
    std::deque<std::unique_ptr<Worker>> workers;
    std::vector<std::string> services;
    Worker* current = nullptr;
    bool abandoned = false;
    unsigned mainWaits = 0;
};

VirtualExecutor::VirtualExecutor() : state_(std::make_unique<State>()) {}

VirtualExecutor::~VirtualExecutor() {
    endJobs();
}

void VirtualExecutor::endJobs() {
    {
        const std::lock_guard guard(state_->mutex);
        state_->abandoned = true;
    }
    // By index: an unwinding job may start another one.
    for (std::size_t i = 0; i < state_->workers.size(); ++i) {  // NOLINT(modernize-loop-convert)
        auto& worker = *state_->workers[i];
        if (worker.started && !worker.ended) {
            resume(worker);
        }
        if (worker.thread.joinable()) {
            worker.thread.join();
        }
    }
}

void VirtualExecutor::advance(Duration duration) {
    const auto end = now() + duration;
    while (runTimeTo(end, true)) {
    }
    const std::lock_guard guard(state_->mutex);
    state_->now = std::max(state_->now, end);
}

bool VirtualExecutor::advanceUntil(const std::function<bool()>& done, Duration limit) {
    const auto end = now() + limit;
    while (!done()) {
        if (!runTimeTo(end, true)) {
            return false;
        }
    }
    return true;
}

bool VirtualExecutor::step() {
    return runTimeTo(now() + std::chrono::hours(1), true);
}

void VirtualExecutor::skip(Duration duration) {
    const std::lock_guard guard(state_->mutex);
    state_->now += duration;
}

/// Runs one thing that is due, or moves the clock to the next thing due by `limit` and runs that.
bool VirtualExecutor::runTimeTo(TimePoint limit, bool withMainTasks) {
    if (runOne(withMainTasks)) {
        return true;
    }
    auto next = TimePoint::max();
    {
        const std::lock_guard guard(state_->mutex);
        if (withMainTasks && !state_->mainTasks.empty()) {
            next = state_->mainTasks.begin()->first.first;
        }
        for (const auto& worker : state_->workers) {
            if (!worker->ended && !worker->woken) {
                next = std::min(next, worker->due);
            }
        }
        if (next > limit) {
            return false;
        }
        state_->now = std::max(state_->now, next);
    }
    return runOne(withMainTasks);
}

/// Runs the one that has been due, or ready, in the order of asking, unless `choose` says otherwise.
bool VirtualExecutor::runOne(bool withMainTasks) {
    Ready next;
    Task task;
    {
        const std::lock_guard guard(state_->mutex);
        std::erase_if(state_->workers, [](const auto& worker) {
            if (worker->ended) {
                worker->thread.join();
            }
            return worker->ended;
        });
        const auto ready = allReady(withMainTasks);
        if (ready.empty()) {
            return false;
        }
        next = ready[choose && ready.size() > 1 ? choose(ready.size()) : 0];
        if (next.worker == nullptr) {
            task = std::move(next.task->second.task);
            state_->mainTasks.erase(next.task);
        }
    }
    if (next.worker != nullptr) {
        resume(*next.worker);
    } else {
        task();
    }
    return true;
}

std::vector<VirtualExecutor::Ready> VirtualExecutor::allReady(bool withMainTasks) const {
    std::vector<Ready> ready;
    auto& tasks = state_->mainTasks;
    for (auto at = tasks.begin(); withMainTasks && at != tasks.end() && at->first.first <= state_->now;
         ++at) {
        // of each kind the first; without a choice, the first of all
        const bool first = ready.empty() || (choose && at->second.timer != ready.front().task->second.timer);
        if (first) {
            ready.push_back({at->first.second, nullptr, at});
        }
        if (ready.size() == 2 || !choose) {
            break;
        }
    }
    for (const auto& worker : state_->workers) {
        if (!worker->ended && (worker->woken ? worker->woken() : worker->due <= state_->now)) {
            ready.push_back({worker->order, worker.get(), {}});
        }
    }
    std::ranges::sort(ready, {}, &Ready::order);
    return ready;
}

/// Gives `worker` the turn and takes it back when it sleeps, waits or ends.
void VirtualExecutor::resume(Worker& worker) {
    std::unique_lock lock(state_->mutex);
    auto* const previous = std::exchange(state_->current, &worker);
    worker.running = true;
    if (!std::exchange(worker.started, true)) {
        worker.thread = std::thread([this, &worker] {
            try {
                do {
                    worker.task();
                } while (worker.forever && !state_->abandoned);
            } catch (const Abandoned&) {
                worker.forever = false;
            }
            worker.task = nullptr;
            const std::lock_guard guard(state_->mutex);
            worker.ended = true;
            worker.running = false;
            state_->yielded.notify_all();
        });
    }
    worker.turn.notify_all();
    state_->yielded.wait(lock, [&worker] { return !worker.running; });
    state_->current = previous;
}

/// Called on a worker's thread, with its `due` or `woken` set: hands the turn back until it is resumed.
void VirtualExecutor::park(Worker& worker) {
    std::unique_lock lock(state_->mutex);
    worker.order = ++state_->order;
    worker.running = false;
    state_->yielded.notify_all();
    worker.turn.wait(lock, [&worker] { return worker.running; });
    worker.woken = nullptr;
    if (state_->abandoned) {
        throw Abandoned{};
    }
}

Executor::Duration VirtualExecutor::elapsed() const {
    return now().time_since_epoch();
}

bool VirtualExecutor::onMainThread() const {
    return std::this_thread::get_id() == state_->mainThread;
}

unsigned VirtualExecutor::mainThreadWaits() const {
    return state_->mainWaits;
}

std::vector<std::string> VirtualExecutor::serviceLabels() const {
    return state_->services;
}

std::size_t VirtualExecutor::jobs() const {
    const std::lock_guard guard(state_->mutex);
    return static_cast<std::size_t>(std::ranges::count_if(
        state_->workers, [](const auto& worker) { return !worker->ended && !worker->forever; }));
}

void VirtualExecutor::main(Task task) {
    mainAfter(Duration::zero(), std::move(task));
}

void VirtualExecutor::mainAfter(Duration delay, Task task) {
    const std::lock_guard guard(state_->mutex);
    const auto due = state_->now + std::max(delay, Duration::zero());
    state_->mainTasks.emplace(std::pair{due, ++state_->order},
                              MainTask{std::move(task), delay > Duration::zero()});
}

void VirtualExecutor::background(Priority /*priority*/, Task task) {
    start(std::move(task), false);
    if (eager && !onMainThread()) {
        sleep(Duration::zero());
    }
}

void VirtualExecutor::service(std::string label, Task step) {
    state_->services.push_back(std::move(label));
    start(std::move(step), true);
}

void VirtualExecutor::start(Task task, bool forever) {
    const std::lock_guard guard(state_->mutex);
    auto worker = std::make_unique<Worker>();
    worker->task = std::move(task);
    worker->forever = forever;
    worker->order = ++state_->order;
    worker->due = state_->now;
    state_->workers.push_back(std::move(worker));
}

Executor::TimePoint VirtualExecutor::now() const {
    const std::lock_guard guard(state_->mutex);
    return state_->now;
}

void VirtualExecutor::sleep(Duration duration) {
    const auto end = now() + duration;
    if (!onMainThread()) {
        state_->current->due = end;
        park(*state_->current);
        return;
    }
    while (runTimeTo(end, false)) {
    }
    const std::lock_guard guard(state_->mutex);
    state_->now = std::max(state_->now, end);
}

void VirtualExecutor::wait(std::unique_lock<std::mutex>& lock, Condition& changed,
                           const std::function<bool()>& ready) {
    if (!ready() && onMainThread()) {
        ++state_->mainWaits;
    }
    while (!ready()) {
        const auto woken = [&changed, heard = changed.notified()] { return changed.notified() != heard; };
        lock.unlock();
        if (onMainThread()) {
            runUntil(woken);
        } else {
            state_->current->woken = woken;
            park(*state_->current);
        }
        lock.lock();
    }
}

/// For a main thread that waits: background work goes on, main tasks do not.
void VirtualExecutor::runUntil(const std::function<bool()>& woken) {
    while (!woken()) {
        if (!runTimeTo(TimePoint::max(), false)) {
            throw std::logic_error("the main thread would wait for ever");
        }
    }
}

}  // namespace kzq::test
