#pragma once

#include <QPoint>
#include <QPointer>
#include <memory>

#include "ui/shield.h"
#include "ui/window.h"

class QLabel;
class QMenuBar;
class QStackedWidget;

namespace Ui {
class MainWindow;
}

namespace kzq {

class Background;
class LowerButton;
class MassSelectionButton;
class PictureButton;
class PictureView;
class StatusLine;

/// The layout of the main window: its views by name, without their behaviour. The pictures and labels shown
/// without a pedal appear and disappear opposite to the meter. Main thread.
class MainWindow : public Window {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    QMenuBar* menuBar() const;
    /// At the right end of the menu bar.
    StatusLine& statusLine() const { return *status_; }
    /// Everything below the menu bar.
    Background* contentView() const;
    PictureButton* importTabButton() const;
    PictureButton* exportTabButton() const;
    PictureButton* menuButton() const;
    /// Item 0 is the import tab, item 1 the export tab. Each has, in the order of the list, the
    /// placeholders of the rows: widgets whose objectName is "import slot N" or "export slot N".
    QStackedWidget* tabs() const;
    PictureView* meter() const;
    PictureView* meterTrack() const;
    QLabel* meterCaption() const;
    LowerButton* eraseButton() const;
    LowerButton* importButton() const;
    LowerButton* exportButton() const;
    QWidget* warning() const;
    MassSelectionButton* selectAllButton() const;
    MassSelectionButton* deselectAllButton() const;

    void showMeter(bool shown);
    /// Covers everything with the shield, menu bar included; no effect if it is up.
    void addShield();
    void removeShield();
    Shield* shield() const { return shield_; }

    /// Sets the Tab order to the visual order. Call it once the rows are in their placeholders.
    void settleTabOrder();
    /// Centres the window on the screen with the pointer.
    void centre();

    /// Why no pedal is available, in one line, shown while there is none; may be empty.
    void setRemedy(const QString& remedy);
    /// Whether the window says that no pedal is connected.
    bool saysNoPedal() const;

  Q_SIGNALS:
    /// The window starts (stops) saying that no pedal is connected.
    void noPedalChanged(bool shown);

  private:
    void dress();
    void dressEmptyState();

    std::unique_ptr<Ui::MainWindow> ui_;
    StatusLine* status_;
    QPointer<Shield> shield_;
};

}  // namespace kzq
