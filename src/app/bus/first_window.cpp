#include "app/bus/first_window.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <utility>

#include "app/bus/activation.h"

namespace kzq {

namespace {

constexpr auto objectPath = "/example/kzq/kzq7306";
constexpr auto interfaceName = "org.freedesktop.Application";
constexpr auto activationToken = "activation-token";
constexpr auto startupId = "desktop-startup-id";

QDBusMessage request(const QString& name, const Start& start) {
    const auto* const method = start.files.isEmpty() ? "Activate" : "Open";
    auto call = QDBusMessage::createMethodCall(name, objectPath, interfaceName, method);
    if (!start.files.isEmpty()) {
        call << QUrl::toStringList(start.files, QUrl::FullyEncoded);
    }
    call << start.platformData;
    call.setAutoStartService(false);
    return call;
}

/// The program may have ended before it answered.
bool mayBeGone(const QDBusError& error) {
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::ServiceUnknown ||
           error.name() == "org.freedesktop.DBus.Error.NameHasNoOwner";
}

}  // namespace

QVariantMap startTokens() {
    QVariantMap tokens;
    for (const auto& [key, variable] :
         {std::pair(activationToken, "XDG_ACTIVATION_TOKEN"), std::pair(startupId, "DESKTOP_STARTUP_ID")}) {
        if (const auto token = qEnvironmentVariable(variable); !token.isEmpty()) {
            tokens.insert(key, token);
        }
    }
    return tokens;
}

FirstWindow::FirstWindow(QDBusConnection bus, QString name) : bus_(std::move(bus)), name_(std::move(name)) {}

FirstWindow::~FirstWindow() {
    release();
}

FirstWindow::Claim FirstWindow::claim(const Start& start, std::chrono::milliseconds limit) {
    if (name_.isEmpty() || !bus_.isConnected()) {
        return Claim::first;
    }
    // Whoever sees the name finds the object, too.
    bus_.registerObject(objectPath, this, QDBusConnection::ExportAllSlots);
    const QDeadlineTimer deadline(limit);
    do {
        const auto taken = bus_.interface()->registerService(name_);
        if (!taken.isValid() || taken == QDBusConnectionInterface::ServiceRegistered) {
            return Claim::first;
        }
        const auto patience = std::max<qint64>(deadline.remainingTime(), 1);
        const auto answer = bus_.call(request(name_, start), QDBus::Block, static_cast<int>(patience));
        if (answer.type() == QDBusMessage::ReplyMessage) {
            return Claim::handedOver;
        }
        if (!mayBeGone(QDBusError(answer))) {
            break;
        }
    } while (!deadline.hasExpired());
    return Claim::unanswered;
}

void FirstWindow::release() {
    if (!name_.isEmpty() && bus_.isConnected()) {
        bus_.interface()->unregisterService(name_);
        bus_.unregisterObject(objectPath);
    }
}

void FirstWindow::Activate(const QVariantMap& platformData) {
    Open({}, platformData);
}

void FirstWindow::Open(const QStringList& addresses, const QVariantMap& platformData) {
    letComeForward(platformData.value(activationToken).toByteArray());
    const auto files = QUrl::fromStringList(addresses);
    if (receiver_) {
        receiver_(files);
    } else {
        early_ = early_.value_or(QList<QUrl>()) + files;
    }
}

void FirstWindow::ActivateAction(const QString& /*action*/, const QVariantList& /*parameter*/,
                                 const QVariantMap& platformData) {
    Activate(platformData);
}

void FirstWindow::setReceiver(std::function<void(const QList<QUrl>& files)> receiver) {
    receiver_ = std::move(receiver);
    if (const auto early = std::exchange(early_, std::nullopt)) {
        receiver_(*early);
    }
}

}  // namespace kzq
