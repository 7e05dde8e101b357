#include "app/program/hand_over.h"

#include <QCryptographicHash>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <system_error>

namespace kzq {

QList<QUrl> filesOf(const ProgramOptions& options) {
    QList<QUrl> files;
    std::ranges::transform(options.files, std::back_inserter(files), [](const auto& file) {
        std::error_code ignored;
        return QUrl::fromLocalFile(QString::fromStdString(std::filesystem::absolute(file, ignored).string()));
    });
    return files;
}

QString nameOnBus(const ProgramOptions& options) {
    QString name = "example.kzq.kzq7306";
    if (!options.simulate) {
        return name;
    }
    if (options.simulatedFolder.empty()) {
        return {};
    }
    std::error_code ignored;
    const auto folder = std::filesystem::weakly_canonical(options.simulatedFolder, ignored).string();
    const auto digest =
        QCryptographicHash::hash(QByteArray::fromStdString(folder), QCryptographicHash::Sha256);
    return name + ".Simulated" + QString::fromLatin1(digest.toHex());
}

bool isHandedOver(FirstWindow& first, const Start& start) {
    switch (first.claim(start)) {
        case FirstWindow::Claim::handedOver:
            std::cout << "The window that is open already has come forward." << std::endl;
            return true;
        case FirstWindow::Claim::unanswered:
            std::cerr << "kzq7306: the window that is open already does not answer; this is another one."
                      << std::endl;
            return false;
        default:
            return false;
    }
}

}  // namespace kzq
