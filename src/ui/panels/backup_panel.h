#pragma once

#include <QDialog>
#include <cstddef>
#include <utility>
#include <vector>

#include "ui/panels/backup_list.h"
#include "ui/panels/backup_row.h"

namespace kzq {

class AlertButton;
class CheckBox;
class FocusRing;

/// File > Back Up and File > Restore: what either would do to each slot. It knows no files and no pedal.
/// Modal to its window. Main thread.
class BackupPanel : public QDialog {
    Q_OBJECT

  public:
    enum class Kind { backUp, restore };
    /// How many slots have that mark, in words: "2 new".
    using Count = std::pair<BackupSlot::Look, QString>;

    BackupPanel(Kind kind, QWidget* window);

    Kind kind() const { return kind_; }
    /// What is chosen, and what can be; if that is nothing, there is no list.
    void setOffers(const BackupOffer& chosen, std::vector<BackupOffer> offers, std::size_t index);
    /// From slot 1 on.
    void setSlots(const std::vector<BackupSlot>& slots);
    void setCounts(std::vector<Count> counts);
    /// Whether it can be done. `problem` takes the headline's place; `why` not is for a tool tip.
    void setReady(bool ready, const QString& problem, const QString& why);

    /// Erase Loops; off at first.
    bool erases() const;

    const std::vector<BackupRow*>& rows() const { return rows_; }
    BackupTape& tape() const { return *tape_; }
    KeyButton& otherFolder() const { return *other_; }
    BackupList& list() const { return *list_; }
    CheckBox& eraseLoops() const { return *erase_; }
    AlertButton& acceptButton() const { return *accept_; }
    AlertButton& decline() const { return *decline_; }
    QString headline() const;
    /// "11 same, 2 new"
    QString summary() const;

  Q_SIGNALS:
    // By the user.
    void chosen(std::size_t offer);
    void folderWanted();
    void eraseChanged();
    /// The panel has closed.
    void wanted();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void makeHead();
    void makeRows();
    void makeFoot();
    void walk(std::size_t from, int step);
    void describe();
    void focusDefault();
    void paintCounts(ScaledPainter& painter) const;

    const Kind kind_;
    BackupTape* tape_;
    KeyButton* other_;
    BackupList* list_ = nullptr;
    std::vector<BackupRow*> rows_;
    CheckBox* erase_ = nullptr;
    AlertButton* decline_ = nullptr;
    AlertButton* accept_ = nullptr;
    FocusRing* ring_ = nullptr;
    std::vector<BackupOffer> offers_;
    std::size_t index_ = 0;
    std::vector<Count> counts_;
    QString problem_;
};

}  // namespace kzq
