#include "device/simulator/usbredir/redirection_packets.h"

#include <linux/usb/ch9.h>
#include <usbredirparser.h>

#include <algorithm>
#include <utility>

#include "device/simulator/usbip/descriptors.h"
#include "device/wire.h"

namespace kzq::simulator {

namespace {

using usbip::Transfer;

/// Where an endpoint stands in lists: the outgoing ones first.
std::size_t placeOf(std::uint8_t address) {
    constexpr std::size_t endpoints = 16;
    return (address & USB_ENDPOINT_NUMBER_MASK) + ((address & USB_DIR_IN) != 0 ? endpoints : 0);
}

/// The data of an answer, which the library only reads. There may be no pointer where no data belongs.
std::pair<std::uint8_t*, int> dataOf(const Transfer& transfer, std::size_t moved) {
    return transfer.in ? std::pair(const_cast<std::uint8_t*>(transfer.data.data()), static_cast<int>(moved))
                       : std::pair<std::uint8_t*, int>(nullptr, 0);
}

void answerControl(usbredirparser& parser, const Transfer& transfer, std::uint8_t status, std::size_t moved) {
    const SetupPacket& setup = transfer.setup;
    usb_redir_control_packet_header header{};
    header.endpoint = transfer.in ? USB_DIR_IN : 0;
    header.request = setup.request;
    header.requesttype = setup.requestType;
    header.status = status;
    header.value = setup.value;
    header.index = setup.index;
    header.length = static_cast<std::uint16_t>(moved);
    const auto [data, length] = dataOf(transfer, moved);
    usbredirparser_send_control_packet(&parser, transfer.number, &header, data, length);
}

/// False: it is none for which QEMU has a message of its own.
bool answerStandardRequest(usbredirparser& parser, const Transfer& transfer, std::uint8_t status) {
    const SetupPacket& setup = transfer.setup;
    const unsigned recipient = setup.requestType & ~unsigned{USB_DIR_IN};
    const auto number = static_cast<std::uint8_t>(
        transfer.in && !transfer.data.empty() ? transfer.data.front() : setup.value);
    if (recipient == USB_RECIP_DEVICE &&
        (setup.request == USB_REQ_SET_CONFIGURATION || setup.request == USB_REQ_GET_CONFIGURATION)) {
        usb_redir_configuration_status_header header{status, number};
        usbredirparser_send_configuration_status(&parser, transfer.number, &header);
        return true;
    }
    if (recipient == USB_RECIP_INTERFACE &&
        (setup.request == USB_REQ_SET_INTERFACE || setup.request == USB_REQ_GET_INTERFACE)) {
        usb_redir_alt_setting_status_header header{status, static_cast<std::uint8_t>(setup.index), number};
        usbredirparser_send_alt_setting_status(&parser, transfer.number, &header);
        return true;
    }
    return false;
}

void answerBulk(usbredirparser& parser, const Transfer& transfer, std::uint8_t status, std::size_t moved) {
    constexpr unsigned highShift = 16;
    usb_redir_bulk_packet_header header{};
    header.endpoint = static_cast<std::uint8_t>(transfer.endpoint | (transfer.in ? USB_DIR_IN : 0U));
    header.status = status;
    header.length = static_cast<std::uint16_t>(moved);
    header.length_high = static_cast<std::uint16_t>(moved >> highShift);
    const auto [data, length] = dataOf(transfer, moved);
    usbredirparser_send_bulk_packet(&parser, transfer.number, &header, data, length);
}

}  // namespace

void introducePedal(usbredirparser& parser) {
    constexpr std::uint16_t bulkPacket = 512;
    usb_redir_ep_info_header endpoints{};
    std::ranges::fill(endpoints.type, std::uint8_t{usb_redir_type_invalid});
    endpoints.type[placeOf(0)] = usb_redir_type_control;
    endpoints.type[placeOf(USB_DIR_IN)] = usb_redir_type_control;
    for (const auto address : {pedalBulkIn, pedalBulkOut}) {
        endpoints.type[placeOf(address)] = usb_redir_type_bulk;
        endpoints.max_packet_size[placeOf(address)] = bulkPacket;
    }
    usbredirparser_send_ep_info(&parser, &endpoints);

    usb_redir_interface_info_header interfaces{};
    interfaces.interface_count = 1;
    interfaces.interface[0] = pedalInterface;
    interfaces.interface_class[0] = usbip::vendorClass;
    usbredirparser_send_interface_info(&parser, &interfaces);

    usb_redir_device_connect_header device{};
    device.speed = usb_redir_speed_high;
    device.vendor_id = pedalVendor;
    device.product_id = pedalProduct;
    device.device_version_bcd = usbip::pedalRelease;
    usbredirparser_send_device_connect(&parser, &device);
}

void answer(usbredirparser& parser, const Transfer& transfer, std::uint8_t status, std::size_t moved) {
    if (transfer.endpoint != 0) {
        answerBulk(parser, transfer, status, moved);
    } else if (!answerStandardRequest(parser, transfer, status)) {
        answerControl(parser, transfer, status, moved);
    }
}

}  // namespace kzq::simulator
