#pragma once

#include <QTextEdit>

namespace kzq {

/// Release notes to read: plain text on a transparent ground. A line that begins with a bullet and a tab gets
/// a yellow bullet and is wrapped under its text. Nothing in it is a link, an image or markup, whatever the
/// text says.
class NotesView : public QTextEdit {
  public:
    explicit NotesView(QWidget* parent = nullptr);

    /// Adds to what is there, from a new paragraph on when the text has several. Control characters are left
    /// out; beyond `longestNotes` characters nothing is added.
    void appendNotes(const QString& notes);

    static constexpr qsizetype longestNotes = 50'000;
};

}  // namespace kzq
