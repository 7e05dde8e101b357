#include <gtest/gtest.h>

#include <QDir>
#include <QSvgRenderer>

namespace {

TEST(Pictures, QtUnderstandsAllOfEach) {
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { ADD_FAILURE() << qPrintable(text); });
    const auto files = QDir(":/pictures").entryList({"*.svg"});
    EXPECT_GT(files.size(), 40);
    for (const auto& file : files) {
        QSvgRenderer renderer(":/pictures/" + file);
        EXPECT_TRUE(renderer.isValid()) << qPrintable(file);
        EXPECT_EQ(renderer.viewBox().size(), renderer.defaultSize()) << qPrintable(file);
    }
    qInstallMessageHandler(before);
}

}  // namespace
