// A plugin for any Qt program that says when the first of its windows has been painted, in milliseconds since
// KZQ_STARTED (of the monotonic clock), and ends the program. Loaded by QT_QPA_GENERIC_PLUGINS=first_frame.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

class FrameWatch : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint && qobject_cast<QWidget*>(receiver) != nullptr) {
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
        std::_Exit(EXIT_SUCCESS);
    }
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
