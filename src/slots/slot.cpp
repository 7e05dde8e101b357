#include "slots/slot.h"

#include "loops/facts.h"
#include "slots/row_drag.h"
#include "slots/row_touch.h"
#include "slots/slot_accessible.h"
#include "ui/application_controller.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui_Slot.h"

namespace kzq {

namespace {

constexpr int gapAfterX = 3;

QString textOf(const char* words) {
    return QString::fromLatin1(words);
}

}  // namespace

std::unique_ptr<Slot> Slot::slotNumber(std::uint8_t number, std::int32_t context,
                                       ApplicationController& application, QWidget* parent) {
    std::unique_ptr<Slot> row(new Slot(number, context, application));
    if (!row->loadLayout(parent)) {
        return nullptr;
    }
    row->setUp();
    return row;
}

Slot::Slot(std::uint8_t number, std::int32_t context, ApplicationController& application)
    : application_(application), context_(context), number_(number) {}

Slot::~Slot() {
    if (view_ == nullptr) {
        return;
    }
    if (field_ != nullptr) {
        field_->abortEditing();
    }
    registerForDrops(false);
    connectViews(nullptr);
    if (view_->parent() == nullptr) {
        delete view_.data();
    }
}

bool Slot::loadLayout(QWidget* parent) {
    auto view = std::make_unique<SlotView>(parent);
    Ui::Slot layout;
    layout.setupUi(view.get());
    numberLabel_ = layout.numberLabel;
    button_ = layout.button;
    background_ = layout.background;
    x_ = layout.x;
    field_ = layout.field;
    ring_ = layout.ring;
    compare_ = layout.compare;
    view_ = view.release();
    return numberLabel_ != nullptr && button_ != nullptr && background_ != nullptr && x_ != nullptr &&
           field_ != nullptr && ring_ != nullptr && compare_ != nullptr;
}

void Slot::setUp() {
    installSlotAccessibility();
    connectViews(this);
    connect(button_, &SlotButton::action, this, &Slot::buttonClicked);
    connect(x_, &XButton::clicked, this, &Slot::doNotExport);
    connect(ring_, &SlotRing::clicked, this, &Slot::playClicked);
    connect(compare_, &SlotCompare::action, this, &Slot::compareClicked);
    watchTouch(*this);
    numberLabel_->setText(QString::number(number_));
    numberLabel_->setFont(textFont());
    auto palette = numberLabel_->palette();
    palette.setColor(QPalette::WindowText, KZQGray());
    numberLabel_->setPalette(palette);
    field_->awakeFromNib();
    field_->setText(QString());
    field_->setEnabled(isExport());
    field_->setFocusPolicy(isExport() ? Qt::NoFocus : Qt::TabFocus);
    button_->setCheckable(!isExport());
    button_->setTag(number_);
    button_->setImage(textOf(isExport() ? "Export_Add_Empty" : "Import_Selector_gray"));
    button_->setEnabled(isExport());
    x_->hide();
    originalFieldFrame_ = placeOf(*field_);
    shiftedFieldFrame_ = originalFieldFrame_;
    shiftedFieldFrame_.setLeft(placeOf(*x_).right() + 1 + gapAfterX);
    setDefaultName(textOf(loopName(number_).c_str()));
    registerForDrops(true);
    if (!isExport()) {
        watchForDrag(*this);
    }
}

void Slot::connectViews(Slot* controller) {
    view_->setController(controller);
    if (button_ != nullptr) {
        button_->setController(controller);
    }
    if (background_ != nullptr) {
        background_->setController(controller);
    }
    if (field_ != nullptr) {
        field_->setController(controller);
    }
    if (ring_ != nullptr) {
        ring_->setController(controller);
    }
}

void Slot::registerForDrops(bool on) {
    for (QWidget* part : std::initializer_list<QWidget*>{view_, field_, button_, background_}) {
        if (part != nullptr) {
            part->setAcceptDrops(on);
        }
    }
}

void Slot::setEnabled(bool enabled) {
    enabled_ = enabled;
    if (view_ != nullptr) {
        button_->setEnabled(enabled);
        field_->setEnabled(enabled);
    }
}

bool Slot::selected() const {
    return button_ != nullptr && button_->state() == 1;
}

void Slot::setSelected(bool selected) {
    const RowChange change(*this);
    if (button_ != nullptr) {
        button_->setState(selected ? 1 : 0);
    }
    if (!selected) {
        setCustomImportName(std::nullopt);
        setFieldText(defaultName_);
    }
}

void Slot::setDefaultName(const QString& name) {
    defaultName_ = name;
    resetNameField();
}

void Slot::setCustomImportName(const std::optional<QString>& name) {
    customImportName_ = name;
    resetNameField();
}

void Slot::setExporting(const std::optional<QUrl>& file) {
    const RowChange change(*this);
    exporting_ = file;
    setFieldText(shownName());
    resetNameField();
    placeX(exporting_.has_value());
}

void Slot::setExported(bool exported) {
    const RowChange change(*this);
    exported_ = exported;
    placeX(exporting_.has_value() && !exported_);
    resetNameField();  // the text says "complete" from now on, or no longer
    sync();
}

void Slot::setDropSign(const std::optional<DropSign>& sign) {
    if (dropSign_ != sign) {
        dropSign_ = sign;
        if (view_ != nullptr) {
            view_->update();
        }
        showSound();
    }
}

void Slot::setFieldText(const QString& text) {
    if (field_ != nullptr) {
        field_->setText(text);
    }
}

void Slot::placeX(bool shown) {
    if (view_ == nullptr) {
        return;
    }
    if (!shown && x_->hasFocus()) {
        button_->setFocus(Qt::TabFocusReason);  // else the focus would jump to the next row
    }
    x_->setVisible(shown);
    place(*field_, shown ? shiftedFieldFrame_ : originalFieldFrame_);
}

std::optional<QString> Slot::nameOfExport() const {
    if (!exporting_) {
        return std::nullopt;
    }
    const auto file = exporting_->fileName(QUrl::FullyDecoded);
    const auto dot = file.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? file.left(dot) : file;
}

std::optional<QString> Slot::name() const {
    if (context_ != exportContext) {
        return customImportName_ && !customImportName_->isEmpty() ? *customImportName_ : defaultName_;
    }
    if (exporting_) {
        return exported_ ? toQt(words("complete")) : nameOfExport();
    }
    return occupied_ ? std::optional(defaultName_) : std::nullopt;
}

void Slot::buttonClicked() {
    application_.closeMenu();
    sync();
    if (delegate_ == nullptr) {
        return;
    }
    if (isExport()) {
        delegate_->buttonClickedForExportSlot(*this);
    } else {
        delegate_->checkboxStateChangedForImportSlot(*this);
    }
}

void Slot::doNotExport() {
    const RowChange change(*this);
    if (delegate_ != nullptr) {
        delegate_->exportAboutToBeRemoved(*this);
    }
    setExporting(std::nullopt);
    setExported(false);
    if (delegate_ != nullptr) {
        delegate_->exportRemoved(*this);
    }
}

}  // namespace kzq
