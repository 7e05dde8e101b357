#include "tls_server.h"

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QThread>
#include <future>

namespace kzq::test {

namespace {

std::string headOf(const Answer& answer) {
    std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " Status\r\nConnection: close\r\n";
    if (answer.stateLength) {
        head += "Content-Length: " + std::to_string(answer.body.size()) + "\r\n";
    }
    for (const auto& [name, value] : answer.headers) {
        head.append(name).append(": ").append(value).append("\r\n");
    }
    return head + "\r\n";
}

}  // namespace

class TlsServer::Thread : public QThread {
  public:
    explicit Thread(const TestAuthority& authority) {
        tls_ = QSslConfiguration::defaultConfiguration();
        tls_.setLocalCertificate(QSslCertificate(QByteArray::fromStdString(authority.certificate)));
        tls_.setPrivateKey(QSslKey(QByteArray::fromStdString(authority.key), QSsl::Ec));
        auto listening = listening_.get_future();
        start();
        port_ = listening.get();
    }
    ~Thread() override {
        quit();
        wait();
    }

    quint16 port() const { return port_; }

    std::mutex mutex;
    std::map<std::string, Answer> answers;
    std::vector<std::string> requests;

  protected:
    void run() override {
        QSslServer server;
        server.setSslConfiguration(tls_);
        connect(&server, &QSslServer::pendingConnectionAvailable, &server, [this, &server] {
            while (auto* const socket = server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(*socket); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
        if (!server.listen(QHostAddress::LocalHost)) {
            qFatal("the test server cannot listen");
        }
        listening_.set_value(server.serverPort());
        exec();
    }

  private:
    /// A request has no body and is complete when its header ends.
    void serve(QTcpSocket& socket) {
        const QByteArray head = socket.peek(1 << 16);
        if (!head.endsWith("\r\n\r\n")) {
            return;
        }
        socket.readAll();
        const auto path = head.split(' ').value(1).toStdString();
        const auto range = head.indexOf("\r\nRange: bytes=");
        const auto first =
            range < 0 ? 0 : head.mid(range).split('=').value(1).split('-').first().toULongLong();
        Answer answer{"", 404, {}, {}, false, false, true};
        {
            const std::lock_guard guard(mutex);
            requests.push_back(first == 0 ? path : path + " from " + std::to_string(first));
            if (const auto found = answers.find(path); found != answers.end()) {
                answer = found->second;
            }
        }
        if (answer.mute) {
            return;
        }
        if (answer.ranges && first > 0) {
            const auto whole = answer.body.size();
            answer.status = 206;
            answer.headers.emplace_back("Content-Range", "bytes " + std::to_string(first) + "-" +
                                                             std::to_string(whole - 1) + "/" +
                                                             std::to_string(whole));
            answer.body.erase(0, first);
        }
        const auto body = answer.body.substr(0, answer.cutAfter.value_or(answer.body.size()));
        socket.write(QByteArray::fromStdString(headOf(answer) + body));
        if (!answer.stall) {
            socket.disconnectFromHost();
        }
    }

    QSslConfiguration tls_;
    std::promise<quint16> listening_;
    quint16 port_ = 0;
};

TlsServer::TlsServer(const TestAuthority& authority) : thread_(std::make_unique<Thread>(authority)) {}

TlsServer::~TlsServer() = default;

std::string TlsServer::url(const std::string& path) const {
    return "https://127.0.0.1:" + std::to_string(thread_->port()) + path;
}

void TlsServer::set(const std::string& path, Answer answer) {
    const std::lock_guard guard(thread_->mutex);
    thread_->answers[path] = std::move(answer);
}

std::vector<std::string> TlsServer::takeRequests() {
    const std::lock_guard guard(thread_->mutex);
    return std::exchange(thread_->requests, {});
}

}  // namespace kzq::test
