#include "app/later/later_parts.h"

#include <QCoreApplication>
#include <QLibrary>

namespace kzq {

tl::expected<LaterParts, std::string> loadLaterParts() {
    QLibrary module(QCoreApplication::applicationDirPath() + "/" KZQ_MODULES "/kzq7306-later.so");
    module.setLoadHints(QLibrary::PreventUnloadHint);
    using Parts = const LaterParts*();
    auto* const parts = reinterpret_cast<Parts*>(module.resolve("kzqLaterParts"));
    if (parts == nullptr) {
        return tl::unexpected("a part of the program is missing: " + module.errorString().toStdString() +
                              ". Install the program again.");
    }
    return *parts();
}

}  // namespace kzq
