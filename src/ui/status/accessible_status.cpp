#include "ui/status/accessible_status.h"

#include <QAccessibleWidget>

#include "ui/accessible_controls.h"
#include "ui/status/outcome_list.h"
#include "ui/status/outcome_row.h"
#include "ui/status/spoken_words.h"

namespace kzq {
namespace {

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object) {
    if (auto* const words = qobject_cast<SpokenWords*>(object)) {
        return new QAccessibleWidget(words, QAccessible::Notification);
    }
    if (auto* const list = qobject_cast<OutcomeList*>(object)) {
        return coverable(*list, QAccessible::List);
    }
    if (auto* const row = qobject_cast<OutcomeRow*>(object)) {
        return coverable(*row, QAccessible::ListItem);
    }
    return nullptr;
}

}  // namespace

void installAccessibleStatus() {
    QAccessible::installFactory(interfaceOf);  // a factory already installed is not added again
}

}  // namespace kzq
