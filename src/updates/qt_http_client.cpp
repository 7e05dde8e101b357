#include "updates/qt_http_client.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "words/words.h"

namespace kzq {
namespace {

constexpr int redirectLimit = 5;
constexpr qint64 bufferSize = 1 << 18;
constexpr int statusOk = 200;
constexpr int statusPartial = 206;
constexpr std::array redirectStatuses = {301, 302, 303, 305, 307, 308};
constexpr auto cancelPeriod = std::chrono::milliseconds(50);

bool isAddress(const QUrl& url) {
    return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty() &&
           url.userInfo().isEmpty();
}

HttpResult failed(HttpFailure failure, std::string reason) {
    return {failure, std::move(reason), {}};
}

QNetworkRequest requestFor(const QUrl& url, const std::string& authorities, std::uint64_t offset) {
    QNetworkRequest request(url);
    // Qt reads a redirecting page before it follows, and cannot if the page is longer than the buffer.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    // Stated lengths and limits count the bytes as stored.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "7306-Loop-Manager");
    if (offset > 0) {
        request.setRawHeader("Range", "bytes=" + QByteArray::number(static_cast<qulonglong>(offset)) + "-");
    }
    if (!authorities.empty()) {
        auto tls = QSslConfiguration::defaultConfiguration();
        tls.setCaCertificates(QSslCertificate::fromData(QByteArray::fromStdString(authorities)));
        request.setSslConfiguration(tls);
    }
    return request;
}

HttpFailure failureOf(QNetworkReply::NetworkError error) {
    switch (error) {
        case QNetworkReply::SslHandshakeFailedError:
            return HttpFailure::untrusted;
        case QNetworkReply::RemoteHostClosedError:
            return HttpFailure::cutShort;
        default:
            return HttpFailure::network;
    }
}

/// One reply being received.
class Exchange {
  public:
    /// `left`: of the fetch's time; negative for no limit.
    Exchange(const HttpRequest& request, QNetworkReply& reply, std::chrono::milliseconds left)
        : request_(request), reply_(reply), left_(left) {}

    /// The target of a result with the failure `redirect`.
    const QUrl& target() const { return target_; }

    HttpResult run() {
        reply_.setReadBufferSize(bufferSize);
        QObject::connect(&reply_, &QNetworkReply::metaDataChanged, &loop_, [this] { checkHead(); });
        QObject::connect(&reply_, &QNetworkReply::readyRead, &loop_, [this] { take(); });
        QObject::connect(&reply_, &QNetworkReply::finished, &loop_, [this] { finish(); });
        startTimers();
        if (!reply_.isFinished()) {
            loop_.exec();
        } else {
            finish();
        }
        return std::move(result_);
    }

  private:
    void startTimers() {
        QObject::connect(&total_, &QTimer::timeout, &loop_,
                         [this] { end(HttpFailure::timeout, english("the download took too long")); });
        total_.setSingleShot(true);
        if (left_.count() >= 0) {
            total_.start(left_);
        }
        if (request_.limits.silence.count() > 0) {
            QObject::connect(&silence_, &QTimer::timeout, &loop_,
                             [this] { end(HttpFailure::timeout, english("the server stopped answering")); });
            silence_.start(request_.limits.silence);
        }
        if (request_.cancelled != nullptr) {
            QObject::connect(&cancel_, &QTimer::timeout, &loop_, [this] {
                if (*request_.cancelled) {
                    end(HttpFailure::cancelled, "cancelled");
                }
            });
            cancel_.start(cancelPeriod);
        }
    }

    int status() const { return reply_.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }
    /// Of the whole body; 0 if the server has not stated it.
    std::uint64_t statedLength() const {
        const auto stated = reply_.header(QNetworkRequest::ContentLengthHeader);
        return stated.isValid() ? stated.toULongLong() + first() : 0;
    }
    /// Whether the answer is the rest that was asked for.
    bool isRest() const {
        const auto start = "bytes " + QByteArray::number(static_cast<qulonglong>(request_.offset)) + "-";
        return request_.offset > 0 && status() == statusPartial &&
               reply_.rawHeader("Content-Range").startsWith(start);
    }
    bool isBody() const { return status() == statusOk || isRest(); }
    /// Of the body that is coming.
    std::uint64_t first() const { return isRest() ? request_.offset : 0; }

    bool isRedirect() const {
        return std::ranges::find(redirectStatuses, status()) != redirectStatuses.end() &&
               reply_.hasRawHeader("Location");
    }

    /// Anything but the requested body ends here; the page that comes with it is not read.
    void checkHead() {
        if (isRedirect()) {
            target_ =
                reply_.url().resolved(QUrl::fromEncoded(reply_.rawHeader("Location"), QUrl::StrictMode));
            end(HttpFailure::redirect, "redirected");
        } else if (status() != 0 && !isBody()) {
            end(HttpFailure::refused, "HTTP status " + std::to_string(status()));
        } else if (statedLength() > request_.limits.bytes) {
            end(HttpFailure::tooLong, english("the stated length is too large"));
        }
    }

    void take() {
        if (silence_.isActive()) {
            silence_.start();
        }
        if (!ended_ && isBody()) {
            begin();
        }
        while (!ended_ && isBody() && reply_.bytesAvailable() > 0) {
            const QByteArray piece = reply_.read(bufferSize);
            received_ += static_cast<std::uint64_t>(piece.size());
            if (received_ > request_.limits.bytes) {
                end(HttpFailure::tooLong, english("the file is too long"));
                return;
            }
            keep(piece);
        }
    }

    void begin() {
        if (std::exchange(begun_, true)) {
            return;
        }
        received_ = first();
        if (request_.offset > 0 && received_ == 0 && request_.restart) {
            request_.restart();
        }
    }

    void keep(const QByteArray& piece) {
        const auto* const first = reinterpret_cast<const std::uint8_t*>(piece.constData());
        const std::span bytes(first, static_cast<std::size_t>(piece.size()));
        if (!request_.sink) {
            result_.body.insert(result_.body.end(), bytes.begin(), bytes.end());
        } else if (!request_.sink(bytes)) {
            end(HttpFailure::sink, english("the file could not be stored"));
            return;
        }
        if (request_.progress) {
            request_.progress(received_, statedLength());
        }
    }

    void finish() {
        checkHead();
        take();
        if (ended_) {
            return;
        }
        const bool stated = reply_.header(QNetworkRequest::ContentLengthHeader).isValid();
        if (reply_.error() != QNetworkReply::NoError) {
            end(failureOf(reply_.error()), reply_.errorString().toStdString());
        } else if (stated && received_ != statedLength()) {
            end(HttpFailure::cutShort, english("the file is shorter than stated"));
        } else {
            ended_ = true;
            loop_.quit();
        }
    }

    /// The first reason counts; its consequences (such as the aborted reply's own error) do not.
    void end(HttpFailure failure, std::string reason) {
        if (std::exchange(ended_, true)) {
            return;
        }
        result_ = failed(failure, std::move(reason));
        loop_.quit();
    }

    const HttpRequest& request_;
    QNetworkReply& reply_;
    const std::chrono::milliseconds left_;
    QUrl target_;
    QEventLoop loop_;
    QTimer total_;
    QTimer silence_;
    QTimer cancel_;
    HttpResult result_;
    std::uint64_t received_ = 0;
    bool begun_ = false;
    bool ended_ = false;
};

}  // namespace

QtHttpClient::QtHttpClient(std::string authorities) : authorities_(std::move(authorities)) {}

HttpResult QtHttpClient::fetch(const HttpRequest& request) {
    QUrl url(QString::fromStdString(request.url), QUrl::StrictMode);
    if (!isAddress(url)) {
        return failed(HttpFailure::address, english("not an https address"));
    }
    const bool limited = request.limits.total.count() > 0;
    const QDeadlineTimer deadline =
        limited ? QDeadlineTimer(request.limits.total) : QDeadlineTimer(QDeadlineTimer::Forever);
    QNetworkAccessManager manager;
    for (int redirects = 0; redirects <= redirectLimit; ++redirects) {
        if (request.cancelled != nullptr && *request.cancelled) {
            return failed(HttpFailure::cancelled, "cancelled");
        }
        const std::unique_ptr<QNetworkReply> reply(
            manager.get(requestFor(url, authorities_, request.offset)));
        Exchange exchange(request, *reply, std::chrono::milliseconds(deadline.remainingTime()));
        auto result = exchange.run();
        reply->disconnect();
        reply->abort();
        if (result.failure != HttpFailure::redirect) {
            return result;
        }
        url = exchange.target();
        if (!isAddress(url)) {
            return failed(HttpFailure::redirect, english("redirected to an address that is not https"));
        }
    }
    return failed(HttpFailure::redirect, english("too many redirects"));
}

}  // namespace kzq
