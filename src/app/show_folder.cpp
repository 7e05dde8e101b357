#include "app/show_folder.h"

#include <QUrl>

#include "app/app_environment.h"
#include "words/words.h"

namespace kzq {

std::string addressOf(const std::filesystem::path& place) {
    return QUrl::fromLocalFile(QString::fromStdString(place.string())).toString().toStdString();
}

Remedy showing(const AppEnvironment& environment, const std::filesystem::path& folder) {
    return {words("Show"),
            [&dialogs = environment.dialogs, folder] { return dialogs.openAddress(addressOf(folder)); }};
}

}  // namespace kzq
