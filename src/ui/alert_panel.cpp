#include "ui/alert_panel.h"

#include <QLabel>
#include <algorithm>
#include <vector>

#include "ui/alert_button.h"
#include "ui/background.h"
#include "ui/check_box.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int panelWidth = 448;
constexpr QRect markFrame(24, 24, 40, 40);
constexpr int textLeft = 84;
constexpr int textWidth = 340;
constexpr int buttonsRight = 24;
constexpr int buttonsGap = 12;
constexpr int foot = 20;
constexpr int spaceUnderHeadline = 4;

}  // namespace

struct AlertPanel::TextStyle {
    int pixels;
    int line;
    QColor color;
};

int AlertPanel::addText(const std::string& text, int top, const TextStyle& style) {
    const auto plain = QString::fromStdString(text);
    // rich text, because a plain label has no line height setting
    const auto html = QString("<div style=\"line-height:%1px\">%2</div>")
                          .arg(onScreen(style.line))
                          .arg(plain.toHtmlEscaped().replace('\n', "<br>"));
    auto* label = new QLabel(html, this);
    label->setTextFormat(Qt::RichText);
    label->setFont(textFont(style.pixels));
    label->setWordWrap(true);
    Scale::ofProgram().adopt(*label);
    label->setAccessibleName(plain);
    auto colors = label->palette();
    colors.setColor(QPalette::WindowText, style.color);
    label->setPalette(colors);
    const int height = heightFor(*label, textWidth);
    place(*label, {textLeft, top, textWidth, height});
    return top + height;
}

AlertPanel::AlertPanel(const Alert& alert, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowStaysOnTopHint),
      mark_(alert.destroys ? "Alert_question" : "Alert_notice"),
      answer_(alertFirstButton + static_cast<int>(alert.buttons.size()) - 1) {
    Scale::ofProgram().take(*this);
    setWindowTitle("7306 Loop Manager");
    auto bottom = addText(alert.headline, markFrame.top(), {15, 20, KZQWhite()});
    if (!alert.finePrint.empty()) {
        bottom = addText(alert.finePrint, bottom + spaceUnderHeadline, {13, 16, KZQGray()});
    }
    if (!alert.option.empty()) {
        bottom = addOption(alert.option, bottom + 16);
    }
    addButtons(alert, std::max(bottom + 24, markFrame.bottom() + 1 + 20));
    Scale::ofProgram().adopt(*this);  // to be centred with its size
}

int AlertPanel::addOption(const std::string& title, int top) {
    option_ = new CheckBox(QString::fromStdString(title), this);
    place(*option_, {QPoint(textLeft, top), option_->sizeHint()});
    return top + option_->sizeHint().height();
}

bool AlertPanel::ticked() const {
    return option_ != nullptr && option_->isChecked();
}

void AlertPanel::setTicked(bool ticked) {
    if (option_ != nullptr) {
        option_->setChecked(ticked);
    }
}

void AlertPanel::addButtons(const Alert& alert, int top) {
    std::vector<AlertButton*> shown;
    for (auto number = alertFirstButton; const auto& [title, visible] : alert.buttons) {
        auto* button = new AlertButton(this);
        button->setText(QString::fromStdString(title));
        button->setObjectName(QString("answer %1").arg(number));
        connect(button, &AlertButton::clicked, this, [this, number] {
            answer_ = number;
            accept();
        });
        ++number;
        if (visible) {
            shown.push_back(button);
        } else {
            button->setFocusPolicy(Qt::NoFocus);
            button->hide();
        }
    }
    auto left = panelWidth - buttonsRight + buttonsGap;
    for (const auto* button : shown) {
        left -= button->sizeHint().width() + buttonsGap;
    }
    for (auto* button : shown) {
        place(*button, {{left, top}, button->sizeHint()});
        left += button->sizeHint().width() + buttonsGap;
    }
    const auto height = shown.empty() ? 0 : shown.front()->sizeHint().height();
    place(*this, {0, 0, panelWidth, top + height + foot});
    auto* ring = new FocusRing(this);
    if (!shown.empty()) {
        auto* const usual = alert.destroys ? shown.back() : shown.front();
        usual->setFocus();
        ring->mark(usual);
    }
}

void AlertPanel::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPlate(painter, painter.bounds().toAlignedRect());
    drawPicture(painter, mark_, markFrame);
    Q_EMIT appeared();
}

}  // namespace kzq
