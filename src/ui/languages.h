#pragma once

#include <QLocale>

namespace kzq {

/// The translations that the program comes with, as resources; made from resources/languages.
class QtCatalogue {
  public:
    /// The texts of the program, and Qt's own as far as the system has them, in the first of the languages
    /// that `locale` prefers. False if that is English or none that there is: nothing has changed then. Once,
    /// on the main thread, when there is an application object but neither a window nor another thread.
    static bool use(const QLocale& locale);
};

}  // namespace kzq
