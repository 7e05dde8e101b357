#include "slots/slot_field_esc.h"

namespace kzq {

SlotFieldEsc::SlotFieldEsc() {
    setObjectName(QString::fromLatin1("com.kzq.slot-field-esc"));
}

SlotFieldEsc& SlotFieldEsc::centre() {
    static SlotFieldEsc notification;
    return notification;
}

}  // namespace kzq
