#include "sweep.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kzq::test {

namespace {

bool isAction(const UsbCall& call) {
    using namespace wire;
    constexpr std::array actions = {importLoop.code,  exportLoop.code,      exportLength.code,
                                    enterLoader.code, announceTrailer.code, openUpdate.code,
                                    eraseLoop.code};
    return call.isBulk() || std::ranges::find(actions, call.code) != actions.end();
}

/// Of the `at`-th call among those of a run that goes well.
std::string phaseOf(const std::vector<UsbCall>& calls, std::size_t at) {
    const auto call = calls.begin() + static_cast<std::ptrdiff_t>(at) - 1;
    const auto sends = [](const UsbCall& other) { return other.code == wire::exportLoop.code; };
    if (std::any_of(calls.begin(), call, sends) &&
        (call->kind == UsbCall::Kind::bulkIn || call->code == wire::importLoop.code)) {
        return "reading back";
    }
    if (isAction(*call)) {
        return call->isBulk() ? "data" : "a request";
    }
    const bool before = std::none_of(calls.begin(), call, isAction);
    const bool after = std::none_of(call, calls.end(), isAction);
    return before ? "before" : after ? "afterwards" : "in between";
}

/// With the calls that it took.
std::pair<Case, std::vector<UsbCall>> runCase(const Make& make, std::size_t at, Mishap mishap) {
    const auto descriptors = openDescriptors();
    std::pair<Case, std::vector<UsbCall>> result{{mishap, {}, {}, {}, {}, -1}, {}};
    auto& [end, calls] = result;
    const auto operation = make();
    {
        World world(operation->stage());
        operation->prepare(world);
        const auto before = world.held();
        world.begin(operation->window(), operation->cancels());
        world.port.arm(at, mishap);
        const bool ended = operation->perform(world);
        calls = world.port.calls;
        EXPECT_EQ(world.port.struck(), at != 0);
        operation->checkFiles(world);
        EXPECT_TRUE(operation->changesLoops() || world.held() == before) << "loops are changed";
        if (world.over()) {
            world.expectGoodManners();
            return result;
        }
        EXPECT_TRUE(ended || operation->mayLast()) << "it does not end";
        operation->check(world);
        const auto said = operation->said();
        end.pedal = operation->pedal(world);
        end.computer = operation->computer(world);
        end.line = ended ? said.line : "–";
        end.exit = operation->window() ? -1 : said.exit;
        EXPECT_TRUE(at != 0 || said.exit <= 0) << end.line;
        world.expectOtherUntouched();
        world.expectRecovery(operation->leavesBehind());
    }
    EXPECT_EQ(openDescriptors(), descriptors) << "files are left open";
    return result;
}

std::vector<Case> sweep(const std::string& name, const Make& make) {
    std::vector<Case> cases;
    SCOPED_TRACE(name);
    const auto [clean, calls] = runCase(make, 0, Mishap::none);
    cases.push_back(clean);
    for (std::size_t at = 1; at <= calls.size(); ++at) {
        for (auto kind = std::uint8_t{1}; kind <= static_cast<std::uint8_t>(Mishap::quit); ++kind) {
            const auto mishap = static_cast<Mishap>(kind);
            const bool goesOn = mishap == Mishap::silenceThenCancel && name == "firmware, window";
            if (calls[at - 1].suffers(mishap) && !goesOn) {  // no window cancels an update
                SCOPED_TRACE("call " + std::to_string(at) + ", " + calls[at - 1].text() + ": " +
                             textOf(mishap));
                auto ended = runCase(make, at, mishap).first;
                if (mishap != Mishap::quit) {  // which says nothing
                    ended.phase = phaseOf(calls, at);
                    cases.push_back(std::move(ended));
                }
            }
        }
    }
    return cases;
}

}  // namespace

const std::vector<Case>& swept(const std::string& operation) {
    static std::map<std::string, std::vector<Case>> done;
    const auto all = operations();
    const auto found = std::ranges::find(all, operation, [](const auto& entry) { return entry.first; });
    auto& cases = done[operation];
    if (cases.empty()) {
        cases = sweep(operation, found->second);
    }
    return cases;
}

}  // namespace kzq::test
