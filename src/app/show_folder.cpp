#include "app/show_folder.h"

#include <QUrl>

#include "app/app_environment.h"

namespace kzq {

Remedy showing(const AppEnvironment& environment, const std::filesystem::path& folder) {
    return {"Show", [&dialogs = environment.dialogs, folder] {
                dialogs.openAddress(
                    QUrl::fromLocalFile(QString::fromStdString(folder.string())).toString().toStdString());
                return true;
            }};
}

}  // namespace kzq
