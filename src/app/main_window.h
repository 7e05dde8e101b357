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

/// The main window as it is laid out: its views by their names, and nothing that they do. The pictures and
/// labels that stand where no pedal is connected come and go with the meter. Main thread.
class MainWindow : public Window {
    Q_OBJECT

  public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;

    QMenuBar* menuBar() const;
    /// Everything below the menu bar.
    Background* contentView() const;
    PictureButton* importTabButton() const;
    PictureButton* exportTabButton() const;
    PictureButton* menuButton() const;
    /// Item 0 is the import tab, item 1 the export tab. In each lie, in the order of the list, the
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
    /// Lays the shield over everything, menu bar included; a second one is not laid.
    void addShield();
    void removeShield();
    Shield* shield() const { return shield_; }

    /// Once the rows are in their placeholders: Tab goes as the eye does.
    void settleTabOrder();
    /// In the middle of the screen that the pointer is on.
    void centre();

    /// What stands between the user and the pedal, in a line, shown where no pedal is; empty for nothing.
    void setRemedy(const QString& remedy);
    /// Whether the window says that no pedal is connected.
    bool saysNoPedal() const;

  Q_SIGNALS:
    /// The window begins (ends) to say that no pedal is connected.
    void noPedalChanged(bool shown);

  private:
    void dress();
    void dressEmptyState();

    std::unique_ptr<Ui::MainWindow> ui_;
    QPointer<Shield> shield_;
};

}  // namespace kzq
