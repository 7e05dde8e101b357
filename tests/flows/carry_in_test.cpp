#include <QClipboard>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <fstream>

#include "audio/promised_length.h"
#include "flow_fixture.h"
#include "loops/facts.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class CarryIn : public FlowTest {
  protected:
    CarryIn() {
        lengthOf = [this](const std::string& path) {
            executor.sleep(lookTime);
            return promisedLength(path);
        };
    }

    QUrl song(const std::string& name, std::uint64_t frames) {
        return QUrl::fromLocalFile(QString::fromStdString(audioFile(name, frames)));
    }
    QWidget& tray() { return *window->tabs()->widget(1); }

    /// Enters there, and waits until all is looked at.
    bool holdOver(QWidget& target, const QList<QUrl>& files, QPoint at = {370, 100}) {
        data.setUrls(files);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &enter);
        executor.settle();
        return enter.isAccepted();
    }
    static void leave(QWidget& target) {
        QDragLeaveEvent away;
        QApplication::sendEvent(&target, &away);
    }
    void release(QWidget& target) {
        QDropEvent drop({370, 100}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&target, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
        executor.settle();
    }
    /// What the rows show of what is held: "2 one 0:02", with what stands before a refusal.
    std::vector<std::string> signs() {
        std::vector<std::string> shown;
        for (const auto& row : delegate->exportSlots()) {
            if (const auto& sign = row->dropSign()) {
                const auto* const kind = sign->kind == DropSign::Kind::replaces ? "! " : "";
                shown.push_back(kind + std::to_string(row->number()) + " " + sign->name.toStdString() + " " +
                                (sign->length + " " + sign->refusal).trimmed().toStdString());
            }
        }
        return shown;
    }

    QMimeData data;
    Executor::Duration lookTime{};
};

TEST_F(CarryIn, TwentyFilesOfWhichFiveFailGoWhereTheOutlinesWere) {
    launchConnected();
    QList<QUrl> files;
    for (int i = 0; i < 15; ++i) {
        files.push_back(song("song " + std::to_string(i) + ".wav", 44'100));
    }
    std::ofstream(base / "files" / "text.wav") << "this is no sound at all";
    files.insert(0, song("rehearsal.wav", capacityFrames));
    files.insert(3, QUrl::fromLocalFile("/nowhere/gone.wav"));
    files.insert(5, song("empty.wav", 0));
    files.insert(9, QUrl::fromLocalFile(QString::fromStdString(base / "files" / "text.wav")));
    files.push_back(QUrl::fromLocalFile("/x/cover.jpg"));
    ASSERT_TRUE(holdOver(tray(), files));
    const auto outlined = signs();
    ASSERT_EQ(outlined.size(), 17U) << "every free row";
    EXPECT_EQ(outlined[0], "2 song 0 0:01");
    EXPECT_EQ(outlined[15], "18 rehearsal 24:00 too long");
    EXPECT_EQ(outlined[16], "19 gone not readable");
    EXPECT_EQ(line(), "15 of 20 files fit. Left out: rehearsal, gone, empty, text and cover");
    release(tray());
    EXPECT_THAT(signs(), IsEmpty());
    EXPECT_EQ(line(), "Only 15 of 20 files were used: the others do not fit or cannot be read");
    for (std::size_t i = 0; i < 15; ++i) {
        const auto row = static_cast<std::uint8_t>(i == 0 ? 2 : i + 3);
        EXPECT_THAT(outlined[i],
                    StartsWith(std::to_string(row) + " " + exportRow(row).name().value().toStdString()));
    }
    EXPECT_EQ(delegate->selectedExportSlots().size(), 15U);
    EXPECT_EQ(window->tabs()->currentIndex(), 1);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CarryIn, OverARowTheOutlineIsASignAndTheDropIsAsEver) {
    launchConnected();
    auto& row = *exportRow(3).view();
    const QList<QUrl> two = {song("one.wav", 44'100), song("two.wav", 44'100)};
    ASSERT_TRUE(holdOver(row, two));
    EXPECT_THAT(signs(), ElementsAre("! 3 one 0:01"));
    EXPECT_EQ(line(), "Drop between the rows to use both files");
    leave(row);
    EXPECT_THAT(signs(), IsEmpty());
    EXPECT_THAT(line(), StartsWith("7306"));
    EXPECT_FALSE(holdOver(row, {QUrl::fromLocalFile("/x/notes.txt"), two[0]}, {2, 2}))
        << "the tray does not take what the row refuses";
    ASSERT_TRUE(holdOver(row, {song("long.wav", capacityFrames)}));
    EXPECT_THAT(signs(), ElementsAre("3 long 24:00 too long"));
    release(row);
    EXPECT_THAT(dialogs.take(), ElementsAre("This file is too large for the available space on your 7306."));
    holdOver(row, two);
    release(row);
    EXPECT_EQ(exportRow(3).name(), "one");
    EXPECT_EQ(delegate->selectedExportSlots().size(), 1U);
}

TEST_F(CarryIn, ADragThatRestsOnTheTabOpensIt) {
    launchConnected();
    auto& tab = *window->exportTabButton();
    const QList<QUrl> files = {song("one.wav", 10)};
    holdOver(tab, files, {5, 5});
    pass(599ms);
    leave(tab);
    holdOver(tab, files, {5, 5});
    pass(599ms);
    EXPECT_EQ(window->tabs()->currentIndex(), 0);
    EXPECT_EQ(line(), "1 file fits");
    pass(1ms);
    EXPECT_EQ(window->tabs()->currentIndex(), 1);
    release(tab);
    EXPECT_EQ(exportRow(2).name(), "one");
}

TEST_F(CarryIn, ADropWaitsForTheLookButNotForEver) {
    launchConnected();
    lookTime = 1s;
    const QList<QUrl> files = {song("short.wav", 10), song("long.wav", capacityFrames)};
    holdOver(tray(), files);
    EXPECT_THAT(signs(), ElementsAre("2 short ", "4 long "));
    EXPECT_THAT(line(), StartsWith("7306")) << "nothing is known yet";
    release(tray());
    pass(2s);
    EXPECT_EQ(exportRow(2).name(), "short");
    EXPECT_EQ(line(), "Only 1 of 2 files was used: \"long.wav\" is too long: 24:00, and 23:59 is left");
    lookTime = 1h;
    holdOver(tray(), {files[1]});
    release(tray());
    pass(3s);
    EXPECT_EQ(line(), "\"long.wav\" was left out: it is too long: 24:00, and 23:59 is left");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(CarryIn, PastedFilesAreSaidAndWaitForAPedal) {
    launch();
    data.setUrls({song("one.wav", 10), song("two.wav", 10)});
    auto* const copied = new QMimeData;
    copied->setUrls(data.urls());
    QApplication::clipboard()->setMimeData(copied);
    holdOver(tray(), data.urls());
    EXPECT_EQ(line(), "2 files will wait for a pedal");
    leave(tray());
    delegate->parts().carryIn.paste();
    executor.settle();
    EXPECT_THAT(line(), testing::EndsWith("2 files are waiting"));
    plugIn();
    EXPECT_EQ(exportRow(4).name(), "two");
    delegate->parts().carryIn.paste();
    executor.settle();
    EXPECT_EQ(line(), "2 files go to loops 5 and 6");
}

TEST_F(CarryIn, WhatCannotBeReadIsSaidWithoutAPedal) {
    launch();
    holdOver(tray(), {song("empty.wav", 0)});
    release(tray());
    EXPECT_EQ(line(), "No file was used: \"empty.wav\" is not readable");
}

}  // namespace

}  // namespace kzq::test
