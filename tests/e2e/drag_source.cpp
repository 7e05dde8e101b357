// A window from which files can be dragged, like a file manager's: drag_source FILE...

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace {

class Files : public QLabel {
  public:
    explicit Files(const QList<QUrl>& urls) : urls_(urls) {
        setWindowTitle("Files");
        setText("Files to drag");
        setGeometry(20, 40, 160, 80);
    }

  protected:
    void mouseMoveEvent(QMouseEvent* /*event*/) override {
        auto* const files = new QMimeData;  // NOLINT(cppcoreguidelines-owning-memory): the drag's
        files->setUrls(urls_);
        auto* const drag = new QDrag(this);  // NOLINT(cppcoreguidelines-owning-memory): deletes itself
        drag->setMimeData(files);
        drag->exec(Qt::CopyAction);
    }

  private:
    QList<QUrl> urls_;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QList<QUrl> urls;
    for (const auto& file : QApplication::arguments().mid(1)) {
        urls << QUrl::fromLocalFile(file);
    }
    Files window(urls);
    window.show();
    return QApplication::exec();
}
