#include "app/doctor_visit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "app/app_parts.h"
#include "app/main_window.h"
#include "app/save_report.h"
#include "troubleshooting/doctor.h"
#include "ui/panels/doctor_panel.h"

namespace kzq {

DoctorVisit::DoctorVisit(AppParts& parts) : parts_(parts) {}

DoctorVisit::~DoctorVisit() = default;

bool DoctorVisit::isThere() const {
    return parts_.environment.examine != nullptr;
}

void DoctorVisit::open() {
    if (!isThere()) {
        return;
    }
    if (!panel_) {
        makePanel();
    }
    if (!looking_) {
        examine();
    }
    panel_->show();
    panel_->raise();
    panel_->activateWindow();
}

void DoctorVisit::makePanel() {
    panel_ = std::make_unique<DoctorPanel>(&parts_.window);
    QObject::connect(panel_.get(), &DoctorPanel::copyPressed, panel_.get(),
                     [this] { QGuiApplication::clipboard()->setText(QString::fromStdString(report_)); });
    QObject::connect(panel_.get(), &DoctorPanel::reportPressed, panel_.get(), [this] { saveReport(parts_); });
}

void DoctorVisit::examine() {
    looking_ = true;
    panel_->look();
    parts_.environment.executor.background(
        Priority::standard, [this, post = parts_.teller.poster(), look = parts_.environment.examine] {
            post([this, findings = look()] { found(findings); });
        });
}

void DoctorVisit::found(const std::vector<Finding>& findings) {
    looking_ = false;
    report_.clear();
    std::vector<DoctorCheck> checks;
    for (const auto& finding : findings) {
        checks.push_back({.trouble = finding.present,
                          .sentence = QString::fromStdString(finding.sentence),
                          .remedy = QString::fromStdString(finding.present ? finding.remedy : "")});
        for (const auto& line : doctorLines(finding)) {
            report_ += line + "\n";
        }
    }
    panel_->setChecks(std::move(checks));
}

}  // namespace kzq
