#include "platform/awake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>

#include "words/words.h"

namespace kzq {
namespace {

constexpr int answerLimit = 3000;  ///< milliseconds

}  // namespace

AwakeLock keepAwake(AwakeFor work) {
    const bool firmware = work == AwakeFor::firmware;
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    // The lid has a lock of its own: closing it sends a computer to sleep in spite of the others.
    call << (firmware ? QStringLiteral("sleep:shutdown:idle:handle-lid-switch")
                      : QStringLiteral("sleep:handle-lid-switch"))
         << QStringLiteral("7306 Loop Manager")
         << QString::fromStdString(
                words(firmware ? "The pedal's firmware is being installed" : "Loops are being copied"))
         << QStringLiteral("block");
    const QDBusReply<QDBusUnixFileDescriptor> reply =
        QDBusConnection::systemBus().call(call, QDBus::Block, answerLimit);
    if (!reply.isValid()) {
        return {nullptr, reply.error().message().toStdString()};
    }
    // The login manager lets the computer sleep again once the last copy of this descriptor is closed.
    return {std::make_shared<QDBusUnixFileDescriptor>(reply.value()), {}};
}

}  // namespace kzq
