#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace kzq::release {

enum class Action { keys, firmware, package, sign, verify, serve, rehearse };

struct Options {
    Action action = Action::keys;
    std::filesystem::path file;  ///< a key, an image or a package
    std::filesystem::path site;
    std::filesystem::path key;  ///< empty: unsigned
    std::string version;
    std::vector<std::string> changes;
    std::filesystem::path notes;
    std::string os;
    std::string channel;
    std::string minimumSystem;
    bool staging = false;
    std::string host;                  ///< empty: the maker's
    std::vector<std::string> trusted;  ///< public keys; empty: the build's own
    bool start = false;
    std::string address = "127.0.0.1";
    std::uint16_t port = 4433;
    std::filesystem::path authority = "authority.pem";
    std::uint64_t bytesPerSecond = 0;
    std::string from = "1.00";
    bool blank = false;
};

/// The description of the command line: --help, the manual page and the completions are made from it.
struct CommandLine {
    CommandLine();

    CLI::App app;
    Options options;

  private:
    CLI::App* add(const char* name, Action action, const char* description);
    void addSite(CLI::App& command);
    void addKey(CLI::App& command, bool required);
    void addTrusted(CLI::App& command);
    void addMaking();
    void addChecking();
};

}  // namespace kzq::release
