#include "release/site_server.h"

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <future>

#include "platform/plain_file.h"
#include "updates/update_feed.h"

namespace kzq::release {
namespace {

constexpr int longestHead = 1 << 16;
constexpr int beat = 50;  ///< milliseconds between the pieces of a slowed answer
constexpr int second = 1000;

struct Page {
    int status = 200;
    QByteArray body;
    QByteArray headers;
};

/// "Range: bytes=100-" gives 100.
qsizetype firstByte(const QByteArray& head) {
    for (const auto& line : head.split('\n')) {
        if (line.toLower().startsWith("range: bytes=")) {
            return line.mid(line.indexOf('=') + 1).split('-').first().toLongLong();
        }
    }
    return 0;
}

Page pageFor(const std::filesystem::path& folder, const QByteArray& head) {
    const auto path = QUrl::fromEncoded(head.split(' ').value(1)).path().toStdString();
    const auto file = fileFor(folder, path);
    const auto bytes = readPlainFile(file, largestPackage, Links::followed);
    if (file.empty() || !bytes) {
        return {404, {}, {}};
    }
    const auto size = static_cast<qsizetype>(bytes->size());
    const QByteArray body(reinterpret_cast<const char*>(bytes->data()), size);
    const auto first = firstByte(head);
    if (first <= 0) {
        return {200, body, {}};
    }
    if (first >= size) {
        return {416, {}, {}};
    }
    const auto range =
        QByteArray::number(first) + "-" + QByteArray::number(size - 1) + "/" + QByteArray::number(size);
    return {206, body.mid(first), "Content-Range: bytes " + range + "\r\n"};
}

/// Writes `bytes` a piece at a time, then closes.
void trickle(QSslSocket& socket, const QByteArray& bytes, qsizetype perSecond) {
    auto* const timer = new QTimer(&socket);  // which owns it
    const auto step = std::max<qsizetype>(perSecond * beat / second, 1);
    QObject::connect(timer, &QTimer::timeout, &socket,
                     [&socket, timer, bytes, step, at = qsizetype{0}]() mutable {
                         socket.write(bytes.mid(at, step));
                         at += step;
                         if (at >= bytes.size()) {
                             timer->stop();
                             socket.disconnectFromHost();
                         }
                     });
    timer->start(beat);
}

}  // namespace

std::filesystem::path fileFor(const std::filesystem::path& folder, const std::string& path) {
    const auto inside = std::filesystem::path(path).lexically_normal().relative_path();
    return inside.empty() || *inside.begin() == ".." ? std::filesystem::path() : folder / inside;
}

class SiteServer::Thread : public QThread {
  public:
    explicit Thread(Order order) : order_(std::move(order)) {
        tls_ = QSslConfiguration::defaultConfiguration();
        tls_.setLocalCertificate(QSslCertificate(QByteArray::fromStdString(order_.certificates.certificate)));
        tls_.setPrivateKey(QSslKey(QByteArray::fromStdString(order_.certificates.key), QSsl::Ec));
    }
    ~Thread() override {
        quit();
        wait();
    }

    /// The port, or 0.
    std::uint16_t listen() {
        auto listening = listening_.get_future();
        start();
        return listening.get();
    }

  protected:
    void run() override {
        QSslServer server;
        server.setSslConfiguration(tls_);
        connect(&server, &QSslServer::pendingConnectionAvailable, &server, [this, &server] {
            while (auto* const socket = server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket,
                        [this, socket] { serve(*static_cast<QSslSocket*>(socket)); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
        const bool listens = server.listen(QHostAddress(QString::fromStdString(order_.address)), order_.port);
        listening_.set_value(listens ? server.serverPort() : std::uint16_t{0});
        if (listens) {
            exec();
        }
    }

  private:
    /// A request has no body and is complete when its head ends.
    void serve(QSslSocket& socket) const {
        const QByteArray head = socket.peek(longestHead);
        if (!head.endsWith("\r\n\r\n")) {
            return;
        }
        socket.readAll();
        const auto page = pageFor(order_.folder, head);
        const auto status = QByteArray::number(page.status);
        if (order_.requested) {
            order_.requested((head.split('\r').first() + " " + status).toStdString());
        }
        socket.write("HTTP/1.1 " + status + " -\r\nConnection: close\r\nContent-Length: " +
                     QByteArray::number(page.body.size()) + "\r\n" + page.headers + "\r\n");
        if (order_.bytesPerSecond > 0) {
            trickle(socket, page.body, static_cast<qsizetype>(order_.bytesPerSecond));
            return;
        }
        socket.write(page.body);
        socket.disconnectFromHost();
    }

    const Order order_;
    QSslConfiguration tls_;
    std::promise<std::uint16_t> listening_;
};

SiteServer::SiteServer() = default;
SiteServer::~SiteServer() = default;

Result<std::unique_ptr<SiteServer>> SiteServer::start(Order order) {
    std::unique_ptr<SiteServer> server(new SiteServer);
    const auto address = order.address;
    server->thread_ = std::make_unique<Thread>(std::move(order));
    const auto port = server->thread_->listen();
    if (port == 0) {
        return Trouble{Trouble::Kind::badAddress, address};
    }
    server->host_ = address + ":" + std::to_string(port);
    return server;
}

}  // namespace kzq::release
