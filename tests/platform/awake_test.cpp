#include "platform/awake.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <array>
#include <fstream>
#include <thread>

namespace kzq {
namespace {

constexpr auto patience = std::chrono::seconds(30);

/// A system bus of our own, with only the daemon.
class Bus {
  public:
    /// Its address; empty if there is no daemon.
    std::string start() {
        const auto settings = folder_.filePath(QStringLiteral("bus.conf"));
        std::ofstream(settings.toStdString())
            << "<busconfig><type>system</type><listen>unix:dir=" << folder_.path().toStdString()
            << "</listen><policy context=\"default\"><allow own=\"*\"/><allow send_destination=\"*\"/>"
               "<allow receive_sender=\"*\"/><allow user=\"*\"/></policy></busconfig>";
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                       QStringLiteral("--config-file=") + settings});
        if (!daemon_.waitForStarted() || !daemon_.waitForReadyRead()) {
            return {};
        }
        return daemon_.readLine().trimmed().toStdString();
    }
    ~Bus() {
        daemon_.kill();
        daemon_.waitForFinished();
    }

  private:
    QTemporaryDir folder_;
    QProcess daemon_;
};

/// Plays the login manager; lives on the main thread.
class LoginManager : public QDBusVirtualObject {
  public:
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        asked = message;
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        lock = ends[0];
        const auto reply = message.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(ends[1])));
        ::close(ends[1]);
        return connection.send(reply);
    }
    /// Whether the lock is released, at once or within `limit`.
    bool released(std::chrono::milliseconds limit) const {
        pollfd end{lock, POLLIN, 0};
        return ::poll(&end, 1, static_cast<int>(limit.count())) == 1;
    }

    QDBusMessage asked;
    int lock = -1;
};

/// The result of `keepAwake` on a separate thread, as in the tool.
AwakeLock askOnAThread() {
    AwakeLock answer;
    QEventLoop loop;
    std::thread asker([&] {
        answer = keepAwake();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit);
    });
    loop.exec();
    asker.join();
    return answer;
}

TEST(Awake, HoldsALockThatTheLidObeysToo) {
    int count = 1;
    std::string name = "test";
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    Bus bus;
    const auto address = bus.start();
    if (address.empty()) {
        GTEST_SKIP() << "no dbus-daemon";
    }
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", QByteArray::fromStdString(address));
    EXPECT_FALSE(askOnAThread().hold);  // nobody there

    LoginManager manager;
    auto connection =
        QDBusConnection::connectToBus(QString::fromStdString(address), QStringLiteral("login manager"));
    ASSERT_TRUE(connection.registerVirtualObject(QStringLiteral("/org/freedesktop/login1"), &manager));
    ASSERT_TRUE(connection.registerService(QStringLiteral("org.freedesktop.login1")));
    auto answer = askOnAThread();
    ASSERT_TRUE(answer.hold) << answer.problem;
    EXPECT_EQ(manager.asked.interface(), QStringLiteral("org.freedesktop.login1.Manager"));
    EXPECT_EQ(manager.asked.member(), QStringLiteral("Inhibit"));
    const auto words = manager.asked.arguments();
    ASSERT_EQ(words.size(), 4);
    const auto kinds = words[0].toString().split(QLatin1Char(':'));
    for (const auto* const kind : {"sleep", "shutdown", "idle", "handle-lid-switch"}) {
        EXPECT_TRUE(kinds.contains(QLatin1String(kind))) << kind;
    }
    EXPECT_EQ(words[3].toString(), QStringLiteral("block"));
    EXPECT_FALSE(manager.released(std::chrono::milliseconds(0)));
    answer.hold.reset();
    EXPECT_TRUE(manager.released(patience));
    ::close(manager.lock);
}

}  // namespace
}  // namespace kzq
