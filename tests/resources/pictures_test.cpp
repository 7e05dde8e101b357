#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>
#include <vector>

namespace {

struct Family {
    const char* name;  ///< "%1" stands for the state
    QStringList states;
    QSize size;
};

/// Every name that the program composes from a part and a state.
const std::vector<Family> families{
    {"Import_field_%1", {"Off", "On", "rename"}, {284, 28}},
    {"Export_field_%1", {"Off", "On", "overwrite", "drop"}, {284, 28}},
    {"Import_Selector_%1", {"gray", "Off", "On"}, {24, 24}},
    {"Export_Add_%1", {"Empty", "Filled", "On", "Overwrite"}, {24, 24}},
    {"Export_%1", {"X", "X_Hover"}, {16, 16}},
    {"Erase_button_%1", {"Off", "hover", "On", "Gray"}, {112, 40}},
    {"Import_button_%1", {"Off", "hover", "On", "Gray"}, {112, 40}},
    {"Export_button_%1", {"Off", "hover", "On", "Gray"}, {112, 40}},
    {"Cancel_button_%1", {"Off", "hover", "On"}, {112, 40}},
    {"Select_All_%1", {"Base", "Hover", "Press", "Gray"}, {80, 32}},
    {"Deselect_All_%1", {"Base", "Hover", "Press", "Gray"}, {80, 32}},
    {"Menu_Import_%1", {"On", "Off"}, {208, 56}},
    {"Menu_Export_%1", {"On", "Off"}, {208, 56}},
    {"Meter_bar_%1", {"green", "orange", "red"}, {240, 12}},
    {"Band_%1", {"Import", "Export"}, {740, 8}},
};

QImage drawn(const QString& name, double scale) {
    QSvgRenderer renderer(":/pictures/" + name + ".svg");
    QImage image((renderer.viewBoxF().size() * scale).toSize(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

TEST(Pictures, EachComposedNameIsThereInItsSize) {
    for (const auto& [name, states, size] : families) {
        for (const auto& state : states) {
            const auto picture = QString(name).arg(state);
            EXPECT_EQ(QSvgRenderer(":/pictures/" + picture + ".svg").viewBox(), QRect({0, 0}, size))
                << qPrintable(picture);
        }
    }
}

TEST(Pictures, QtUnderstandsAllOfEachAndStatesDiffer) {
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { ADD_FAILURE() << qPrintable(text); });
    for (const auto& file : QDir(":/pictures").entryList({"*.svg"})) {
        QSvgRenderer renderer(":/pictures/" + file);
        EXPECT_TRUE(renderer.isValid()) << qPrintable(file);
        EXPECT_EQ(renderer.viewBox().size(), renderer.defaultSize()) << qPrintable(file);
    }
    for (const auto& [name, states, size] : families) {
        for (qsizetype i = 1; i < states.size(); ++i) {
            EXPECT_NE(drawn(QString(name).arg(states[i]), 1), drawn(QString(name).arg(states[i - 1]), 1))
                << name;
        }
    }
    qInstallMessageHandler(before);
}

}  // namespace
