#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "ctl/speech/options.h"
#include "device/simulator/simulate_option.h"

namespace kzq::ctl {

/// What stands on the command line, before `parseOptions` checks it and turns it into options.
struct Words {
    std::vector<std::string> slots;
    std::string folder;
    std::vector<std::string> files;
    std::optional<std::string> slot;
    bool firstFree = false;
    std::string output;
    std::optional<std::string> record;
    std::optional<std::string> replay;
    std::optional<std::string> report;
    std::optional<std::string> snapshot;
    double wait = 0;
    std::optional<double> patience;
    std::vector<std::string> topic;  ///< help: the command it is about
};

/// The description of the command line: --help, the manual page and the completions are made from it.
class CommandLine {
  public:
    CommandLine();

    CLI::App app;
    simulator::SimulateOption simulate;
    Options options;
    Words words;

  private:
    CLI::App* add(CLI::App& parent, const char* name, Subcommand subcommand, const std::string& description);
    void addGlobalOptions();
    void addReading();
    void addWriting();
    void addBackups();
    void addConverting();
    void addFirmware();
    void addRecording();
    void addHelp();
    void addSlots(CLI::App& subcommand);
    void addSnapshot(CLI::App& subcommand);
    void addYes(CLI::App& subcommand);
    void addLevels(CLI::App& command);
};

}  // namespace kzq::ctl
