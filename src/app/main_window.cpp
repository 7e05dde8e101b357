#include "app/main_window.h"

#include <QAccessible>
#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QVariant>
#include <algorithm>
#include <cmath>

#include "app/menu_bar.h"
#include "app/window_size.h"
#include "ui/accessible_controls.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/shield.h"
#include "ui/status/status_line.h"

namespace kzq {

namespace {

constexpr int headlinePixels = 24;
constexpr int remedyPixels = 12;
constexpr QSize usualSize(768, 536);  // as it is described

/// The one with the pointer.
const QScreen& startScreen() {
    const auto* const pointed = QGuiApplication::screenAt(QCursor::pos());
    return pointed != nullptr ? *pointed : *QGuiApplication::primaryScreen();
}

void dressLabel(QLabel& label, const QFont& font, const QColor& color) {
    dress(label, font);
    auto palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
}

/// Widgets whose identifier is not a valid C++ name have it as a property.
void nameByIdentifier(const QWidget& root) {
    for (auto* const widget : root.findChildren<QWidget*>()) {
        if (const auto identifier = widget->property("identifier"); identifier.isValid()) {
            widget->setObjectName(identifier.toString());
        }
    }
}

/// Whoever holds on to a menu by way of assistive technology has to look for it anew. Without any, the
/// toolkit would only make what is then forgotten, and keep a connection for each.
void forgetMenus(const QMenuBar& bar) {
    if (!QAccessible::isActive()) {
        return;
    }
    QObjectList parts{const_cast<QMenuBar*>(&bar)};
    for (auto* const menu : bar.findChildren<QMenu*>()) {
        parts.append(menu);
    }
    for (auto* const entry : bar.findChildren<QAction*>()) {
        parts.append(entry);
    }
    for (auto* const part : parts) {
        if (auto* const seen = QAccessible::queryAccessibleInterface(part)) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(seen));
        }
    }
}

}  // namespace

MainWindow::MainWindow(QWidget* parent) : Window(parent) {
    ui_.setupUi(this);
    Q_ASSERT(size() == usualSize);
    Scale::ofProgram().take(*this);
    size_ = new WindowSize(*this);
    setAutoFillBackground(true);
    auto ground = palette();
    ground.setColor(QPalette::Window, plateFootColor());
    setPalette(ground);
    ui_.menuBar->setFixedSize(ui_.menuBar->size());
    nameByIdentifier(*this);
    dressMenuBar(*ui_.menuBar);
    connect(&Scale::ofProgram(), &Scale::changed, this, [this] { dressMenuBar(*ui_.menuBar); });
    status_ = new StatusLine(ui_.menuBar);
    dress();
    dressEmptyState();
    nameParts();
    setRemedy({});
    showMeter(false);
    ui_.warning->hide();
    for (auto* const button : {eraseButton(), importButton(), exportButton()}) {
        button->setEnabled(false);
    }
    for (auto* const button : {selectAllButton(), deselectAllButton()}) {
        button->setEnabled(false);
    }
    new FocusRing(ui_.content);
}

bool MainWindow::startsWhole() {
    return WindowSize::beginsWhole(usualSize, startScreen().availableGeometry().size());
}

void MainWindow::dress() {
    ui_.content->setPicture("Window_plate");
    ui_.importBand->setPicture("Band_Import");
    ui_.exportBand->setPicture("Band_Export");
    ui_.importTabButton->setPictures("Menu_Import");
    ui_.exportTabButton->setPictures("Menu_Export");
    showTab(0);
    ui_.menuButton->setPicture("Menu_button");
    opens(*ui_.menuButton, nullptr);  // it is hidden while the menu is open
    ui_.meterTrack->setPicture("Meter_track");
    ui_.meter->setPicture("Meter_bar_green");
    ui_.warningMark->setPicture("Warning_mark");
    dressLabel(*ui_.meterCaption, textFont(), KZQWhite());
    dressLabel(*ui_.warningText, textFont(), KZQYellow());
}

void MainWindow::dressEmptyState() {
    ui_.emptyPlatePicture->setPicture("Empty_plate");
    ui_.emptyNotePicture->setPicture("Empty_note");
    dressLabel(*ui_.emptyHeadline,
               firaSans(FiraWeight::light, headlinePixels).value_or(textFont(headlinePixels)), KZQWhite());
    dressLabel(*ui_.emptyAdvice, textFont(), creamColor());
    dressLabel(*ui_.emptyRemedy, textFont(remedyPixels), KZQYellow());
    dressLabel(*ui_.emptyNoteHeadline, textFont(), KZQWhite());
    dressLabel(*ui_.emptyNoteText, textFont(), KZQGray());
    for (auto* const view : {ui_.emptyPlate, ui_.emptyNote}) {
        view->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
}

void MainWindow::showMeter(bool shown) {
    const bool saidNoPedal = saysNoPedal();
    for (auto* const view : {static_cast<QWidget*>(ui_.meter), static_cast<QWidget*>(ui_.meterTrack),
                             static_cast<QWidget*>(ui_.meterCaption)}) {
        view->setVisible(shown);
    }
    for (auto* const view : {ui_.emptyPlate, ui_.emptyNote}) {
        view->setVisible(!shown);
    }
    if (saidNoPedal == shown) {
        Q_EMIT noPedalChanged(!shown);
    }
}

void MainWindow::addShield() {
    if (shield_ == nullptr) {
        statusLine().list().close();
        forgetMenus(*ui_.menuBar);
        shield_ = new Shield(this);  // NOLINT(cppcoreguidelines-owning-memory): the window's child
    }
}

void MainWindow::removeShield() {
    const QPointer<QWidget> before = shield_ != nullptr ? shield_->before() : nullptr;
    delete shield_;  // NOLINT(cppcoreguidelines-owning-memory): not needed any more
    if (before != nullptr && focusWidget() != before) {
        focusRows();  // it is disabled now
    }
}

void MainWindow::showTab(int index) {
    ui_.importTabButton->setSelected(index == 0);
    ui_.exportTabButton->setSelected(index == 1);
    ui_.tabs->setCurrentIndex(index);
}

void MainWindow::enable(QWidget& button, bool on) {
    if (!on && button.hasFocus()) {
        focusRows();
    }
    button.setEnabled(on);
}

/// What Tab would stop at first on this tab.
void MainWindow::focusRows() {
    const auto parts = ui_.tabs->currentWidget()->findChildren<QWidget*>();
    const auto stop = std::ranges::find_if(parts, [](const QWidget* part) {
        return (part->focusPolicy() & Qt::TabFocus) != 0 && part->isEnabled() && part->isVisible();
    });
    if (stop != parts.end()) {
        (*stop)->setFocus(Qt::TabFocusReason);
    }
}

void MainWindow::offerStop(const std::function<void()>& act) {
    if (stop_ != nullptr) {
        shield_->setFocus(Qt::OtherFocusReason);
        stop_->deleteLater();  // this may be its own press
        stop_->hide();
        stop_.clear();
    }
    if (!act || shield_ == nullptr) {
        return;
    }
    stop_ = new StatusLink(shield_);  // NOLINT(cppcoreguidelines-owning-memory): the shield's child
    stop_->setWord(toQt(words("Stop")));
    Scale::leaveAlone(*stop_);
    stop_->setFocusPolicy(Qt::StrongFocus);
    connect(stop_, &QAbstractButton::clicked, stop_, act);
    stop_->show();
    placeStop();
    stop_->setFocus(Qt::OtherFocusReason);
}

/// Once the window is laid out anew; nothing else moves the link.
void MainWindow::placeStop() {
    if (stop_ == nullptr) {
        return;
    }
    const auto& link = status_->link();
    const int width = onScreen(std::ceil(advanceOf(stop_->text(), fontOf(*stop_))));
    const auto corner = link.mapTo(this, QPoint(link.width() - width, 0));
    stop_->setGeometry(QRect(corner, QSize(width, link.height())));
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    Window::resizeEvent(event);
    placeStop();
}

void MainWindow::settleTabOrder() {
    QWidget* last = ui_.menuButton;
    setTabOrder(ui_.importTabButton, ui_.exportTabButton);
    setTabOrder(ui_.exportTabButton, last);
    const auto follow = [&last](QWidget* next) {
        setTabOrder(last, next);
        last = next;
    };
    for (int tab = 0; tab < ui_.tabs->count(); ++tab) {
        for (auto* const view :
             ui_.tabs->widget(tab)->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (view->focusPolicy() != Qt::NoFocus) {
                follow(view);
            }
            for (auto* const part : view->findChildren<QWidget*>()) {
                if (part->focusPolicy() != Qt::NoFocus) {
                    follow(part);
                }
            }
        }
    }
    follow(&status_->sentence());
    follow(&status_->link());
}

void MainWindow::centre() {
    const auto& screen = startScreen();
    const auto place = screen.availableGeometry();
    size_->begin(place.size(), screen.devicePixelRatio());
    move(place.center() - rect().center());
}

void MainWindow::setRemedy(const QString& remedy) {
    ui_.emptyRemedy->setText(remedy);
    ui_.emptyRemedy->setVisible(!remedy.isEmpty());
}

bool MainWindow::saysNoPedal() const {
    return !ui_.emptyNote->isHidden();
}

}  // namespace kzq
