#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QEventLoop>
#include <QThread>
#include <array>

#include "app/bus/first_window.h"
#include "platform/awake.h"
#include "platform/descriptor.h"

namespace kzq::test {

using Claim = FirstWindow::Claim;
using namespace std::chrono_literals;

constexpr auto name = "example.kzq.test";

/// What `task` answers on a thread of its own, while this one serves the bus.
template <class Task>
auto aside(Task task) {
    decltype(task()) answer{};
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create([&] { answer = task(); }));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
    return answer;
}

QDBusConnection onBus(const char* called) {
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, called);
}

Claim claimOfAnother(const Start& start = {}, std::chrono::milliseconds limit = 1min) {
    FirstWindow another(onBus("another"), name);
    return another.claim(start, limit);
}

/// The system's login manager, as far as it is needed.
class LoginManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

  public:
    LoginManager() {
        auto bus = QDBusConnection::systemBus();
        bus.registerObject("/org/freedesktop/login1", this, QDBusConnection::ExportAllSlots);
        bus.registerService("org.freedesktop.login1");
    }

    QStringList asked;
    Descriptor lock;  ///< at its end once the computer may sleep again

    // NOLINTNEXTLINE(readability-redundant-access-specifiers): moc needs to see it
  public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& /*who*/, const QString& /*why*/,
                                    const QString& mode) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        lock = Descriptor(ends[0]);
        asked = {what, mode};
        return QDBusUnixFileDescriptor(Descriptor(ends[1]).get());
    }
};

/// A program that ends instead of answering.
class Going : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    Going() {
        auto bus = onBus("going");
        bus.registerObject("/example/kzq/kzq7306", this, QDBusConnection::ExportAllSlots);
        bus.registerService(name);
    }

    // NOLINTNEXTLINE(readability-redundant-access-specifiers): moc needs to see it
  public Q_SLOTS:
    void Activate(const QVariantMap& /*platformData*/) {
        setDelayedReply(true);
        QMetaObject::invokeMethod(
            this, [] { QDBusConnection::disconnectFromBus("going"); }, Qt::QueuedConnection);
    }
};

TEST(Awake, AsLongAsTheLockIsHeld) {
    const auto transfer = [] { return keepAwake(AwakeFor::transfer); };
    EXPECT_NE(aside(transfer).problem, "");
    const LoginManager manager;
    auto held = aside(transfer);
    ASSERT_NE(held.hold, nullptr) << held.problem;
    EXPECT_EQ(manager.asked, QStringList({"sleep:handle-lid-switch", "block"}));
    pollfd end{manager.lock.get(), POLLIN, 0};
    EXPECT_EQ(::poll(&end, 1, 0), 0);
    held.hold.reset();
    char byte = 0;
    EXPECT_EQ(::read(manager.lock.get(), &byte, 1), 0);
}

TEST(FirstWindow, LaterStartsHandOverToIt) {
    FirstWindow first(onBus("first"), name);
    ASSERT_EQ(first.claim({}), Claim::first);
    const QList<QUrl> files = {QUrl::fromLocalFile("/tmp/100 %\u00fc #1.wav"), QUrl::fromLocalFile("/b")};
    EXPECT_EQ(aside([&] { return claimOfAnother({files, {{"activation-token", "1"}}}); }), Claim::handedOver);
    std::vector<QList<QUrl>> received;  // the first only now, as by a bus that has just started the program
    first.setReceiver([&received](const auto& given) { received.push_back(given); });
    EXPECT_EQ(aside([] { return claimOfAnother(); }), Claim::handedOver);
    auto action = QDBusMessage::createMethodCall(name, "/example/kzq/kzq7306", "org.freedesktop.Application",
                                                 "ActivateAction");
    action << "none" << QVariantList() << QVariantMap();
    EXPECT_EQ(aside([&] { return onBus("desktop").call(action).type(); }), QDBusMessage::ReplyMessage);
    EXPECT_THAT(received, testing::ElementsAre(files, testing::IsEmpty(), testing::IsEmpty()));
    EXPECT_EQ(FirstWindow(onBus("another"), {}).claim({}), Claim::first) << "without a name";
    first.release();
    EXPECT_EQ(claimOfAnother(), Claim::first);
}

TEST(FirstWindow, OneThatHangsOrEndsDoesNotKeepOthersFromStarting) {
    EXPECT_EQ(FirstWindow(QDBusConnection("no bus"), name).claim({}), Claim::first);
    {
        FirstWindow hangs(onBus("first"), name);
        ASSERT_EQ(hangs.claim({}), Claim::first);
        EXPECT_EQ(claimOfAnother({}, 50ms), Claim::unanswered);  // this thread serves nobody meanwhile
    }
    const Going going;
    EXPECT_EQ(aside([] { return claimOfAnother(); }), Claim::first);
}

}  // namespace kzq::test

/// On a bus of the test's own, which is the system's as well.
int main(int argc, char** argv) {
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    testing::InitGoogleMock(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

#include "bus_test.moc"
