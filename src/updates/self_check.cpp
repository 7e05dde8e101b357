#include "updates/self_check.h"

#include <QProcess>
#include <QProcessEnvironment>

#include "updates/app_version.h"
#include "words/words.h"

namespace kzq {
namespace {

constexpr std::string_view beforeVersion = "7306 Loop Manager ";
constexpr std::string_view behindVersion = " starts";

Trouble doesNotRun(const std::string& why) {
    return {Trouble::Kind::unverified, why};
}

/// An AppImage's runtime sets these for its own content, which is not that of the program to be checked.
QProcessEnvironment environmentOfItsOwn() {
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* name : {"APPIMAGE", "APPDIR", "ARGV0", "OWD", "LD_LIBRARY_PATH", "QT_PLUGIN_PATH"}) {
        environment.remove(QLatin1String(name));
    }
    // else a desktop integration may ask what to do with an AppImage that it does not know
    environment.insert(QStringLiteral("APPIMAGELAUNCHER_DISABLE"), QStringLiteral("1"));
    return environment;
}

}  // namespace

std::string selfCheckLine(std::string_view version) {
    return std::string(beforeVersion) + std::string(version) + std::string(behindVersion);
}

bool saysVersion(std::string_view line, std::string_view version) {
    if (!line.starts_with(beforeVersion) || !line.ends_with(behindVersion) ||
        line.size() < beforeVersion.size() + behindVersion.size()) {
        return false;
    }
    line.remove_prefix(beforeVersion.size());
    line.remove_suffix(behindVersion.size());
    const auto order = compareAppVersions(line, version);
    return order && std::is_eq(*order);
}

Result<std::string> selfCheck(const std::filesystem::path& program, std::chrono::milliseconds limit) {
    QProcess process;
    process.setProcessEnvironment(environmentOfItsOwn());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QString::fromStdString(program.string()), {QStringLiteral("--self-check")});
    if (!process.waitForFinished(static_cast<int>(limit.count()))) {
        const bool started = process.state() != QProcess::NotRunning;
        process.kill();
        process.waitForFinished();
        return doesNotRun(started ? english("it does not answer") : english("it cannot be started"));
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return doesNotRun(english("it ends with an error"));
    }
    return process.readAllStandardOutput().trimmed().toStdString();
}

}  // namespace kzq
