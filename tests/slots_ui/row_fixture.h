#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "gallery/bystanders.h"
#include "slots/row_grid.h"
#include "slots/slot.h"
#include "slots/slot_field_editor.h"

namespace kzq::test {

/// Two lists of twenty rows in a window, with a controller that records its calls.
class RowFixture : public testing::Test, public SlotDelegate, public gallery::StillApplication {
  protected:
    RowFixture();

    Slot& importRow(std::uint8_t number) { return *importSlots[number - 1U]; }
    Slot& exportRow(std::uint8_t number) { return *exportSlots[number - 1U]; }
    /// An import row whose loop is on the pedal.
    Slot& recorded(std::uint8_t number);
    static void setOccupied(Slot& row, bool occupied);
    static void stage(Slot& row, const char* path);
    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    /// Replaces the text in the open editor.
    void type(const QString& text);
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    std::vector<std::unique_ptr<Slot>> importSlots;
    std::vector<std::unique_ptr<Slot>> exportSlots;
    std::unique_ptr<RowGrid> importGrid;
    std::unique_ptr<RowGrid> exportGrid;
    SlotFieldEditor editor;
    QWidget window;
    std::vector<std::string> calls;
    QList<QUrl> dropped;
    QList<QUrl> held;  ///< over the row that said so last
    std::function<void(Slot&)> onButton = [](Slot&) {};

  private:
    void note(const char* call, const Slot& slot);

    void checkboxStateChangedForImportSlot(Slot& slot) override {
        note(slot.selected() ? "on" : "off", slot);
    }
    void buttonClickedForExportSlot(Slot& slot) override { (note("add", slot), onButton(slot)); }
    void nameEditingBeganForSlot(Slot& slot) override { note("began", slot); }
    void nameEditingEndedForSlot(Slot& slot) override { note("ended", slot); }
    void exportAboutToBeRemoved(Slot& slot) override { note(slot.exporting() ? "remove" : "too late", slot); }
    void exportRemoved(Slot& slot) override { note(slot.exporting() ? "too early" : "removed", slot); }
    void playClickedForSlot(Slot& slot) override { note("play", slot); }
    void compareClickedForSlot(Slot& slot) override { note("compare", slot); }
    Slot* slotNumber(std::uint8_t number, std::int32_t context) override;
    void slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) override {
        note("dropped", slot);
        dropped = urls;
    }
    void filesHeldOverSlot(Slot& /*slot*/, const QList<QUrl>& urls) override { held = urls; }
    void dragBegunForSlot(Slot& slot) override { note("drag", slot); }
    SlotFieldEditor* windowWillReturnFieldEditor(QWidget* of, QObject* object) override;

    void closeMenu() override { calls.emplace_back("closeMenu"); }
};

std::string fieldText(const Slot& row);

}  // namespace kzq::test
