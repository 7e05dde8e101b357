#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

namespace kzq {

class ScaledPainter;

/// What Back Up or Restore shows of a slot.
struct BackupSlot {
    enum class Look : std::uint8_t {
        none,      ///< no loop
        absent,    ///< no loop on the pedal; what is shown is in the backup
        rest,      ///< a loop that stays as it is
        fresh,     ///< goes into an empty slot
        replaces,  ///< goes into the pedal, over a loop
        erased,
        saved,   ///< goes into the backup
        damaged  ///< cannot be read from the backup
    };

    Look look = Look::none;
    QString length = {};  ///< "2:31"
    QString words = {};   ///< "replaces 0:58"
    QString spoken = {};  ///< "Slot 7, Loop 7, 8 seconds, replaces a loop of 58 seconds"
};

/// The 16 x 16 mark of that.
QString markOf(BackupSlot::Look look);

/// A slot in the Back Up or Restore panel. It can have the keyboard focus, so that it can be read; arrows are
/// passed on.
class BackupRow : public QWidget {
    Q_OBJECT

  public:
    static constexpr QSize rowSize{312, 28};

    BackupRow(unsigned slot, QWidget* parent);

    void show(const BackupSlot& slot);
    const BackupSlot& shown() const { return shown_; }

  Q_SIGNALS:
    /// To the slot so many further on.
    void walked(int step);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintWords(ScaledPainter& painter) const;

    const unsigned slot_;
    BackupSlot shown_;
};

}  // namespace kzq
