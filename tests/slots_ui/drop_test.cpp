#include <QMimeData>

#include "row_fixture.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;

class Drop : public RowFixture {
  protected:
    /// Drags over `target` and drops if accepted. Returns the action reported to the source.
    Qt::DropAction drag(QWidget& target, const QList<QUrl>& urls, Qt::DropActions possible,
                        Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({2, 2}, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&target, &enter);
        if (!enter.isAccepted()) {
            return Qt::IgnoreAction;
        }
        QDragMoveEvent move({3, 3}, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&target, &move);
        EXPECT_TRUE(move.isAccepted());
        EXPECT_EQ(move.dropAction(), Qt::CopyAction);
        EXPECT_EQ(held, urls);
        QDropEvent drop({3, 3}, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(&target, &drop);
        EXPECT_EQ(held, QList<QUrl>());
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

    static constexpr auto all = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
};

QUrl file(const char* path) {
    return QUrl::fromLocalFile(path);
}

TEST_F(Drop, AnywhereOnAnExportRowIsACopyOfTheWholeList) {
    auto& row = exportRow(2);
    const QList<QUrl> urls = {file("/x/a.WAV"), file("/x/notes.txt")};
    for (QWidget* part :
         std::initializer_list<QWidget*>{row.view(), row.field(), row.button(), row.background()}) {
        ASSERT_TRUE(part->acceptDrops());
        EXPECT_EQ(drag(*part, urls, all, Qt::ShiftModifier), Qt::CopyAction);  // shift asks for a move
        EXPECT_THAT(takeCalls(), ElementsAre("dropped export 2"));
        EXPECT_EQ(std::exchange(dropped, {}), urls);
    }
}

TEST_F(Drop, WhatIsNotAudioToBeCopiedOntoAnExportRowIsRefused) {
    for (const auto* const name : {"wav", "aif", "aiff", "mp3", "m4a", "aac", "ac3", "flac"}) {
        const auto path = std::string("/x/a.") + name;
        EXPECT_EQ(drag(*exportRow(1).view(), {file(path.c_str())}, all), Qt::CopyAction) << name;
        EXPECT_EQ(drag(*importRow(1).view(), {file(path.c_str())}, all), Qt::IgnoreAction) << name;
    }
    takeCalls();
    auto& view = *exportRow(1).view();
    for (const auto* const path : {"/x/a.txt", "/x/wav", "/x/.wav", "/x/a.wav.bak", "/x/a.", "/b.wav/a"}) {
        EXPECT_EQ(drag(view, {file(path)}, all), Qt::IgnoreAction) << path;
    }
    EXPECT_EQ(drag(view, {}, all), Qt::IgnoreAction);
    EXPECT_EQ(drag(view, {QUrl("https://x.example/a.wav")}, all), Qt::IgnoreAction);
    EXPECT_EQ(drag(view, {file("/x/a.txt"), file("/x/a.wav")}, all), Qt::IgnoreAction);
    EXPECT_EQ(drag(view, {file("/x/a.wav")}, Qt::MoveAction), Qt::IgnoreAction);
    EXPECT_THAT(takeCalls(), ElementsAre());
    EXPECT_FALSE(importRow(1).view()->prepareForDragOperation());
    QMimeData data;
    data.setUrls({file("/x/a.wav")});
    QDropEvent drop({3, 3}, all, &data, Qt::LeftButton, Qt::NoModifier);
    importRow(1).view()->drop(drop);
    EXPECT_EQ(drop.dropAction(), Qt::IgnoreAction);  // otherwise the source believes that it was taken
}

}  // namespace
}  // namespace kzq::test
