#include <QFile>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdio>

namespace {

constexpr auto style = R"(<meta name="viewport" content="width=device-width">
<style type="text/css">
body { max-width: 46em; margin: 2em auto !important; padding: 0 1em; font-family: sans-serif !important;
       font-size: 100% !important; line-height: 1.5; color: #261414; background: #FFFDF8; }
img { max-width: 100%; height: auto; }
h2 { margin-top: 1.5em !important; }
table { border: none; border-collapse: collapse; }
td { border: none; padding: 2px 16px 2px 0; vertical-align: top; }
)";

/// As a page of its own.
QString pageOf(const QString& markdown) {
    QTextDocument document;
    document.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
    document.setMetaInformation(QTextDocument::DocumentTitle, "7306 Loop Manager: user guide");
    return document.toHtml().replace("<style type=\"text/css\">", style);
}

bool save(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() &&
           file.flush();
}

}  // namespace

/// kzq7306-guide MARKDOWN PAGE: writes the guide for users as a page for a browser.
int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const auto words = QGuiApplication::arguments();
    if (words.size() != 3) {
        std::fputs("usage: kzq7306-guide MARKDOWN PAGE\n", stderr);
        return 2;
    }
    QFile guide(words[1]);
    if (!guide.open(QIODevice::ReadOnly) ||
        !save(words[2], pageOf(QString::fromUtf8(guide.readAll())).toUtf8())) {
        std::fprintf(stderr, "%s cannot be made into %s\n", qPrintable(words[1]), qPrintable(words[2]));
        return 1;
    }
    return 0;
}
