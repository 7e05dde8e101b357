#include "app/program/relaunch.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QProcess>

namespace kzq {

bool relaunchAfterThis(const std::filesystem::path& program) {
    // It depends on nothing that the new version would have to know.
    static constexpr auto script =
        "tries=0; while kill -0 \"$1\" 2>/dev/null && [ $tries -lt 100 ]; do "
        "sleep 0.1; tries=$((tries + 1)); done; exec \"$0\"";
    const auto file = QString::fromStdString(program.string());
    const auto self = QString::number(QCoreApplication::applicationPid());
    return ::access(program.c_str(), X_OK) == 0 &&
           QProcess::startDetached("/bin/sh", {"-c", script, file, self});
}

}  // namespace kzq
