#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QNetworkProxy>

/// Qt's event loops need an application object; proxies set in the environment are not for loopback.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
