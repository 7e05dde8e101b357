#include <QStackedWidget>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "ui/picture_button.h"

namespace kzq {

void AppDelegate::selectImportTab() {
    closeMenu();
    window_.importTabButton()->setPicture("Menu_Import_On");
    window_.exportTabButton()->setPicture("Menu_Export_Off");
    window_.tabs()->setCurrentIndex(0);
}

void AppDelegate::selectExportTab() {
    closeMenu();
    setMeterValueAndCaption(existingAndTeedUpExportSamples());
    window_.importTabButton()->setPicture("Menu_Import_Off");
    window_.exportTabButton()->setPicture("Menu_Export_On");
    window_.tabs()->setCurrentIndex(1);
}

}  // namespace kzq
