#pragma once

#include <QObject>

namespace kzq {

/// The notification "com.kzq.slot-field-esc": Escape was released in the field editor. Delivered at once, on
/// the main thread, to every name field.
class SlotFieldEsc : public QObject {
    Q_OBJECT

  public:
    static SlotFieldEsc& centre();
    void post() { Q_EMIT posted(); }

  Q_SIGNALS:
    void posted();

  private:
    SlotFieldEsc();
};

}  // namespace kzq
