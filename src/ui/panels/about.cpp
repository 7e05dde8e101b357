#include "ui/panels/about.h"

#include <QPointer>
#include <chrono>

#include "platform/executor.h"
#include "ui/application_controller.h"
#include "ui/dialogs.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/about_backing.h"
#include "ui/panels/about_window.h"
#include "ui/panels/label_style.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;

bool splashed = false;  // NOLINT(*-avoid-non-const-global-variables): once per process

}  // namespace

std::unique_ptr<About> About::about(ApplicationController& controller, Executor& executor, Dialogs& dialogs,
                                    FirmwareVersion firmwareVersion, const Product& product,
                                    std::shared_ptr<AboutWindow> window) {
    if (!window) {
        window = std::make_shared<AboutWindow>(product);
    }
    std::unique_ptr<About> about(new About(controller, executor, dialogs, product, std::move(window)));
    about->window_->backing().setVersions(product.version, std::move(firmwareVersion));
    return about;
}

About::About(ApplicationController& controller, Executor& executor, Dialogs& dialogs, Product product,
             std::shared_ptr<AboutWindow> window)
    : controller_(controller),
      executor_(executor),
      dialogs_(dialogs),
      product_(std::move(product)),
      window_(std::move(window)) {
    window_->setController(this);
    connect(&window_->link(), &LinkButton::clicked, this, &About::linkClicked);
}

About::~About() {
    window_->setController(nullptr);  // a window destroyed while open sends itself a close event
}

void About::showWindow() {
    window_->comeForward();
    if (!std::exchange(splashed, true)) {
        executor_.mainAfter(1500ms, [weak = QPointer<About>(this)] {
            if (weak) {
                weak->closeIfNotPreviouslyClosed();
            }
        });
    }
}

void About::centre() {
    window_->centre();
}

bool About::isVisible() const {
    return window_->isVisible();
}

void About::close() {
    if (closing_) {
        return;  // the window loses the focus because it closes
    }
    closing_ = true;
    window_->hide();
    beenClosed_ = true;
    linkButtonHoverStateChanged(window_->link(), false);
    window_->link().setCursor(Qt::ArrowCursor);
    closing_ = false;
    controller_.openMainWindow();
}

void About::closeIfNotPreviouslyClosed() {
    if (!beenClosed_) {
        close();
    }
}

void About::linkClicked() {
    dialogs_.openAddress(product_.website);
    close();
}

void About::linkButtonHoverStateChanged(LinkButton& /*button*/, bool hovered) {
    styleLabel(window_->linkLabel(), hovered ? KZQLinkHover() : KZQLink(), textFont());
}

void About::setNeedsDisplay() {
    window_->setNeedsDisplay();
}

void About::rearmSplash() {
    splashed = false;
}

}  // namespace kzq
