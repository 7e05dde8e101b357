#include "row_fixture.h"

namespace kzq::test {

namespace {

constexpr std::uint8_t rows = 20;
constexpr int pitch = 32;
constexpr int rowWidth = 344;

}  // namespace

RowFixture::RowFixture() {
    for (std::uint8_t number = 1; number <= rows; ++number) {
        for (const auto context : {Slot::importContext, Slot::exportContext}) {
            auto* const place = new QWidget(&window);
            place->setGeometry(context * rowWidth, number * pitch, rowWidth, pitch);
            auto row = Slot::slotNumber(number, context, *this, place);
            row->setDelegate(this);
            (context == Slot::importContext ? importSlots : exportSlots).push_back(std::move(row));
        }
    }
    for (auto* const list : {&importSlots, &exportSlots}) {
        RowGrid::Rows all;
        for (const auto& row : *list) {
            all.push_back(row.get());
        }
        (list == &importSlots ? importGrid : exportGrid) = std::make_unique<RowGrid>(std::move(all));
    }
    window.setFocusPolicy(Qt::ClickFocus);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
}

Slot& RowFixture::recorded(std::uint8_t number) {
    auto& row = importRow(number);
    setOccupied(row, true);
    return row;
}

void RowFixture::setOccupied(Slot& row, bool occupied) {
    row.setOccupied(occupied);
    row.refresh();
}

void RowFixture::stage(Slot& row, const char* path) {
    row.setExporting(QUrl::fromLocalFile(QString::fromUtf8(path)));
    row.setExported(false);
}

void RowFixture::type(const QString& text) {
    editor.selectAll();
    editor.insertPlainText(text);
}

void RowFixture::note(const char* call, const Slot& slot) {
    calls.push_back(std::string(call) + (slot.isExport() ? " export " : " import ") +
                    std::to_string(slot.number()));
}

Slot* RowFixture::slotNumber(std::uint8_t number, std::int32_t context) {
    const auto& list = context == Slot::importContext ? importSlots : exportSlots;
    return number == 0 || number > list.size() ? nullptr : list[number - 1U].get();
}

SlotFieldEditor* RowFixture::windowWillReturnFieldEditor(QWidget* of, QObject* object) {
    return of == &window && qobject_cast<SlotField*>(object) != nullptr ? &editor : nullptr;
}

std::string fieldText(const Slot& row) {
    return row.field()->text().toStdString();
}

}  // namespace kzq::test
