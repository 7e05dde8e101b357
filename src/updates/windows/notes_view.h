#pragma once

#include <QTextEdit>

namespace kzq {

/// Read-only release notes: plain text in a groove. A line that starts with a bullet and a tab gets a yellow
/// bullet and is wrapped under its text. Links, images and markup in the text have no effect.
class NotesView : public QTextEdit {
  public:
    explicit NotesView(QWidget* parent = nullptr);

    /// Appends text. Control characters are left out; the text is cut at `longestNotes`.
    void appendNotes(const QString& notes);
    /// Clears the notes. If the same ones are appended next, scroll position and selection are restored.
    void emptyNotes();

    static constexpr qsizetype longestNotes = 50'000;

  protected:
    bool event(QEvent* event) override;

  private:
    void dressAnew();
    void appendLine(QTextCursor& cursor, const QString& line) const;

    QString emptied_;
    int emptiedAnchor_ = 0;  ///< what was selected of it, from here to the caret
    int emptiedCaret_ = 0;
    int emptiedAt_ = 0;  ///< how far `emptied_` was scrolled
};

}  // namespace kzq
