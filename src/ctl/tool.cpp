#include "ctl/tool.h"

#include <utility>

#include "ctl/commands/backup_command.h"
#include "ctl/commands/convert_command.h"
#include "ctl/commands/diff_command.h"
#include "ctl/commands/doctor_command.h"
#include "ctl/commands/erase_command.h"
#include "ctl/commands/export_command.h"
#include "ctl/commands/firmware_command.h"
#include "ctl/commands/firmware_install_command.h"
#include "ctl/commands/import_command.h"
#include "ctl/commands/list_command.h"
#include "ctl/commands/recording_command.h"
#include "ctl/commands/restore_command.h"
#include "ctl/commands/watch_command.h"
#include "platform/log.h"

namespace kzq::ctl {
namespace {

std::shared_ptr<Command> makeCommand(Context context) {
    switch (context.options.subcommand) {
        case Subcommand::list:
            return std::make_shared<ListCommand>(std::move(context));
        case Subcommand::import:
            return std::make_shared<ImportCommand>(std::move(context));
        case Subcommand::exportFiles:
            return std::make_shared<ExportCommand>(std::move(context));
        case Subcommand::erase:
            return std::make_shared<EraseCommand>(std::move(context));
        case Subcommand::convert:
            return std::make_shared<ConvertCommand>(std::move(context));
        case Subcommand::backup:
            return std::make_shared<BackupCommand>(std::move(context));
        case Subcommand::diff:
            return std::make_shared<DiffCommand>(std::move(context));
        case Subcommand::restore:
            return std::make_shared<RestoreCommand>(std::move(context));
        case Subcommand::firmware:
            return std::make_shared<FirmwareCommand>(std::move(context));
        case Subcommand::firmwareInstall:
            return std::make_shared<FirmwareInstallCommand>(std::move(context));
        case Subcommand::doctor:
            return std::make_shared<DoctorCommand>(std::move(context));
        case Subcommand::recording:
            return std::make_shared<RecordingCommand>(std::move(context));
        case Subcommand::watch:
            return std::make_shared<WatchCommand>(std::move(context));
    }
    return nullptr;
}

}  // namespace

Tool::Tool(Options options, const Environment& environment)
    : options_(std::move(options)),
      environment_(environment),
      output_(std::make_shared<Output>(environment.out, environment.err, environment.terminal)),
      command_(makeCommand(context())),
      session_(std::make_shared<Session>(environment, context(), command_)) {
    setLogSink([output = output_, verbose = options_.verbose, logged = environment.logged](
                   LogCategory category, std::string_view line) {
        const std::string text = std::string(logCategoryName(category)) + ": " + std::string(line);
        if (verbose) {
            output->log(text);
        }
        if (logged) {
            logged(text);
        }
    });
}

void Tool::start() {
    if (const auto code = command_->obstructed()) {
        finish(*code);
        return;
    }
    if (command_->withoutPedal()) {
        return;
    }
    KZQ7306::load(
        {environment_.executor, environment_.usb, environment_.systemMinorVersion, options_.patience});
    session_->start(&KZQ7306::looper);
}

void Tool::interrupt() {
    const bool mustFinish = !finished_ && command_->mustFinish();
    if (!mustFinish && std::exchange(interrupted_, true)) {
        finish(ExitCode::cancelled);
    } else if (!finished_) {
        command_->cancel();
    }
}

Context Tool::context() {
    return {options_, environment_.executor, *output_, [this](ExitCode code) { finish(code); }, environment_};
}

void Tool::finish(ExitCode code) {
    if (finished_.exchange(true)) {
        return;
    }
    session_->end();
    output_->endProgress();
    if (!output_->flush() && code == ExitCode::ok) {
        const Trouble lost{Trouble::Kind::outputLost};
        output_->error(conversionSentence(lost));
        code = exitCode(lost.kind);
    }
    environment_.finished(code);
}

}  // namespace kzq::ctl
