#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/fixed.h"

class QLabel;
class QTimer;
class QWidget;

namespace kzq {

class AlertButton;
class PictureView;
class UpdatePanel;

/// What the small window about firmware says, and what it can do.
struct FirmwareNotice {
    enum class Kind : std::uint8_t {
        runs,     ///< the firmware is installed
        missing,  ///< it was sent, and nothing has been heard of the pedal
        failed,
        repair  ///< a pedal was found in its loader; its decline is the default
    };

    Kind kind = Kind::runs;
    QString headline = {};
    QString detail = {};
    QString decline = {};                 ///< the button that only closes it
    QString accept = {};                  ///< empty: there is nothing to do
    std::function<void()> accepted = {};  ///< its press, after the window has closed
    std::function<void()> declined = {};  ///< the user has closed it
};

/// A small window about firmware that blocks nothing and takes no focus. Main thread.
class FirmwareNoticeWindow : Fixed {
  public:
    FirmwareNoticeWindow();
    ~FirmwareNoticeWindow();

    /// In place of what it showed before; under a modal dialog, which would block it, once that has closed.
    void show(FirmwareNotice notice);
    void close();
    /// Or is going to be. Nothing while it is closed.
    std::optional<FirmwareNotice::Kind> shown() const;

    QWidget& window();

  private:
    void accept();
    void decline();
    void showPostponed();
    void place(bool repair);

    FirmwareNotice notice_;
    std::unique_ptr<UpdatePanel> window_;
    PictureView* picture_;  // owned by the window, like the rest
    QLabel* headline_;
    QLabel* detail_;
    AlertButton* accept_;
    AlertButton* decline_;
    QTimer* later_;
    std::optional<FirmwareNotice> postponed_;
};

}  // namespace kzq
