#include "updates/qt_http_client.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

namespace kzq {
namespace {

constexpr int redirectLimit = 5;
constexpr qint64 bufferSize = 1 << 18;
constexpr int statusOk = 200;
constexpr auto cancelPeriod = std::chrono::milliseconds(50);

HttpResult failed(HttpFailure failure, std::string reason) {
    return {failure, std::move(reason), {}};
}

QNetworkRequest requestFor(const QUrl& url, const std::string& authorities) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setMaximumRedirectsAllowed(redirectLimit);
    // Stated lengths and limits are about the bytes as they are stored.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "7306-Loop-Manager");
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
        case QNetworkReply::InsecureRedirectError:
        case QNetworkReply::TooManyRedirectsError:
        case QNetworkReply::ProtocolUnknownError:
            return HttpFailure::redirect;
        case QNetworkReply::RemoteHostClosedError:
            return HttpFailure::cutShort;
        default:
            return HttpFailure::network;
    }
}

/// One reply on its way in.
class Exchange {
  public:
    Exchange(const HttpRequest& request, QNetworkReply& reply) : request_(request), reply_(reply) {}

    HttpResult run() {
        reply_.setReadBufferSize(bufferSize);
        QObject::connect(&reply_, &QNetworkReply::metaDataChanged, &loop_, [this] { checkLength(); });
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
                         [this] { end(HttpFailure::timeout, "took too long"); });
        total_.setSingleShot(true);
        total_.start(request_.limits.total);
        if (request_.limits.silence.count() > 0) {
            QObject::connect(&silence_, &QTimer::timeout, &loop_,
                             [this] { end(HttpFailure::timeout, "the server fell silent"); });
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
    std::uint64_t statedLength() const {
        return reply_.header(QNetworkRequest::ContentLengthHeader).toULongLong();
    }

    void checkLength() {
        if (status() == statusOk && statedLength() > request_.limits.bytes) {
            end(HttpFailure::tooLong, "says that it is too long");
        }
    }

    void take() {
        if (silence_.isActive()) {
            silence_.start();
        }
        while (!ended_ && status() == statusOk && reply_.bytesAvailable() > 0) {
            const QByteArray piece = reply_.read(bufferSize);
            received_ += static_cast<std::uint64_t>(piece.size());
            if (received_ > request_.limits.bytes) {
                end(HttpFailure::tooLong, "is too long");
                return;
            }
            keep(piece);
        }
    }

    void keep(const QByteArray& piece) {
        const auto* const first = reinterpret_cast<const std::uint8_t*>(piece.constData());
        const std::span bytes(first, static_cast<std::size_t>(piece.size()));
        if (!request_.sink) {
            result_.body.insert(result_.body.end(), bytes.begin(), bytes.end());
        } else if (!request_.sink(bytes)) {
            end(HttpFailure::sink, "could not be stored");
            return;
        }
        if (request_.progress) {
            request_.progress(received_, statedLength());
        }
    }

    void finish() {
        take();
        if (ended_) {
            return;
        }
        const bool stated = reply_.header(QNetworkRequest::ContentLengthHeader).isValid();
        if (status() != 0 && status() != statusOk && reply_.error() != QNetworkReply::InsecureRedirectError &&
            reply_.error() != QNetworkReply::TooManyRedirectsError &&
            reply_.error() != QNetworkReply::ProtocolUnknownError) {
            end(HttpFailure::refused, "status " + std::to_string(status()));
        } else if (reply_.error() != QNetworkReply::NoError) {
            end(failureOf(reply_.error()), reply_.errorString().toStdString());
        } else if (stated && received_ != statedLength()) {
            end(HttpFailure::cutShort, "is shorter than stated");
        } else {
            ended_ = true;
            loop_.quit();
        }
    }

    /// The first reason counts; what follows from it (the aborted reply's own error) does not.
    void end(HttpFailure failure, std::string reason) {
        if (std::exchange(ended_, true)) {
            return;
        }
        result_ = failed(failure, std::move(reason));
        loop_.quit();
    }

    const HttpRequest& request_;
    QNetworkReply& reply_;
    QEventLoop loop_;
    QTimer total_;
    QTimer silence_;
    QTimer cancel_;
    HttpResult result_;
    std::uint64_t received_ = 0;
    bool ended_ = false;
};

}  // namespace

QtHttpClient::QtHttpClient(std::string authorities) : authorities_(std::move(authorities)) {}

HttpResult QtHttpClient::fetch(const HttpRequest& request) {
    const QUrl url(QString::fromStdString(request.url), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1String("https") || url.host().isEmpty() ||
        !url.userInfo().isEmpty()) {
        return failed(HttpFailure::address, "not an https address");
    }
    if (request.cancelled != nullptr && *request.cancelled) {
        return failed(HttpFailure::cancelled, "cancelled");
    }
    QNetworkAccessManager manager;
    const std::unique_ptr<QNetworkReply> reply(manager.get(requestFor(url, authorities_)));
    auto result = Exchange(request, *reply).run();
    reply->disconnect();
    reply->abort();
    return result;
}

}  // namespace kzq
