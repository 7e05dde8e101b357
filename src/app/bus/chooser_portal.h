#pragma once

#include <QDBusConnection>
#include <QObject>

namespace kzq {

/// Watches the program that shows the desktop's file choosers where the toolkit asks for them over the
/// session bus. The toolkit waits for its answer for good, and takes it for a refusal if there is no such
/// program.
class ChooserPortal : public QObject {
    Q_OBJECT

  public:
    /// `theme`: the value of QT_QPA_PLATFORMTHEME. Does nothing if that names no portal.
    ChooserPortal(QDBusConnection bus, const QByteArray& theme);

    /// It showed no choosers when it was asked last.
    bool missing() const { return missing_; }

  Q_SIGNALS:
    void ended();

  private:
    void look();

    QDBusConnection bus_;
    bool missing_ = false;
};

}  // namespace kzq
