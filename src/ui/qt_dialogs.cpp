#include "ui/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "ui/alert_panel.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

constexpr QSize aroundWindow(16, 48);  // on most desktops, with the title

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

/// The files taken in `chooser`, which may be destroyed meanwhile. Its own `exec` would wait for the
/// desktop's chooser even once that is gone.
QStringList QtDialogs::answer(QFileDialog& chooser) {
    QStringList files;
    QEventLoop loop;
    // as accepted: closing the completer's list changes what is selected
    QObject::connect(&chooser, &QFileDialog::filesSelected, &loop,
                     [&files](const auto& taken) { files = taken; });
    // the list would outlive it, and the toolkit sees no window become active under a popup
    QObject::connect(&chooser, &QDialog::finished, &loop, [&loop] {
        if (auto* const popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        loop.quit();
    });
    QObject::connect(&chooser, &QObject::destroyed, &loop, &QEventLoop::quit);
    chooser.setModal(true);
    chooser.show();
    if (chooser.testAttribute(Qt::WA_DontShowOnScreen)) {
        desktops_ = &chooser;
    }
    if (chooser.isVisible()) {
        loop.exec();
    }
    return files;
}

/// Nothing if the desktop's chooser could not be shown to the end.
std::optional<QStringList> QtDialogs::ask(const std::string& title, const Dress& dress, bool desktops) {
    const QPointer<QFileDialog> dialog(new QFileDialog(parent_(), QString::fromStdString(title)));
    dialog->setOption(QFileDialog::DontUseNativeDialog, !desktops);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setDirectory(QFileInfo(folder_).isDir() ? folder_ : musicFolder());
    dress(*dialog);
    const auto room = dialog->screen()->availableGeometry().size() - aroundWindow;
    dialog->resize(
        dialog->size().boundedTo(room));  // the toolkit's own does not look how small the screen is
    ended_ = false;
    auto files = answer(*dialog);
    const bool shownByDesktop = !desktops_.isNull();
    const bool lost = shownByDesktop && (ended_ || (desktopChooserMissing_ && desktopChooserMissing_()));
    delete dialog.data();  // unless its parent did
    if (lost && files.isEmpty()) {
        return std::nullopt;
    }
    return files;
}

/// Empty if nothing was chosen.
QString QtDialogs::choose(const std::string& title, const Dress& dress) {
    auto files = ask(title, dress, true);
    if (!files) {
        log(LogCategory::tool, "the desktop's file chooser is missing or has ended");
        files = ask(title, dress, false);
    }
    if (!files || files->size() != 1) {
        return {};
    }
    const QFileInfo file(files->first());
    folder_ = file.isDir() ? file.filePath() : file.path();
    return files->first();
}

void QtDialogs::desktopChooserEnded() {
    if (desktops_) {
        ended_ = true;
        desktops_->reject();
    }
}

Dialogs::Chosen QtDialogs::chooseFile(const std::string& title, const FileKind& allowed) {
    const auto file = choose(title, [&allowed](auto& dialog) {
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setNameFilter(filterOf(allowed));
    });
    return isAllowed(file, allowed) ? chosen(file) : Chosen();
}

Dialogs::Chosen QtDialogs::chooseFolder(const std::string& title, const std::string& prompt) {
    return chosen(choose(title, [&prompt](auto& dialog) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        dialog.setLabelText(QFileDialog::Accept, QString::fromStdString(prompt));
    }));
}

Dialogs::Chosen QtDialogs::chooseNewFile(const std::string& title, const std::string& name,
                                         const FileKind& usual) {
    return chosen(choose(title, [&name, &usual](auto& dialog) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setFileMode(QFileDialog::AnyFile);
        dialog.setNameFilters({filterOf(usual), toQt(words("All files")) + " (*)"});
        dialog.selectFile(QString::fromStdString(name));
    }));
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
