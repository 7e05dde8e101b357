#include "listening/sound/qt_audio_output.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <limits>
#include <mutex>
#include <optional>
#include <utility>

#include "listening/samples.h"
#include "loops/facts.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr int channels = 2;
/// What waits in the device's buffer. With 60, a busy machine lets it run dry; a press is heard as soon with
/// 150.
constexpr int bufferMilliseconds = 150;
constexpr int measureMilliseconds = 15;
/// Until a device that has failed is looked for again.
constexpr auto againAfter = std::chrono::seconds(2);

QAudioFormat formatOf(QAudioFormat::SampleFormat samples) {
    QAudioFormat format;
    format.setSampleRate(framesPerSecond);
    format.setChannelCount(channels);
    format.setSampleFormat(samples);
    return format;
}

/// What the sink reads from, without an end.
class Source : public QIODevice {
  public:
    Source(AudioOutput::Fill fill, SampleForm form) : fill_(std::move(fill)), form_(form) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return std::numeric_limits<int>::max(); }
    std::uint64_t given() const { return given_; }

  protected:
    qint64 readData(char* data, qint64 most) override {
        const auto frame = frameBytesOf(form_);
        const auto frames = static_cast<std::size_t>(most) / frame;
        fill_({reinterpret_cast<std::uint8_t*>(data), frames * frame}, form_);
        given_ += frames;
        return static_cast<qint64>(frames * frame);
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

  private:
    const AudioOutput::Fill fill_;
    const SampleForm form_;
    std::uint64_t given_ = 0;
};

}  // namespace

/// What both threads know.
struct QtAudioOutput::Known {
    std::atomic<unsigned> round = 0;       ///< number of the last start or stop
    std::atomic<std::uint64_t> taken = 0;  ///< in that round
    std::mutex mutex;                      ///< guards what follows
    std::string trouble;
    std::function<void()> changed;

    void setTrouble(const std::string& now) {
        const std::lock_guard guard(mutex);
        if (std::exchange(trouble, now) != now && changed) {
            changed();
        }
    }
};

/// The device, on its thread.
class QtAudioOutput::Device : public QObject {
  public:
    explicit Device(std::shared_ptr<Known> known) : known_(std::move(known)) {
        connect(&devices_, &QMediaDevices::audioOutputsChanged, this, [this] { look(); });
        timer_.setInterval(measureMilliseconds);
        connect(&timer_, &QTimer::timeout, this, [this] { measure(); });
        look();
    }

    /// In the order in which they were asked for: a sink that is reset may run the thread's event loop, and
    /// with it the next task.
    void perform(std::function<void(Device&)> task) {
        tasks_.push_back(std::move(task));
        if (std::exchange(performing_, true)) {
            return;
        }
        for (; !tasks_.empty(); tasks_.pop_front()) {
            tasks_.front()(*this);
        }
        performing_ = false;
    }

    void start(Fill fill, unsigned round) {
        stop();
        round_ = round;
        const auto form = look();
        if (!form) {
            return;
        }
        const auto format = formatOf(*form == SampleForm::int32 ? QAudioFormat::Int32 : QAudioFormat::Int16);
        source_ = std::make_unique<Source>(std::move(fill), *form);
        sink_ = std::make_unique<QAudioSink>(QMediaDevices::defaultAudioOutput(), format);
        sink_->setBufferSize(format.bytesForDuration(qint64{bufferMilliseconds} * 1000));
        connect(sink_.get(), &QAudioSink::stateChanged, this, [this](QAudio::State state) {
            if (state == QAudio::StoppedState && sink_ && sink_->error() != QAudio::NoError) {
                known_->setTrouble(english("The sound device stopped working."));
                QTimer::singleShot(againAfter, this, [this] { look(); });
            }
        });
        sink_->start(source_.get());
        timer_.start();
    }

    void stop() {
        timer_.stop();
        if (const auto sink = std::exchange(sink_, nullptr)) {
            sink->disconnect(this);
            sink->reset();
        }
        source_.reset();
    }

  private:
    /// The form in which the device takes samples; nothing, with the trouble, if there is no such device.
    std::optional<SampleForm> look() {
        const auto device = QMediaDevices::defaultAudioOutput();
        std::optional<SampleForm> form;
        if (device.isFormatSupported(formatOf(QAudioFormat::Int32))) {
            form = SampleForm::int32;
        } else if (device.isFormatSupported(formatOf(QAudioFormat::Int16))) {
            form = SampleForm::int16;
        }
        known_->setTrouble(device.isNull() ? english("No sound device was found.")
                           : !form         ? english("The sound device does not play 44,100 Hz.")
                                           : "");
        return device.isNull() ? std::nullopt : form;
    }

    void measure() {
        if (performing_ || !sink_ || !source_) {
            return;
        }
        const auto waiting = static_cast<std::uint64_t>(
            sink_->format().framesForBytes(static_cast<qint32>(sink_->bufferSize() - sink_->bytesFree())));
        if (known_->round == round_) {
            known_->taken = source_->given() - std::min(source_->given(), waiting);
        }
    }

    const std::shared_ptr<Known> known_;
    QMediaDevices devices_;
    QTimer timer_;
    std::deque<std::function<void(Device&)>> tasks_;
    bool performing_ = false;
    unsigned round_ = 0;
    std::unique_ptr<Source> source_;
    std::unique_ptr<QAudioSink> sink_;
};

class QtAudioOutput::Thread : public QThread {
  public:
    /// To look for devices takes as long as to paint a window, so it begins when nothing else is left to do.
    explicit Thread(std::shared_ptr<Known> known) : known_(std::move(known)) {
        context_.moveToThread(this);
        QTimer::singleShot(0, this, [this] { start(); });
    }
    ~Thread() override {
        quit();
        wait();
    }

    void ask(std::function<void(Device&)> task) {
        start();  // unless it runs
        QMetaObject::invokeMethod(&context_, [this, task = std::move(task)] { device_->perform(task); });
    }

  protected:
    void run() override {
        device_ = std::make_unique<Device>(known_);
        exec();
        device_.reset();
    }

  private:
    const std::shared_ptr<Known> known_;
    QObject context_;                 ///< through which tasks come to the thread
    std::unique_ptr<Device> device_;  ///< made and used there
};

QtAudioOutput::QtAudioOutput()
    : known_(std::make_shared<Known>()), thread_(std::make_unique<Thread>(known_)) {}

QtAudioOutput::~QtAudioOutput() = default;

void QtAudioOutput::start(Fill fill) {
    const auto round = ++known_->round;
    known_->taken = 0;
    thread_->ask([fill = std::move(fill), round](Device& device) { device.start(fill, round); });
}

void QtAudioOutput::stop() {
    ++known_->round;
    known_->taken = 0;
    thread_->ask([](Device& device) { device.stop(); });
}

std::uint64_t QtAudioOutput::taken() const {
    return known_->taken;
}

std::string QtAudioOutput::trouble() const {
    const std::lock_guard guard(known_->mutex);
    return known_->trouble;
}

void QtAudioOutput::setListener(std::function<void()> changed) {
    const std::lock_guard guard(known_->mutex);
    known_->changed = std::move(changed);
}

}  // namespace kzq
