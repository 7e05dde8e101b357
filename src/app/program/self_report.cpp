#include "app/program/self_report.h"

#include <QGuiApplication>
#include <algorithm>
#include <iostream>
#include <iterator>

#include "device/libusb/diagnosis.h"
#include "device/libusb/libusb_version.h"
#include "platform/log.h"
#include "platform/process.h"
#include "troubleshooting/this_computer.h"

namespace kzq {

void keepLog(const std::shared_ptr<LogTail>& tail, bool shown, std::function<void(std::string_view)> noted) {
    setLogSink([tail, shown, noted = std::move(noted)](LogCategory category, std::string_view line) {
        const auto text = std::string(logCategoryName(category)) + ": " + std::string(line);
        tail->add(text);
        if (shown) {
            std::cerr << text << std::endl;
        }
        if (noted) {
            noted(text);
        }
    });
}

std::vector<Finding> examined(bool simulate) {
    return simulate ? std::vector<Finding>{simulatedFinding()} : diagnoseByTrying();
}

TroubleReport selfReport(bool simulate, const LogTail& log) {
    TroubleReport report{
        .versions = {"kzq7306 " KZQ_VERSION, std::string("Qt ") + qVersion(), "libusb " + libusbVersion()},
        .findings = examined(simulate),
        .log = log.lines(),
        .owner = {homeFolder(), loginName()}};
    std::ranges::move(thisComputer(), std::back_inserter(report.versions));
    report.versions.push_back("window system: " + QGuiApplication::platformName().toStdString());
    return report;
}

}  // namespace kzq
