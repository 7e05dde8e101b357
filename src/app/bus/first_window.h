#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <chrono>
#include <functional>
#include <optional>

namespace kzq {

/// What a start of the program wants.
struct Start {
    QList<QUrl> files = {};
    /// By which the desktop lets a window come forward, as org.freedesktop.Application has it.
    QVariantMap platformData = {};
};

/// The desktop's tokens that this process was started with. Before the application is made, which uses them
/// up.
QVariantMap startTokens();

/// Makes one window of all starts for the same pedal: the first has a name on the session bus, by which
/// later ones hand over to it. It speaks org.freedesktop.Application, as desktops do. Main thread.
class FirstWindow : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    /// Without a name, or a bus, every start is the first.
    FirstWindow(QDBusConnection bus, QString name);
    ~FirstWindow() override;

    enum class Claim : std::uint8_t {
        first,       ///< the name is ours, or there are no names
        handedOver,  ///< to the window that is there, which came forward
        unanswered,  ///< by the program that has the name, within the limit
    };
    /// Waits for that program, and takes the name if it ends meanwhile.
    Claim claim(const Start& start, std::chrono::milliseconds limit = std::chrono::seconds(3));

    /// What other starts, and the desktop, hand over; comes from the main loop, and at once if it came
    /// before: a desktop that has the bus start the program asks as soon as the name is there.
    void setReceiver(std::function<void(const QList<QUrl>& files)> receiver);
    /// From now on, other starts are on their own.
    void release();

    // NOLINTNEXTLINE(readability-redundant-access-specifiers): moc needs to see it
  public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): on the bus they are called so
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& addresses, const QVariantMap& platformData);
    /// There are no actions: the window comes forward.
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

  private:
    QDBusConnection bus_;
    const QString name_;
    std::function<void(const QList<QUrl>&)> receiver_;
    std::optional<QList<QUrl>> early_;  ///< what was handed over before there was a receiver
};

}  // namespace kzq
