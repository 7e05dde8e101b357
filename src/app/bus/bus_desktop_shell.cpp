#include "app/bus/bus_desktop_shell.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/bus/activation.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr auto launcherPath = "/com/canonical/unity/launcherentry/7306";
constexpr auto launcherInterface = "com.canonical.Unity.LauncherEntry";
constexpr auto notifications = "org.freedesktop.Notifications";  // name and interface
constexpr auto notificationsPath = "/org/freedesktop/Notifications";
constexpr auto iconName = "kzq7306";
constexpr auto clickAction = "default";  // what a click on the whole notification is called
constexpr int asLongAsUsual = -1;        // the notification stays

}  // namespace

BusDesktopShell::BusDesktopShell(QDBusConnection bus, QString program, QString entry)
    : bus_(std::move(bus)), program_(std::move(program)), entry_(std::move(entry)) {}

bool BusDesktopShell::inFront() const {
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void BusDesktopShell::showProgress(std::optional<double> fraction) {
    std::optional<int> percent;
    if (fraction && std::isfinite(*fraction)) {
        percent = static_cast<int>(std::clamp(*fraction, 0.0, 1.0) * 100);
    }
    if (std::exchange(percent_, percent) == percent || !bus_.isConnected()) {
        return;
    }
    auto update = QDBusMessage::createSignal(launcherPath, launcherInterface, "Update");
    update << QString("application://%1.desktop").arg(entry_)
           << QVariantMap{{"progress", percent.value_or(0) / 100.0},
                          {"progress-visible", percent.has_value()}};
    bus_.send(update);
}

/// To whoever shows notifications: asking for their name first would wait for an answer.
void BusDesktopShell::listen() {
    if (!std::exchange(listens_, true)) {
        bus_.connect({}, notificationsPath, notifications, "ActivationToken", this,
                     SLOT(tokenGiven(uint, QString)));
        bus_.connect({}, notificationsPath, notifications, "ActionInvoked", this,
                     SLOT(actionInvoked(uint, QString)));
    }
}

void BusDesktopShell::notify(const QString& sentence) {
    if (!bus_.isConnected()) {
        return;
    }
    listen();
    auto call = QDBusMessage::createMethodCall(notifications, notificationsPath, notifications, "Notify");
    // the sentence is the summary: unlike the body, it never has markup
    call << program_ << shown_ << QString(iconName) << sentence << QString()
         << QStringList{clickAction, QString::fromStdString(words("Show"))}
         << QVariantMap{{"desktop-entry", entry_}} << asLongAsUsual;
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<unsigned> number = *answer;
        if (number.isValid()) {
            shown_ = number.value();
        }
        answer->deleteLater();
    });
}

/// Comes before the click.
void BusDesktopShell::tokenGiven(uint id, const QString& token) const {
    if (id == shown_) {
        letComeForward(token.toUtf8());
    }
}

void BusDesktopShell::actionInvoked(uint id, const QString& action) {
    if (id == shown_ && action == clickAction && clicked_) {
        clicked_();
    }
}

}  // namespace kzq
