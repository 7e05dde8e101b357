#include "ui/alert_panel.h"

#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "ui/alert_button.h"
#include "ui/background.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"

namespace kzq {

namespace {

constexpr int panelWidth = 448;
constexpr QRect markFrame(24, 24, 40, 40);
constexpr int textLeft = 84;
constexpr int textWidth = 340;
constexpr int buttonsRight = 24;
constexpr int buttonsGap = 12;
constexpr int foot = 20;

QLabel* textLabel(const QString& text, int pixels, int line, QWidget* parent) {
    // rich text, as a plain label can't be told its line height
    const auto html = QString("<div style=\"line-height:%1px\">%2</div>")
                          .arg(line)
                          .arg(text.toHtmlEscaped().replace('\n', "<br>"));
    auto* label = new QLabel(html, parent);
    label->setTextFormat(Qt::RichText);
    label->setFont(textFont(pixels));
    label->setWordWrap(true);
    label->setAccessibleName(text);
    auto colors = label->palette();
    colors.setColor(QPalette::WindowText, KZQWhite());
    label->setPalette(colors);
    return label;
}

}  // namespace

AlertPanel::AlertPanel(const Alert& alert, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      mark_(alert.destroys ? "Alert_question" : "Alert_notice"),
      answer_(alertFirstButton + static_cast<int>(alert.buttons.size()) - 1) {
    setWindowTitle("7306 Loop Manager");
    auto bottom = addText(alert.headline, markFrame.top(), 15, 20);
    if (!alert.finePrint.empty()) {
        bottom = addText(alert.finePrint, bottom, 13, 16);
    }
    addButtons(alert, std::max(bottom + 24, markFrame.bottom() + 1 + 20));
}

int AlertPanel::addText(const std::string& text, int top, int pixels, int line) {
    auto* label = textLabel(QString::fromStdString(text), pixels, line, this);
    label->setGeometry(textLeft, top, textWidth, label->heightForWidth(textWidth));
    return label->geometry().bottom() + 1;
}

void AlertPanel::addButtons(const Alert& alert, int top) {
    AlertButton* first = nullptr;
    std::vector<AlertButton*> shown;
    for (auto number = alertFirstButton; const auto& [title, visible] : alert.buttons) {
        auto* button = new AlertButton(this);
        button->setText(QString::fromStdString(title));
        button->setObjectName(button->text());
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
    auto right = panelWidth - buttonsRight;
    auto height = top;
    for (auto i = shown.size(); i-- > 0;) {
        const auto size = shown[i]->sizeHint();
        shown[i]->setGeometry(right - size.width(), top, size.width(), size.height());
        right -= size.width() + buttonsGap;
        height = top + size.height();
        first = shown[i];
    }
    setFixedSize(panelWidth, height + foot);
    auto* ring = new FocusRing(this);
    if (first != nullptr) {
        first->setFocus();
        ring->mark(first);
    }
}

void AlertPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPlate(painter, rect());
    drawPicture(painter, mark_, markFrame);
}

}  // namespace kzq
