#pragma once

#include <QPoint>
#include <QPointer>
#include <functional>

#include "ui/shield.h"
#include "ui/window.h"
#include "ui_MainWindow.h"

namespace kzq {

class StatusLine;
class StatusLink;
class WindowSize;

/// The layout of the main window: its views by name, without their behaviour. The pictures and labels shown
/// without a pedal appear and disappear opposite to the meter. Main thread.
class MainWindow : public Window {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);

    /// Whether `centre` will show it at 100 %, and with it all other windows.
    static bool startsWhole();

    QMenuBar* menuBar() const { return ui_.menuBar; }
    /// At the right end of the menu bar.
    StatusLine& statusLine() const { return *status_; }
    /// Everything below the menu bar.
    Background* contentView() const { return ui_.content; }
    TabButton* importTabButton() const { return ui_.importTabButton; }
    TabButton* exportTabButton() const { return ui_.exportTabButton; }
    PictureButton* menuButton() const { return ui_.menuButton; }
    /// Item 0 is the import tab, item 1 the export tab. Each has, in the order of the list, the
    /// placeholders of the rows: widgets whose objectName is "import slot N" or "export slot N".
    QStackedWidget* tabs() const { return ui_.tabs; }
    Meter* meter() const { return ui_.meter; }
    PictureView* meterTrack() const { return ui_.meterTrack; }
    QLabel* meterCaption() const { return ui_.meterCaption; }
    LowerButton* eraseButton() const { return ui_.eraseButton; }
    LowerButton* importButton() const { return ui_.importButton; }
    LowerButton* exportButton() const { return ui_.exportButton; }
    QWidget* warning() const { return ui_.warning; }
    MassSelectionButton* selectAllButton() const { return ui_.selectAllButton; }
    MassSelectionButton* deselectAllButton() const { return ui_.deselectAllButton; }

    /// The item with this index, as its button then says.
    void showTab(int index);
    /// Enables a button or disables it. If it has the focus, that goes to the rows.
    void enable(QWidget& button, bool on);
    void showMeter(bool shown);
    /// Covers everything with the shield, menu bar included; no effect if it is up.
    void addShield();
    void removeShield();
    Shield* shield() const { return shield_; }
    /// "Stop" over the shield, where the status line has its link; null: not any more.
    void offerStop(const std::function<void()>& act);

    /// Sets the Tab order to the visual order. Call it once the rows are in their placeholders.
    void settleTabOrder();
    /// Centres the window on the screen with the pointer, as large as fits there, at most at 100 %.
    void centre();
    /// How large it is shown, from 75 % to 300 %, in its proportions.
    WindowSize& sizeOnScreen() const { return *size_; }

    /// Why no pedal is available, in one line, shown while there is none; may be empty.
    void setRemedy(const QString& remedy);
    /// Whether the window says that no pedal is connected.
    bool saysNoPedal() const;

  Q_SIGNALS:
    /// The window starts (stops) saying that no pedal is connected.
    void noPedalChanged(bool shown);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void dress();
    void dressEmptyState();
    void nameParts();
    void placeStop();
    void focusRows();

    Ui::MainWindow ui_;
    WindowSize* size_;
    StatusLine* status_;
    QPointer<Shield> shield_;
    QPointer<StatusLink> stop_;  ///< over the shield
};

}  // namespace kzq
