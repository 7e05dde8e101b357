#include "tool_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "ctl/options.h"
#include "platform/log.h"

namespace kzq::test {

namespace {

simulator::PedalMemory threeLoops(simulator::StoredLoop (*loop)(std::uint32_t, std::uint8_t)) {
    simulator::PedalMemory memory;
    memory[1] = loop(1000, 10);
    memory[4] = loop(1, 20);
    memory[19] = loop(1500, 30);
    return memory;
}

}  // namespace

ToolTest::ToolTest()
    : pedal(executor, {.memory = threeLoops(&loopOf)}), port(executor, pedal), paced(executor, port) {
    std::string pattern = std::filesystem::temp_directory_path() / "ctl_test_XXXXXX";
    folder = ::mkdtemp(pattern.data());
}

ToolTest::~ToolTest() {
    executor.endJobs();
    KZQ7306::unload();
    setLogSink({});
    std::filesystem::remove_all(folder);
}

simulator::StoredLoop ToolTest::loopOf(std::uint32_t frames, std::uint8_t first) {
    simulator::StoredLoop loop{Bytes(std::size_t{frames} * simulator::frameBytes), 100, first};
    for (auto& byte : loop.audio) {
        byte = first++;
    }
    return loop;
}

void ToolTest::plan(const std::string& fault) {
    pedal.plan(simulator::faultFromText(fault).value());
}

void ToolTest::start(const std::vector<std::string>& arguments) {
    auto parsed = ctl::parseOptions(arguments);
    if (!parsed.options) {
        throw std::invalid_argument(parsed.text);
    }
    environment_.emplace(ctl::Environment{executor, paced, out, err, terminal,
                                          [this] { return systemMinorVersion; },
                                          [this] { return ruleInstalled; },
                                          [this](ExitCode result) {
                                              EXPECT_FALSE(code);
                                              code = result;
                                          }});
    tool = std::make_unique<ctl::Tool>(*parsed.options, *environment_);
    executor.main([this] { tool->start(); });
}

ExitCode ToolTest::run(const std::vector<std::string>& arguments) {
    start(arguments);
    return finish();
}

ExitCode ToolTest::finish() {
    EXPECT_TRUE(executor.advanceUntil([this] { return code.has_value(); })) << out.str() << err.str();
    return code.value_or(ExitCode::ok);
}

ExitCode ToolTest::import(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"import", "--to", folder});
    return run(arguments);
}

std::set<std::string> ToolTest::files() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename());
    }
    return names;
}

Bytes ToolTest::contents(const std::string& name) const {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

long ToolTest::sent(std::uint8_t request) const {
    const auto journal = pedal.journal();
    return std::count_if(journal.begin(), journal.end(), [request](const simulator::WireEvent& event) {
        return event.kind == simulator::WireEvent::Kind::control && event.code == request;
    });
}

}  // namespace kzq::test
