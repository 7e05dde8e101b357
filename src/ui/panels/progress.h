#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>

namespace kzq {

/// The panel that shows the progress of a transfer. Its window floats above the others and is hidden at
/// first. Main thread.
///
/// However the user closes it (Cancel, Escape, the title bar, the window manager), the transfer is
/// cancelled; `close()`, for the owner, cancels nothing.
class Progress : public QObject {
    Q_OBJECT

  public:
    /// `cancelTransfer` is called on the main thread each time the user cancels, before the window closes.
    static std::unique_ptr<Progress> progress(std::function<void()> cancelTransfer);
    ~Progress() override;

    void setTitle(const QString& title);
    QString title() const;
    void setSubtitle(const QString& subtitle);
    QString subtitle() const;
    void setFooter(const QString& footer);
    QString footer() const;

    /// A line of its own above the footer, such as "about 10 s left"; may be empty.
    void setTimeLeft(const QString& words);
    QString timeLeft() const;

    /// Of the whole transfer; settles `totalUnits`.
    void setTotalBytes(std::uint64_t bytes);
    std::uint64_t totalBytes() const { return totalBytes_; }
    /// 0 bytes, 1 kilobytes, 2 megabytes.
    std::uint32_t totalUnits() const { return totalUnits_; }

    /// Sets the bar and the footer from `fraction`, normally 0 to 1. More than 1 is shown as is; less than
    /// 0 or not a number is shown as 0. Cheap: the event loop repaints what changes.
    void setPercent(double fraction);
    /// The fraction set last, at most 1.
    double percent() const { return percent_; }

    /// Puts the window's frame at the top-left corner of `mainWindow`'s and keeps it above that window,
    /// however the window manager treats floating windows.
    void placeOver(QWidget& mainWindow);
    /// Shows the window and brings it to the front.
    void showWindow();
    bool isVisible() const;
    /// Closes the window without cancelling.
    void close();
    /// What the cancel button does: cancels the transfer, closes the window.
    void cancel();

    /// 400 × 168, owned by this.
    QWidget& window() { return *window_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    explicit Progress(std::function<void()> cancelTransfer);
    void showFraction(double fraction);

    std::function<void()> cancelTransfer_;
    std::unique_ptr<QWidget> window_;
    struct Parts;
    std::unique_ptr<Parts> parts_;
    std::uint64_t totalBytes_ = 0;
    std::uint32_t totalUnits_ = 0;
    double percent_ = 0;
    bool closing_ = false;
};

}  // namespace kzq
