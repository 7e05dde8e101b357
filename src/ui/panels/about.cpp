#include "ui/panels/about.h"

#include <QCursor>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <chrono>

#include "platform/executor.h"
#include "ui/application_controller.h"
#include "ui/dialogs.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/about_backing.h"
#include "ui/panels/about_window.h"
#include "ui/panels/accessible_panels.h"
#include "ui/panels/label_style.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/spoken.h"
#include "ui_About.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;

bool splashed = false;  // NOLINT(*-avoid-non-const-global-variables): once per process

}  // namespace

std::unique_ptr<About> About::about(ApplicationController& controller, Executor& executor, Dialogs& dialogs,
                                    FirmwareVersion firmwareVersion, const Product& product) {
    installAccessiblePanels();
    std::unique_ptr<About> about(new About(controller, executor, dialogs, product));
    about->windowDidLoad(std::move(firmwareVersion));
    return about;
}

About::About(ApplicationController& controller, Executor& executor, Dialogs& dialogs, Product product)
    : controller_(controller),
      executor_(executor),
      dialogs_(dialogs),
      product_(std::move(product)),
      window_(std::make_unique<AboutWindow>()) {}

About::~About() {
    window_->setController(nullptr);  // a window destroyed while open sends itself a close event
}

void About::windowDidLoad(FirmwareVersion firmwareVersion) {
    Ui::About ui;
    ui.setupUi(window_.get());
    window_->setWindowTitle(toQt(words("About 7306 Loop Manager")));
    window_->setFixedSize(window_->size());
    window_->setController(this);

    backing_ = ui.backing;
    ui.image->setPicture(QStringLiteral("About"));
    ui.image->hide();  // the backing draws it
    backing_->setImage(ui.image);
    backing_->setController(this);
    backing_->setVersions(product_.version, std::move(firmwareVersion));
    styleLabel(*ui.headline, KZQWhite(), firaSans(FiraWeight::light, 20).value_or(textFont(20)));

    linkLabel_ = ui.linkLabel;
    styleLabel(*linkLabel_, KZQLink(), textFont());
    linkLabel_->setText(QString::fromStdString(websiteLabel(product_)));
    place(*linkLabel_, {placeOf(*linkLabel_).topLeft(), linkLabel_->sizeHint()});
    link_ = ui.link;
    place(*link_, placeOf(*linkLabel_));
    link_->setAccessibleName(linkLabel_->text());
    link_->setDelegate(this);
    connect(link_, &LinkButton::clicked, this, &About::linkClicked);
    new FocusRing(backing_);  // owned by the page
}

void About::showWindow() {
    setNeedsDisplay();
    backing_->setFocus();
    window_->show();
    window_->raise();
    window_->activateWindow();
    if (!std::exchange(splashed, true)) {
        executor_.mainAfter(1500ms, [weak = QPointer<About>(this)] {
            if (weak) {
                weak->closeIfNotPreviouslyClosed();
            }
        });
    }
}

void About::centre() {
    const auto* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen != nullptr) {
        Scale::ofProgram().adopt(*window_);
        auto frame = window_->frameGeometry();
        frame.moveCenter(screen->availableGeometry().center());
        window_->move(frame.topLeft());
    }
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
    linkButtonHoverStateChanged(*link_, false);
    link_->setCursor(Qt::ArrowCursor);
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
    styleLabel(*linkLabel_, hovered ? KZQLinkHover() : KZQLink(), textFont());
}

void About::setNeedsDisplay() {
    const auto version = backing_->versionText();
    callIt(*backing_, version.isEmpty() ? QString() : toQt(words("Version %1", version.toStdString())));
    backing_->update();
}

void About::rearmSplash() {
    splashed = false;
}

}  // namespace kzq
