// A plugin for any Qt program that says when its windows have been painted first, in milliseconds since
// KZQ_STARTED (of the monotonic clock), and ends the program after KZQ_FRAMES of them. Loaded by
// QT_QPA_GENERIC_PLUGINS=first_frame.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <set>

namespace {

class FrameWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        auto* const widget = qobject_cast<QWidget*>(receiver);
        if (event->type() == QEvent::Paint && widget != nullptr && seen_.insert(widget->window()).second) {
            // After the event that is being handled, which paints the whole window.
            QTimer::singleShot(0, this, [this] { painted(); });
        }
        return false;
    }

  private:
    void painted() {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto started = qEnvironmentVariable("KZQ_STARTED").toLongLong();
        std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now).count() -
                                  static_cast<double>(started) / 1e6);
        std::fflush(stdout);
        if (++count_ >= qEnvironmentVariableIntValue("KZQ_FRAMES")) {
            std::_Exit(EXIT_SUCCESS);
        }
    }

    std::set<const QWidget*> seen_;
    int count_ = 0;
};

class FirstFrame : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_frame.json")

  public:
    QObject* create(const QString& /*name*/, const QString& /*settings*/) override {
        auto* const watch = new FrameWatch(qApp);
        qApp->installEventFilter(watch);
        return watch;
    }
};

}  // namespace

#include "first_frame.moc"
