#include "updates/windows/release_notes.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "updates/windows/notes_view.h"

using namespace kzq;

TEST(ReleaseNotes, AreTextWhateverTheyCameAs) {
    const struct {
        std::string given;
        const char16_t* shown;
    } notes[] = {
        {"Plain\r\n- one\n* two\na < b > c & d", u"Plain\n\u2022\tone\n\u2022\ttwo\na < b > c & d"},
        {"<h2>New</h2>\n<ul>\n <li>One\n  line</li><li><p>Two</p></li></ul><p>End<br/>of it",
         u"New\n\u2022\tOne line\n\u2022\tTwo\nEnd\nof it"},
        {"<p>a&amp;b &lt;i&gt; &#8364;&#x41; &nosuch; &#0; &#xD800; R&D</p>",
         u"a&b <i> \u20acA &nosuch; &#0; &#xD800; R&D"},
        {"<style>p{}</style><SCRIPT>if (a<b) x()</script >Hi<!-- <p>no</p> -->"
         "<a href='https://x/\">'>there</a><img src=\"file:///dev/zero\" alt='>'>",
         u"Hithere"},
        {"text<b never closed", u"text<b never closed"},
        {"<p>text<b title='never closed</p>", u"text"},
    };
    for (const auto& [given, shown] : notes) {
        EXPECT_EQ(plainNotes(given).toStdString(), QString::fromUtf16(shown).toStdString()) << given;
    }
    std::string hostile;
    while (hostile.size() < 1'000'000) {
        hostile += "<a '<!-- &&<script";
    }
    EXPECT_EQ(plainNotes(hostile), QString::fromStdString(hostile));
    EXPECT_EQ(plainNotes(hostile + ">"), QString());
}

TEST(NotesView, KeepsHostileTextInBounds) {
    NotesView view;
    view.appendNotes(QStringLiteral("\u2022\tListed\nnot listed\a\x1b[2J"));
    EXPECT_EQ(view.toPlainText(), u"\u2022\tListed\nnot listed[2J");
    const QSignalSpy changes(view.document(), &QTextDocument::contentsChanged);
    view.appendNotes(QString(1'000'000, u'\n'));
    EXPECT_EQ(changes.count(), 1) << "each change is laid out by itself";
    EXPECT_LE(view.toPlainText().size(), NotesView::longestNotes);
    EXPECT_GT(view.toPlainText().size(), NotesView::longestNotes - 10);
}
