#pragma once

#include <QPointer>
#include <QTextEdit>

namespace kzq {

class SlotField;

/// The one text editor that all name fields of a window share. It lies exactly over the field being edited:
/// one line of 16 px without margins, baseline 12, over the row's picture. Undo, selection and the clipboard
/// are the toolkit's; line breaks become spaces.
class SlotFieldEditor : public QTextEdit {
    Q_OBJECT

  public:
    /// Hidden and without a parent between uses; its creator owns it, even while a field shows it.
    explicit SlotFieldEditor(QWidget* parent = nullptr);

    /// The field that is being edited, or null.
    SlotField* field() const;
    /// Moves into `field` with `text`, all of it selected, and takes the focus. Editing in another
    /// field must have ended.
    void enter(SlotField& field, const QString& text);
    /// Leaves the field. The typed text stays in text() until the next enter().
    void leave();

    QString text() const { return toPlainText(); }
    void setText(const QString& text);
    void setTextStyle(const QFont& font, const QColor& colour);
    void collapseSelection();

    /// Why the focus returns to the field: by keyboard if a key ended the editing.
    Qt::FocusReason focusReason() const { return focusReason_; }

    static constexpr bool shouldDrawInsertionPoint() { return true; }
    /// The caret at `x`: 1 wide, from y 3 to 15.
    static QRectF insertionPointRect(qreal x);

    QSize sizeHint() const override { return {216, 16}; }

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void awakeFromNib();

    QPointer<SlotField> field_;
    Qt::FocusReason focusReason_ = Qt::OtherFocusReason;
};

}  // namespace kzq
