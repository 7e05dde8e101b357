// A window into which files can be dragged, like a file manager's: drop_target FOLDER. It copies them there,
// and its text says what happens.

#include <QApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace {

class Folder : public QLabel {
  public:
    explicit Folder(QString folder) : folder_(std::move(folder)) {
        setWindowTitle("Folder");
        setText("Drop files here");
        setGeometry(20, 40, 160, 80);
        setAcceptDrops(true);
    }

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->possibleActions() == Qt::CopyAction && event->mimeData()->hasUrls()) {
            event->acceptProposedAction();
            setText("Files are held");
        }
    }

    void dragLeaveEvent(QDragLeaveEvent* /*event*/) override { setText("Drop files here"); }

    void dropEvent(QDropEvent* event) override {
        bool copied = true;
        for (const auto& url : event->mimeData()->urls()) {
            const auto file = url.toLocalFile();
            copied = QFile::copy(file, folder_ + "/" + QFileInfo(file).fileName()) && copied;
        }
        event->acceptProposedAction();
        setText(copied ? "Files are here" : "Files are missing");
    }

  private:
    QString folder_;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Folder window(QApplication::arguments().value(1));
    window.show();
    return QApplication::exec();
}
