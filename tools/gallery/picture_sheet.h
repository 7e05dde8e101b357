#pragma once

#include <QImage>
#include <QString>
#include <vector>

namespace kzq::gallery {

/// A contact sheet: its file name without scale and suffix, and what it shows at one device ratio.
struct Sheet {
    QString name;
    QImage image;
};

/// Every picture of the resources as Qt's own renderer draws it at `scale`, in families on the ground it will
/// lie on.
std::vector<Sheet> pictureSheets(double scale);

}  // namespace kzq::gallery
