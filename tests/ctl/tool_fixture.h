#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ctl/tool.h"
#include "device/simulator/simulated_pedal.h"
#include "fake_web.h"
#include "loops.h"
#include "paced_port.h"
#include "platform/run_folder.h"
#include "test_folder.h"
#include "virtual_executor.h"

namespace kzq::test {

using ctl::ExitCode;

/// The tool in this process, with a simulated pedal, on virtual time. Slots 2, 5 and 20 hold loops.
class ToolTest : public testing::Test {
  public:
    ~ToolTest() override;

  private:
    TestFolder base_;

  protected:
    ToolTest();

    void plan(const std::string& fault);
    /// Starts as `main` does; time stands still.
    void start(const std::vector<std::string>& arguments);
    /// Runs to the end.
    ExitCode run(const std::vector<std::string>& arguments);
    ExitCode finish();
    /// The program has ended; the pedal is plugged in, and another run may follow.
    void plugInAgain();
    ExitCode import(std::vector<std::string> arguments);

    /// Writes a file in the folder; returns its path.
    std::string write(const std::string& name, const Bytes& bytes) const;
    /// A file already in the pedal's format, for a converter that copies.
    std::string writeWave(const std::string& name, const simulator::StoredLoop& loop) const;
    /// How many working copies there are.
    long workingCopies() const;

    /// Since the start.
    double seconds() const { return std::chrono::duration<double>(executor.elapsed()).count(); }
    std::vector<std::string> files() const { return namesIn(folder); }
    /// What was printed with --json.
    std::vector<nlohmann::json> events() const;
    Bytes contents(const std::string& name) const;
    /// How often the command was sent.
    long sent(std::uint8_t request) const;

    VirtualExecutor executor;
    simulator::SimulatedPedal pedal;
    PacedPort port;
    std::filesystem::path folder;
    std::ostringstream out;
    std::ostringstream err;
    bool terminal = false;
    std::vector<Finding> findings;  ///< of the diagnosis
    RootShell asRoot;
    std::string removal;
    TroubleReport report;  ///< but for the findings
    /// What is answered to questions; they are kept.
    std::function<ctl::Answer()> answer = [] { return ctl::Answer::nobody; };
    std::vector<std::string> questions;
    std::optional<std::uint64_t> freeBytes;  ///< on the disk; nobody knows
    std::string stamp = "2026-11-22 14-02-31";
    ctl::Converter convert;  ///< unless a test has its own: copies, and refuses what is no WAV file
    RunFolder working;
    FakeWeb web;
    std::function<AwakeLock()> keepAwake = [] { return AwakeLock{std::make_shared<int>(), {}}; };
    std::function<void()> signalsHeld;  ///< by whom; empty: they are not
    std::optional<ExitCode> code;
    double endedAt = 0;  ///< seconds since the start
    std::unique_ptr<ctl::Tool> tool;

  private:
    std::optional<ctl::Environment> environment_;
};

}  // namespace kzq::test
