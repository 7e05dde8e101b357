#include "audio/disk_rules.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "audio/file_bytes.h"

namespace kzq {
namespace {

constexpr std::uint64_t read = LANDLOCK_ACCESS_FS_READ_FILE;
constexpr std::uint64_t readAndExecute = read | LANDLOCK_ACCESS_FS_EXECUTE;

/// Every kind of access that a version of Landlock can refuse; the older headers do not have all.
std::uint64_t accessOf(long version) {
    constexpr std::uint64_t first = (1ULL << 13U) - 1;
    constexpr std::uint64_t refer = 1ULL << 13U;
    constexpr std::uint64_t truncate = 1ULL << 14U;
    constexpr std::uint64_t deviceControl = 1ULL << 15U;
    return first | (version >= 2 ? refer : 0) | (version >= 3 ? truncate : 0) |
           (version >= 5 ? deviceControl : 0);
}

void allow(const Descriptor& rules, int place, std::uint64_t access) {
    landlock_path_beneath_attr rule{};
    rule.allowed_access = access;
    rule.parent_fd = place;
    ::syscall(SYS_landlock_add_rule, rules.get(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0U);
}

/// A place that does not exist needs no rule.
void allow(const Descriptor& rules, const std::filesystem::path& path, std::uint64_t access) {
    if (const Descriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC)); place) {
        allow(rules, place.get(), access);
    }
}

/// The program that the kernel starts to load the libraries of `program`, an ELF file; empty if there is
/// none.
std::string loaderOf(const std::string& program) {
    constexpr std::uint64_t isInterpreter = 3;
    const Descriptor file(::open(program.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat facts {};
    if (!file || ::fstat(file.get(), &facts) != 0) {
        return {};
    }
    const FileBytes bytes(file.get(), static_cast<std::uint64_t>(facts.st_size));
    const std::uint64_t table = bytes.little(0x20, 8).value_or(0);
    const std::uint64_t entrySize = bytes.little(0x36, 2).value_or(0);
    const std::uint64_t entries = bytes.little(0x38, 2).value_or(0);
    for (std::uint64_t i = 0; i < entries; ++i) {
        const std::uint64_t entry = table + i * entrySize;
        if (bytes.little(entry, 4) == isInterpreter) {
            const auto length = static_cast<unsigned>(bytes.little(entry + 0x20, 8).value_or(0));
            const auto path = bytes.text(bytes.little(entry + 8, 8).value_or(0), length);
            return path.substr(0, path.find('\0'));
        }
    }
    return {};
}

/// What the loader's own settings name: a folder a line.
void allowFoldersIn(const Descriptor& rules, const std::filesystem::path& settings) {
    std::ifstream lines(settings);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('/')) {
            allow(rules, line.substr(0, line.find_first_of(" \t\r#")), read);
        }
    }
}

void allowConfiguredFolders(const Descriptor& rules) {
    allowFoldersIn(rules, "/etc/ld.so.conf");
    std::error_code error;
    for (std::filesystem::directory_iterator file("/etc/ld.so.conf.d", error), end; !error && file != end;
         file.increment(error)) {
        if (file->path().extension() == ".conf") {
            allowFoldersIn(rules, file->path());
        }
    }
}

}  // namespace

Descriptor diskRules(const std::string& program, int source) {
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) {
        return {};
    }
    landlock_ruleset_attr handled{};
    handled.handled_access_fs = accessOf(version);
    Descriptor rules(static_cast<int>(::syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0U)));
    const std::filesystem::path place(program);
    allow(rules, place, readAndExecute);
    allow(rules, loaderOf(program), readAndExecute);
    for (const char* const libraries : {"/lib", "/lib64", "/usr/lib", "/usr/lib64", "/usr/local/lib",
                                        "/usr/local/lib64", "/opt", "/nix/store", "/gnu/store"}) {
        allow(rules, libraries, read);
    }
    allowConfiguredFolders(rules);
    allow(rules, place.parent_path() / "../lib", read);
    allow(rules, "/etc/ld.so.cache", read);
    allow(rules, source, read);
    return rules;
}

bool obeyDiskRules(int rules) {
    return ::syscall(SYS_landlock_restrict_self, rules, 0U) == 0;
}

}  // namespace kzq
