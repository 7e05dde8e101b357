#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <memory>
#include <optional>

#include "loops/frames.h"
#include "loops/slot_number.h"
#include "platform/fixed.h"
#include "slots/drop_sign.h"
#include "slots/row_layout.h"
#include "slots/row_sound.h"
#include "slots/slot_button.h"
#include "slots/slot_compare.h"
#include "slots/slot_delegate.h"
#include "slots/slot_field.h"
#include "slots/slot_field_background.h"
#include "slots/slot_ring.h"
#include "slots/slot_view.h"
#include "ui/x_button.h"

namespace kzq {

class ApplicationController;
class RowChange;

/// One row of the import list (context 0: loops that go to the computer) or of the export list (context 1:
/// files that go to the pedal). Keeps the row's state, derives its text, colour and pictures from it, and
/// reports the user's actions to the delegate. Main thread.
class Slot : public QObject {
    Q_OBJECT

  public:
    static constexpr std::int32_t importContext = 0;
    static constexpr std::int32_t exportContext = 1;

    /// A row for loop `number` (1 to 20), or null if its layout cannot be created. Any context but 0 makes an
    /// export row. The row's view, 344 x 28, becomes a child of `parent` at (0, 0) and belongs to it; without
    /// a parent it belongs to the row. `application` outlives the row.
    static std::unique_ptr<Slot> slotNumber(std::uint8_t number, std::int32_t context,
                                            ApplicationController& application, QWidget* parent);
    /// Takes the row out of service: its view stays with the parent, but takes no drops and calls nobody.
    ~Slot() override;

    /// The rows being renamed (or renamed last), one for each list in the whole process; 0 is none yet.
    static std::uint8_t currentImportSlotInEditingMode();
    static std::uint8_t currentExportSlotInEditingMode();

    /// The views; null once the parent widget has deleted them: the row keeps its state without them.
    SlotView* view() const { return view_; }
    QLabel* numberLabel() const { return numberLabel_; }
    SlotButton* button() const { return button_; }
    SlotFieldBackground* background() const { return background_; }
    XButton* x() const { return x_; }
    SlotField* field() const { return field_; }
    SlotRing* ring() const { return ring_; }
    SlotCompare* compare() const { return compare_; }

    /// Not owned; clear it before the delegate is destroyed.
    SlotDelegate* delegate() const { return delegate_; }
    void setDelegate(SlotDelegate* delegate) { delegate_ = delegate; }

    std::int32_t context() const { return context_; }
    bool isExport() const { return context_ != importContext; }
    std::uint8_t number() const { return number_; }
    SlotNumber slot() const { return *SlotNumber::of(number_); }

    /// Whether the row can be used; its button and field follow.
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    /// What the pedal holds in this loop. Plain values: call refresh() once all are set.
    bool occupied() const { return occupied_; }
    void setOccupied(bool occupied) { occupied_ = occupied; }
    std::uint64_t samples() const { return samples_; }  ///< frames of 6 bytes
    void setSamples(std::uint64_t samples) { samples_ = samples; }
    std::uint64_t bytes() const { return bytes_; }
    void setBytes(std::uint64_t bytes) { bytes_ = bytes; }
    std::uint64_t alignedBytes() const { return alignedBytes_; }  ///< bytes rounded up to 64
    void setAlignedBytes(std::uint64_t alignedBytes) { alignedBytes_ = alignedBytes; }

    /// Import row: the checkbox is on. Deselecting forgets the typed name.
    bool selected() const;
    void setSelected(bool selected);

    /// "Loop 7"
    const QString& defaultName() const { return defaultName_; }
    void setDefaultName(const QString& name);
    /// Import row: what the user typed.
    const std::optional<QString>& customImportName() const { return customImportName_; }
    void setCustomImportName(const std::optional<QString>& name);
    /// Export row: the file that the user chose (not its converted copy), while one is staged.
    const std::optional<QUrl>& exporting() const { return exporting_; }
    void setExporting(const std::optional<QUrl>& file);
    /// The last component of `exporting` without its extension.
    std::optional<QString> nameOfExport() const;
    /// Export row: the staged file has been written to the pedal.
    bool exported() const { return exported_; }
    void setExported(bool exported);
    /// What the row shows of its loop's sound.
    const RowSound& sound() const { return sound_; }
    void setSound(const RowSound& sound);
    /// How long the loop is, or the staged file; 0 shows nothing.
    Frames length() const { return length_; }
    void setLength(Frames length);
    /// Of the loop, as the pedal has it, for the row's tool tip; 0 shows nothing.
    void setTempo(unsigned tempo);
    /// There is something to be heard: a loop, or a staged file.
    bool canPlay() const;
    /// The pointer or the focus of the keyboard is in the row.
    bool touched() const { return touched_; }
    void setTouched(bool touched);
    /// Export row: shown in place of the rest while a file is held over the window; changes nothing else.
    const std::optional<DropSign>& dropSign() const { return dropSign_; }
    void setDropSign(const std::optional<DropSign>& sign);
    /// The text the row shows; nothing for an export row without a file or a loop.
    std::optional<QString> name() const;

    /// What the name lies on now, and where it and the rest stand.
    RowGround ground() const;
    RowLayout layout() const;
    /// The length, or the time played; empty for neither.
    QString clock() const;
    /// While the loop plays that the row's file would replace, its name stands there instead, and nothing
    /// else of the row changes; and what plays has a white name.
    QString nameInSight() const;
    QColor nameColour(const QColor& resting) const;

    /// The name field as laid out, and while the x is shown.
    const QRect& originalFieldFrame() const { return originalFieldFrame_; }
    const QRect& shiftedFieldFrame() const { return shiftedFieldFrame_; }

    /// Derives the background picture and the colour of the text from the state.
    void sync();
    /// Rewrites field, button and background from the state; does nothing while the name is being edited.
    void resetNameField();
    /// resetNameField(), then the whole row is painted again.
    void refresh();
    /// Ends the editing of this row's name, if its editor is open, and keeps the typed name.
    void endEditing();

    /// Sent by the view as it goes, before those in it do.
    void viewGoes() { view_ = nullptr; }

    /// The actions of the button, of the x, and of the ring and A/B or their keys.
    void buttonClicked();
    void doNotExport();
    void playClicked();
    void compareClicked();

    /// Sent by the field when its editor opens and when it has closed.
    void controlTextDidBeginEditing();
    void controlTextDidEndEditing();

  private:
    friend RowChange;
    Slot(std::uint8_t number, std::int32_t context, ApplicationController& application);
    bool loadLayout(QWidget* parent);
    void setUp();
    void connectViews(Slot* controller);
    void registerForDrops(bool on);
    void resetImportField();
    void syncExport();
    void syncImport();
    bool showBackground(const QString& name);
    void setFieldText(const QString& text);
    void placeX(bool shown);
    bool isStaged() const { return exporting_ && !exported_; }
    bool showsOther() const { return sound_.compares && sound_.other; }
    bool hasViews() const;
    void showSound();
    void showRing();
    void describe();
    QString description(bool complete) const;
    void describeSound();
    QString shownName() const { return name().value_or(QString()); }

    ApplicationController& application_;
    SlotDelegate* delegate_ = nullptr;  // the controller that owns the rows, and so outlives them
    QPointer<SlotView> view_;
    QPointer<QLabel> numberLabel_;
    QPointer<SlotButton> button_;
    QPointer<SlotFieldBackground> background_;
    QPointer<XButton> x_;
    QPointer<SlotField> field_;
    QPointer<SlotRing> ring_;
    QPointer<SlotCompare> compare_;
    std::int32_t context_;
    std::uint8_t number_;
    bool enabled_ = true;
    bool occupied_ = false;
    bool exported_ = false;
    bool touched_ = false;
    int changes_ = 0;
    std::uint64_t samples_ = 0;
    std::uint64_t bytes_ = 0;
    std::uint64_t alignedBytes_ = 0;
    QString defaultName_;
    std::optional<QString> customImportName_;
    std::optional<QUrl> exporting_;
    RowSound sound_;
    Frames length_;
    std::optional<DropSign> dropSign_;
    QRect originalFieldFrame_;
    QRect shiftedFieldFrame_;
};

/// While there is one, a row changes step by step; assistive technology hears of it at the end, once. The row
/// outlives it.
class RowChange : Fixed {
  public:
    explicit RowChange(Slot& row) : row_(row) { ++row_.changes_; }
    ~RowChange() {
        --row_.changes_;
        row_.describe();
    }

  private:
    Slot& row_;
};

}  // namespace kzq
