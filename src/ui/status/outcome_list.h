#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <deque>
#include <vector>

#include "ui/status/announcements.h"

class QMenuBar;
class QScrollArea;

namespace kzq {

class OutcomeRow;

/// The last outcomes under the status line, newest first: a panel in the window with a tab around the
/// chevron. Escape, a press outside and a second press on the opener close it, and the focus goes back. Up
/// and Down walk the rows, Tab the rows and their links.
class OutcomeList : public QWidget {
    Q_OBJECT

  public:
    explicit OutcomeList(QWidget* window);

    /// The button that opens and closes it: a press on it is not one outside.
    void setOpener(QWidget* opener) { opener_ = opener; }
    /// Its right edge is 20 left of the bar's, as the chevron demands.
    void placeUnder(const QMenuBar& bar);
    void show(const std::deque<Announcement>& outcomes, Qt::FocusReason reason);
    /// The rows anew; the focus stays on its row.
    void refresh(const std::deque<Announcement>& outcomes);
    void close();

    const std::vector<OutcomeRow*>& rows() const { return rows_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// The action of an outcome was chosen.
    void used(std::uint64_t number);
    void closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void fill(const std::deque<Announcement>& outcomes);
    /// Returns the height of the first rows.
    int fillPage(const std::deque<Announcement>& outcomes, int width);
    int roomForRows() const;
    void layOut(int shown);
    void walk(int step);

    QPointer<QWidget> opener_;
    QPointer<QWidget> before_;  ///< had the focus when it opened
    Qt::FocusReason reason_ = Qt::OtherFocusReason;
    QScrollArea* area_;
    std::vector<OutcomeRow*> rows_;
};

}  // namespace kzq
