#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "device/finding.h"
#include "platform/executor.h"
#include "platform/result.h"

namespace kzq {

/// What the doctor says of a finding: a line, and its remedy in a second one.
std::vector<std::string> doctorLines(const Finding& finding);

/// Whether that trouble is with the files that the system needs, so that setting them up ends it.
bool endsBySetUp(Trouble::Kind kind);
/// The first such trouble; nothing if the system is set up.
std::optional<Trouble> missingSetUp(const std::vector<Finding>& findings);

/// What setting up does: `trouble`'s commands, as a shell of root's takes them. Empty if they cannot be run
/// for the user.
std::string setUpCommands(const Trouble& trouble);
/// The files that they put into the system: "70-kzq7306.rules goes into /etc/udev/rules.d.", a line each.
/// Empty if they only put rules into force that are there.
std::vector<std::string> setUpFiles(const Trouble& trouble);

/// Runs commands of a shell as root. Blocks. Empty: that is not possible here.
using RootShell = std::function<Result<void>(const std::string& commands)>;

struct SetUp {
    Executor& executor;
    RootShell asRoot;
    std::function<std::vector<Finding>()> examine;
};

/// Sets up what is missing and looks again, for a few seconds if need be: rules that were just installed take
/// a moment. What is found in the end. `declined` if the commands did not run to their end. Blocks; not on
/// the main thread.
Result<std::vector<Finding>> setUpSystem(const SetUp& order, const Trouble& trouble);

}  // namespace kzq
