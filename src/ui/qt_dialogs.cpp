#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "ui/alert_panel.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

std::filesystem::path chosenPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

/// In lower and upper case, because some choosers take patterns literally.
QString filterOf(const FileKind& kind) {
    QStringList patterns;
    for (const auto& type : kind.types) {
        const auto extension = QString::fromStdString(type);
        patterns << "*." + extension << "*." + extension.toUpper();
    }
    return QString::fromStdString(kind.name) + " (" + patterns.join(' ') + ")";
}

bool isAllowed(const QString& file, const FileKind& kind) {
    const auto extension = QFileInfo(file).suffix().toLower().toStdString();
    return std::ranges::find(kind.types, extension) != kind.types.end();
}

QString musicFolder() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

Dialogs::Chosen chosen(const QString& name) {
    if (name.isEmpty()) {
        return {};
    }
    return {panelOk, chosenPath(name)};
}

}  // namespace

QtDialogs::QtDialogs(KeyGuard& keys, std::function<QWidget*()> parent)
    : keys_(keys), parent_(std::move(parent)) {}

int QtDialogs::run(const Alert& alert) {
    bool unused = false;
    return run(alert, unused);
}

int QtDialogs::run(const Alert& alert, bool& ticked) {
    const QPointer<AlertPanel> panel(new AlertPanel(alert, parent_()));
    panel->setTicked(ticked);
    const auto escape = panel->answer();
    KeyGuard::OpenAlert open(keys_);
    QObject::connect(panel, &AlertPanel::appeared, [&open] { open.appeared(); });
    panel->exec();
    if (panel.isNull()) {  // destroyed with its window
        return escape;
    }
    const auto answer = panel->answer();
    ticked = panel->ticked();
    delete panel.data();
    return answer;
}

QFileDialog* QtDialogs::chooser(const std::string& title) {
    auto* const dialog = new QFileDialog(parent_(), QString::fromStdString(title));
    dialog->setDirectory(QFileInfo(folder_).isDir() ? folder_ : musicFolder());
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    return dialog;
}

/// Runs the chooser and deletes it, unless its parent already did. Empty if nothing was chosen.
QString QtDialogs::choose(QFileDialog* chooser) {
    const QPointer<QFileDialog> dialog(chooser);
    // the list of its completer would outlive it, and the toolkit sees no window become active under a popup
    QObject::connect(dialog, &QDialog::finished, dialog, [] {
        if (auto* const popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    });
    // as accepted: closing the list changes what is selected
    QStringList files;
    QObject::connect(dialog, &QFileDialog::filesSelected, [&files](const auto& taken) { files = taken; });
    dialog->exec();
    delete dialog.data();
    if (files.size() != 1) {
        return {};
    }
    const QFileInfo file(files.first());
    folder_ = file.isDir() ? file.filePath() : file.path();
    return files.first();
}

Dialogs::Chosen QtDialogs::chooseFile(const std::string& title, const FileKind& allowed) {
    auto* dialog = chooser(title);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(filterOf(allowed));
    const auto file = choose(dialog);
    return isAllowed(file, allowed) ? chosen(file) : Chosen();
}

Dialogs::Chosen QtDialogs::chooseFolder(const std::string& title, const std::string& prompt) {
    auto* dialog = chooser(title);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, QString::fromStdString(prompt));
    return chosen(choose(dialog));
}

Dialogs::Chosen QtDialogs::chooseNewFile(const std::string& title, const std::string& name,
                                         const FileKind& usual) {
    auto* dialog = chooser(title);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilters({filterOf(usual), toQt(words("All files")) + " (*)"});
    dialog->selectFile(QString::fromStdString(name));
    return chosen(choose(dialog));
}

bool QtDialogs::openAddress(const std::string& url) {
    const bool opened = QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
    if (!opened) {
        log(LogCategory::tool, "no browser could open " + url);
    }
    return opened;
}

bool QtDialogs::openApplication(const std::filesystem::path& bundle) {
    return QProcess::startDetached(QFile::decodeName(bundle.c_str()), {});
}

}  // namespace kzq
