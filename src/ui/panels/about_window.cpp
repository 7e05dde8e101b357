#include "ui/panels/about_window.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <cmath>

#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/about.h"
#include "ui/panels/about_backing.h"
#include "ui/panels/accessible_panels.h"
#include "ui/panels/label_style.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/spoken.h"
#include "ui_About.h"

namespace kzq {

namespace {

constexpr int cornerRadius = 24;

/// All pixels that a rectangle with round corners touches: a compositor blends those at its edge.
QRegion roundedRegion(QSize size, int radius) {
    QRegion region(QRect({}, size).adjusted(0, radius, 0, -radius));
    for (int row = 0; row < radius; ++row) {
        const int rise = radius - row - 1;  // of the row's lower edge over the centre of the corner
        const int inset = radius - static_cast<int>(std::ceil(std::sqrt(radius * radius - rise * rise)));
        const QRect line(inset, row, size.width() - 2 * inset, 1);
        region += line;
        region += line.translated(0, size.height() - 1 - 2 * row);
    }
    return region;
}

}  // namespace

AboutWindow::AboutWindow(const Product& product, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    Scale::ofProgram().take(*this);
    Ui::About ui;
    ui.setupUi(this);
    installAccessiblePanels();  // asked before what the buttons install
    setWindowTitle(toQt(words("About 7306 Loop Manager")));
    setFixedSize(size());

    backing_ = ui.backing;
    ui.image->setPicture(QStringLiteral("About"));
    ui.image->hide();  // the backing draws it
    backing_->setImage(ui.image);
    backing_->setVersions(product.version, {});
    styleLabel(*ui.headline, KZQWhite(), firaSans(FiraWeight::light, 20).value_or(textFont(20)));

    linkLabel_ = ui.linkLabel;
    styleLabel(*linkLabel_, KZQLink(), textFont());
    linkLabel_->setText(QString::fromStdString(websiteLabel(product)));
    place(*linkLabel_, {placeOf(*linkLabel_).topLeft(), linkLabel_->sizeHint()});
    link_ = ui.link;
    place(*link_, placeOf(*linkLabel_));
    link_->setAccessibleName(linkLabel_->text());
    new FocusRing(backing_);  // owned by the page
}

void AboutWindow::setController(About* about) {
    controller_ = about;
    backing_->setController(about);
    link_->setDelegate(about);
}

void AboutWindow::centre() {
    const auto* screen = QGuiApplication::screenAt(QCursor::pos());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen != nullptr) {
        Scale::ofProgram().adopt(*this);
        auto frame = frameGeometry();
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }
}

void AboutWindow::comeForward() {
    setNeedsDisplay();
    backing_->setFocus();
    show();
    raise();
    activateWindow();
}

void AboutWindow::setNeedsDisplay() {
    const auto version = backing_->versionText();
    callIt(*backing_, version.isEmpty() ? QString() : toQt(words("Version %1", version.toStdString())));
    backing_->update();
}

void AboutWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow() && controller_) {
        controller_->close();
    }
}

/// Without a compositor, what is clear would be black.
void AboutWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    setMask(roundedRegion(size(), onScreen(cornerRadius)));
}

void AboutWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (controller_) {
        controller_->close();
    }
}

}  // namespace kzq
