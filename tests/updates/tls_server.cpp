#include "tls_server.h"

#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QThread>
#include <cstdlib>
#include <future>
#include <stdexcept>

namespace kzq::test {

namespace {

void shell(const std::string& command) {
    if (std::system((command + " 2>/dev/null").c_str()) != 0) {  // NOLINT(*-mt-unsafe)
        throw std::runtime_error("failed: " + command);
    }
}

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

TestAuthority::TestAuthority(const std::string& subject) {
    const TestFolder folder;
    const std::string newKey = "-newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes ";
    const std::string inside = "cd " + folder.path().string() + " && openssl ";
    writeText(folder / "names", "subjectAltName=" + subject + "\n");
    shell(inside + "req -x509 " + newKey +
          "-days 2 -subj '/CN=Authority of a test' -keyout ca.key -out ca.pem");
    shell(inside + "req " + newKey + "-subj /CN=server -keyout key.pem -out request");
    shell(inside + "x509 -req -in request -CA ca.pem -CAkey ca.key -days 2 -extfile names -out server.pem");
    authority = readText(folder / "ca.pem");
    certificate = readText(folder / "server.pem");
    key = readText(folder / "key.pem");
}

const TestAuthority& TestAuthority::usual() {
    static const TestAuthority authority;
    return authority;
}

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
        Answer answer{"", 404, {}, {}, false, false, true};
        {
            const std::lock_guard guard(mutex);
            requests.push_back(path);
            if (const auto found = answers.find(path); found != answers.end()) {
                answer = found->second;
            }
        }
        if (answer.mute) {
            return;
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
