#pragma once

#include <QTextEdit>

namespace kzq {

/// Release notes to read: plain text in a groove. A line that begins with a bullet and a tab gets
/// a yellow bullet and is wrapped under its text. Nothing in it is a link, an image or markup, whatever the
/// text says.
class NotesView : public QTextEdit {
  public:
    explicit NotesView(QWidget* parent = nullptr);

    /// Adds to what is there. Control characters are left out; what is longer than `longestNotes` is cut.
    void appendNotes(const QString& notes);
    /// Takes the notes out. When the same ones are appended next, what was in view is in view again
    /// and what was selected is selected.
    void emptyNotes();

    static constexpr qsizetype longestNotes = 50'000;

  protected:
    bool event(QEvent* event) override;

  private:
    void appendLine(QTextCursor& cursor, const QString& line) const;

    QString emptied_;
    int emptiedAnchor_ = 0;  ///< what was selected of it, from here to the caret
    int emptiedCaret_ = 0;
    int emptiedAt_ = 0;  ///< how far `emptied_` was scrolled
};

}  // namespace kzq
