#pragma once

#include <QPointer>
#include <QSet>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

namespace kzq {

class About;
class PictureView;
class ScaledPainter;

/// The content of the About panel: the artwork, and the versions in its lower right corner. Any click and
/// the release of Return, Space, Escape or Enter close the panel; the release of the key that opened it
/// does not.
class AboutBacking : public QWidget {
    Q_OBJECT

  public:
    using FirmwareVersion = std::function<std::optional<std::string>()>;

    explicit AboutBacking(QWidget* parent = nullptr);

    void setController(About* about);
    /// `image` names the picture to draw; the owner hides it.
    void setImage(PictureView* image);
    void setVersions(std::string software, FirmwareVersion firmware);

    /// The program's version; nothing if empty.
    std::optional<std::string> currentSoftware() const;
    /// "2.1.0 (1.05)", "2.1.0" without a pedal, empty without a version of the program.
    QString versionText() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void drawImage(ScaledPainter& painter) const;
    void drawVersion(ScaledPainter& painter) const;

    QPointer<About> controller_;
    QPointer<PictureView> image_;
    std::string software_;
    FirmwareVersion firmware_;
    QSet<int> held_;        ///< keys that are down, wherever in the program they were pressed
    QSet<int> heldBefore_;  ///< those that have been down since before the panel was shown
};

}  // namespace kzq
