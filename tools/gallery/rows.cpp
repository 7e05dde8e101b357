#include "rows.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include "loops/facts.h"
#include "slots/slot_button.h"
#include "slots/slot_field.h"
#include "slots/slot_view.h"
#include "sound_rows.h"
#include "stage.h"
#include "ui/x_button.h"

namespace kzq::gallery {

namespace {

constexpr RowState importStates[] = {
    {.caption = "no loop"},
    {.caption = "a loop", .occupied = true},
    {.caption = "selected", .occupied = true, .selected = true},
    {.caption = "selected, with a name", .occupied = true, .selected = true, .name = "Dusty Rhodes vamp"},
    {.caption = "name too long",
     .occupied = true,
     .selected = true,
     .name = "Night bus field recording, second attempt"},
    {.caption = "from right to left, too long",
     .occupied = true,
     .selected = true,
     .name = "\u05E9\u05D9\u05E8 \u05D4\u05D0\u05D5\u05D8\u05D5\u05D1\u05D5\u05E1, "
             "\u05E0\u05D9\u05E1\u05D9\u05D5\u05DF \u05E9\u05E0\u05D9, \u05D0\u05D9\u05D8\u05D9"},
    {.caption = "from right to left in the middle",
     .occupied = true,
     .selected = true,
     .name = "Take 2, \u05E9\u05D9\u05E8 \u05D4\u05D0\u05D5\u05D8\u05D5\u05D1\u05D5\u05E1 "
             "\u05E0\u05D9\u05E1\u05D9\u05D5\u05DF \u05E9\u05E0\u05D9"},
    {.caption = "renaming",
     .occupied = true,
     .selected = true,
     .name = "Slow waltz bass, gjpqy",
     .renaming = true},
};

constexpr RowState exportStates[] = {
    {.caption = "empty"},
    {.caption = "filled", .occupied = true},
    {.caption = "staged", .name = "brushes_94bpm_bar1-8"},
    {.caption = "staged, name too long", .name = "rehearsal 2 Nov, drums and upright bass"},
    {.caption = "overwrite", .occupied = true, .name = "verse riff take 3"},
    {.caption = "complete", .name = "tape choir Am", .written = true},
    {.caption = "complete, was overwritten", .occupied = true, .name = "tape choir Am", .written = true},
    {.caption = "drop", .dropping = true},
    {.caption = "drop on a loop", .occupied = true, .dropping = true},
    {.caption = "drop on a staged file", .occupied = true, .name = "verse riff take 3", .dropping = true},
};

void holdFileOver(QWidget& view) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/tmp/loop.wav")});
    QDragEnterEvent enter(view.rect().center(), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &enter);
}

Shots handsOn(Rows& rows) {
    Shots shots;
    const auto shootPart = [&](const char* caption, std::int32_t context, const RowState& state, auto part,
                               Hand hand) {
        const auto row = rows.row(7, context, state, nullptr);
        QWidget& view = *row->view();
        if (hand != Hand::keyboard) {
            touch(*part(*row), hand);
        }
        shots.push_back(shootInTray(caption, view, hand == Hand::keyboard ? part(*row) : nullptr));
    };
    const auto button = [](const Slot& row) -> QWidget* { return row.button(); };
    const auto field = [](const Slot& row) -> QWidget* { return row.field(); };
    const auto x = [](const Slot& row) -> QWidget* { return row.x(); };
    shootPart("keyboard on the selector", Slot::importContext, importStates[1], button, Hand::keyboard);
    shootPart("keyboard on the name", Slot::importContext, importStates[2], field, Hand::keyboard);
    shootPart("keyboard on the button", Slot::exportContext, exportStates[0], button, Hand::keyboard);
    shootPart("keyboard on the x", Slot::exportContext, exportStates[2], x, Hand::keyboard);
    shootPart("pointer on the name", Slot::importContext, importStates[1], field, Hand::hovering);
    shootPart("name pressed", Slot::importContext, importStates[1], field, Hand::pressing);
    shootPart("pointer on a name on tape", Slot::importContext, importStates[3], field, Hand::hovering);
    shootPart("pointer on the x", Slot::exportContext, exportStates[2], x, Hand::hovering);
    return shots;
}

}  // namespace

std::unique_ptr<Slot> Rows::row(std::uint8_t number, std::int32_t context, const RowState& state,
                                QWidget* parent) {
    auto row = Slot::slotNumber(number, context, application_, parent);
    row->setDelegate(&delegate_);
    row->setOccupied(state.occupied);
    row->setEnabled(context == Slot::exportContext || state.occupied);
    if (context == Slot::importContext) {
        row->setSelected(state.selected);
        if (state.name != nullptr) {
            row->setCustomImportName(QString(state.name));
        }
    } else if (state.name != nullptr) {
        row->setExporting(QUrl::fromLocalFile(QString("/tmp/%1.wav").arg(state.name)));
        row->setExported(state.written);
    }
    row->refresh();
    row->setLength({row->canPlay() ? (29ULL + 13ULL * number) * framesPerSecond : 0});
    if (state.heard) {
        RowSound sound;
        sound.peaks = somePeaks();
        row->setSound(sound);
    }
    if (state.renaming) {
        row->field()->startRenaming();
    }
    if (state.dropping) {
        holdFileOver(*row->view());
    }
    return row;
}

Shots rows() {
    Rows maker;
    Shots shots;
    for (const auto& state : importStates) {
        const auto row = maker.row(7, Slot::importContext, state, nullptr);
        shots.push_back(shootInTray(QString("import: %1").arg(state.caption), *row->view()));
    }
    for (const auto& state : exportStates) {
        const auto row = maker.row(7, Slot::exportContext, state, nullptr);
        shots.push_back(shootInTray(QString("export: %1").arg(state.caption), *row->view()));
    }
    append(shots, handsOn(maker));
    return shots;
}

}  // namespace kzq::gallery
