#pragma once

#include <QColor>
#include <QPointF>
#include <QString>

#include "ui/key_button.h"

namespace kzq {

class ScaledPainter;

/// A backup, or a folder for backups, that can be chosen.
struct BackupOffer {
    QString name;         ///< "Sunday rehearsal"
    QString detail = {};  ///< "16 Nov 2026, 19:20, 14 loops"
    bool usable = true;   ///< otherwise `detail` says why not

    bool operator==(const BackupOffer&) const = default;
};

/// For a screen reader: "Sunday rehearsal, 16 Nov 2026, 19:20, 14 loops".
QString spokenOffer(const BackupOffer& offer);
/// The name, from `baseline` on, is cut if the detail, which ends at `right`, leaves it too little room.
void writeOffer(ScaledPainter& painter, const BackupOffer& offer, QPointF baseline, double right,
                const QColor& nameColor, const QColor& detailColor);
/// Which `writeOffer` leaves for the name from `left` on.
double roomForName(const BackupOffer& offer, double left, double right);

/// What is chosen, on a strip of console tape: a button that opens the list.
class BackupTape : public KeyButton {
    Q_OBJECT

  public:
    static constexpr QSize tapeSize{372, 28};

    explicit BackupTape(QWidget* panel);

    /// `what` it is, for a screen reader: "Backup".
    void show(const QString& what, const BackupOffer& offer);
    const BackupOffer& shown() const { return shown_; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    BackupOffer shown_;
};

}  // namespace kzq
