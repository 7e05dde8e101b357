#include "tool_fixture.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "audio/wave.h"
#include "ctl/speech/options.h"
#include "loops/facts.h"
#include "operations/backup.h"
#include "platform/log.h"

namespace kzq::test {

namespace {

simulator::PedalMemory threeLoops() {
    simulator::PedalMemory memory;
    memory[1] = loopOf(1000, 10);
    memory[4] = loopOf(1, 20);
    memory[19] = loopOf(1500, 30);
    return memory;
}

Bytes bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Result<ctl::ConvertedFile> copy(const ctl::ConversionOrder& order) {
    const bool intoFolder = std::filesystem::is_directory(order.output);
    const auto target =
        intoFolder ? order.output / ("copy of " + order.source.filename().string()) : order.output;
    const auto bytes = bytesOf(order.source);
    if (!isPerfectWave(bytes, 2)) {
        return Trouble{Trouble::Kind::notAudio, order.source.string()};
    }
    std::filesystem::copy_file(order.source, target);
    return ctl::ConvertedFile{target, (bytes.size() - waveHeaderSize) / frameBytes};
}

}  // namespace

ToolTest::ToolTest()
    : pedal(executor, {.memory = threeLoops()}),
      port(executor, pedal),
      folder(base_ / "folder"),
      convert(copy),
      working(base_) {
    std::filesystem::create_directory(folder);
}

ToolTest::~ToolTest() {
    executor.endJobs();
    KZQ7306::unload();
    setLogSink({});
}

void ToolTest::plan(const std::string& fault) {
    pedal.plan(simulator::faultFromText(fault).value());
}

void ToolTest::start(const std::vector<std::string>& arguments) {
    auto parsed = ctl::parseOptions(arguments);
    if (!parsed.options) {
        throw std::invalid_argument(parsed.text);
    }
    code.reset();
    out.str({});
    err.str({});
    environment_.emplace(ctl::Environment{
        executor, port, out, err, terminal, [] { return 36U; },
        [this](const std::string& question) {
            questions.push_back(question);
            return answer();
        },
        convert, [](std::span<std::uint8_t> /*into*/) { return ssize_t{0}; },  // standard input is empty
        [this] { return working.path(); },
        [this](ExitCode result) {
            EXPECT_FALSE(code);
            code = result;
        },
        &web, "https://maker.example/firmware/_.json", base_, [this] { return keepAwake(); },
        [this](auto heard) { signalsHeld = std::move(heard); }});
    environment_->conversionsAtOnce = 2;
    environment_->freeSpace = [this](const std::filesystem::path&) { return freeBytes; };
    environment_->stamp = [this] { return stamp; };
    environment_->backedUp = [this] { rememberBackup(folder.parent_path()); };
    environment_->diagnose = environment_->examine = [this] { return findings; };
    environment_->asRoot = asRoot;
    environment_->removal = [this] { return removal; };
    environment_->report = [this] { return report; };
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

void ToolTest::plugInAgain() {
    executor.settle();
    KZQ7306::unload();
    pedal.plugIn();
    executor.settle();
}

ExitCode ToolTest::import(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"import", "--to", folder});
    return run(arguments);
}

std::vector<nlohmann::json> ToolTest::events() const {
    std::istringstream lines(out.str());
    std::vector<nlohmann::json> all;
    for (std::string line; std::getline(lines, line);) {
        all.push_back(nlohmann::json::parse(line));
    }
    return all;
}

Bytes ToolTest::contents(const std::string& name) const {
    return bytesOf(folder / name);
}

std::string ToolTest::write(const std::string& name, const Bytes& bytes) const {
    std::ofstream file(folder / name, std::ios::binary);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(file));
    return folder / name;
}

std::string ToolTest::writeWave(const std::string& name, const simulator::StoredLoop& loop) const {
    return write(name, wave(loop.audio, 2).value());
}

long ToolTest::workingCopies() const {
    long count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(base_.path())) {
        const bool own = entry.path().string().starts_with(folder.string());
        count += !own && entry.path().extension() == ".wav" ? 1 : 0;
    }
    return count;
}

long ToolTest::sent(std::uint8_t request) const {
    const auto journal = pedal.journal();
    return std::count_if(journal.begin(), journal.end(), [request](const simulator::WireEvent& event) {
        return event.kind == simulator::WireEvent::Kind::control && event.code == request;
    });
}

}  // namespace kzq::test
