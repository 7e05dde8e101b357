#include "release/certificates.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace kzq::release {
namespace {

/// Runs openssl in `folder`.
bool openssl(const QTemporaryDir& folder, const QString& words) {
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start("openssl", words.split(' '));
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

std::string read(const QTemporaryDir& folder, const char* name) {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace

Result<Certificates> Certificates::make(const std::string& subject) {
    const QTemporaryDir folder;
    QFile names(folder.filePath("names"));
    const QString newKey = "-newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes ";
    const bool made =
        names.open(QIODevice::WriteOnly) &&
        names.write("subjectAltName=" + QByteArray::fromStdString(subject) + "\n") > 0 && names.flush() &&
        openssl(folder, "req -x509 " + newKey + "-days 2 -subj /CN=Rehearsal -keyout ca.key -out ca.pem") &&
        openssl(folder, "req " + newKey + "-subj /CN=server -keyout key.pem -out request") &&
        openssl(folder,
                "x509 -req -in request -CA ca.pem -CAkey ca.key -days 2 -extfile names -out server.pem");
    if (!made) {
        return Trouble{Trouble::Kind::toolMissing, "openssl", 0, "it made no certificate"};
    }
    return Certificates{read(folder, "ca.pem"), read(folder, "server.pem"), read(folder, "key.pem")};
}

}  // namespace kzq::release
