#pragma once

#include <QDialog>
#include <vector>

class QLabel;
class QScrollArea;

namespace kzq {

class AlertButton;

/// What the doctor says of one thing that it looked at.
struct DoctorCheck {
    bool trouble = false;
    QString sentence;
    QString remedy = {};  ///< a shell command; may be empty
};

/// Help > Doctor: what was looked at, and what is wrong with it. Beside its window, which stays free. Main
/// thread.
class DoctorPanel : public QDialog {
    Q_OBJECT

  public:
    explicit DoctorPanel(QWidget* window);

    /// It is still being looked at, and nothing is known yet.
    void look();
    /// In the order in which to fix them.
    void setChecks(std::vector<DoctorCheck> checks);

    /// "2 problems were found"
    const QString& headline() const { return headline_; }
    /// One for each check, in the order shown.
    const std::vector<QLabel*>& sentences() const { return sentences_; }
    AlertButton& copy() const { return *copy_; }
    AlertButton& report() const { return *report_; }
    AlertButton& closer() const { return *close_; }

  Q_SIGNALS:
    void copyPressed();
    void reportPressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    AlertButton* addButton(const QString& word);
    void say(const QString& headline);
    void fill(const std::vector<DoctorCheck>& checks);
    int addText(QWidget& page, const QString& text, int top, bool remedy);
    void layOut(int rows);

    QScrollArea* area_;
    AlertButton* copy_;
    AlertButton* report_;
    AlertButton* close_;
    QString headline_;
    std::vector<QLabel*> sentences_;
};

}  // namespace kzq
