#include "ui/panels/product.h"

#include <QUrl>

namespace kzq {

std::string websiteLabel(const Product& product) {
    return QUrl(QString::fromStdString(product.website)).host().toStdString();
}

}  // namespace kzq
