#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ui/link_button.h"
#include "ui/panels/product.h"

namespace kzq {

class AboutWindow;
class ApplicationController;
class Dialogs;
class Executor;

/// The About panel and the splash screen: when first shown in a process, it closes by itself after 1.5
/// seconds. Whenever it closes, the main window is opened. Main thread.
class About : public QObject, public LinkButtonDelegate {
    Q_OBJECT

  public:
    /// The connected pedal's firmware version; nothing, or empty, without a pedal. Called on the main
    /// thread whenever the panel is drawn, so it must not wait.
    using FirmwareVersion = std::function<std::optional<std::string>()>;

    /// `controller`, `executor` and `dialogs` must outlive the panel. `window` may be on the screen already;
    /// null: it is made.
    static std::unique_ptr<About> about(ApplicationController& controller, Executor& executor,
                                        Dialogs& dialogs, FirmwareVersion firmwareVersion,
                                        const Product& product,
                                        std::shared_ptr<AboutWindow> window = nullptr);
    ~About() override;

    /// Shows the window and gives it the keyboard focus.
    void showWindow();
    /// Centres the window on the screen with the pointer.
    void centre();
    bool isVisible() const;

    void close();
    /// Nothing once the panel has been closed, even if it is open again.
    void closeIfNotPreviouslyClosed();
    bool beenClosed() const { return beenClosed_; }

    /// Opens the maker's website in the browser and closes the panel.
    void linkClicked();
    void linkButtonHoverStateChanged(LinkButton& button, bool hovered) override;

    /// Marks the content for redrawing: it shows the version of the pedal.
    void setNeedsDisplay();

    /// 480 × 300.
    AboutWindow& window() { return *window_; }

    /// Makes the next showing count as the first of the process: for tests, which start the program more than
    /// once in a process.
    static void rearmSplash();

  private:
    About(ApplicationController& controller, Executor& executor, Dialogs& dialogs, Product product,
          std::shared_ptr<AboutWindow> window);

    ApplicationController& controller_;
    Executor& executor_;
    Dialogs& dialogs_;
    Product product_;
    const std::shared_ptr<AboutWindow> window_;
    bool beenClosed_ = false;
    bool closing_ = false;
};

}  // namespace kzq
