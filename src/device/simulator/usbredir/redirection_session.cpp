#include "device/simulator/usbredir/redirection_session.h"

#include <linux/usb/ch9.h>
#include <sys/socket.h>
#include <usbredirparser.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "device/simulator/usbredir/redirection_packets.h"
#include "platform/log.h"

namespace kzq::simulator {

namespace {

using usbip::Transfer;

constexpr std::uint8_t endpointNumber = 0x0F;

RedirectionSession& of(void* session) {
    return *static_cast<RedirectionSession*>(session);
}

bool isIn(std::uint8_t address) {
    return (address & USB_DIR_IN) != 0;
}

std::uint8_t statusOf(TransferResult result) {
    switch (result.status) {
        case TransferStatus::stalled:
            return usb_redir_stall;
        case TransferStatus::overrun:
            return usb_redir_babble;
        default:
            return usb_redir_success;
    }
}

/// Frees what the library has handed over.
class PacketData : Fixed {
  public:
    PacketData(usbredirparser* parser, std::uint8_t* data, int length)
        : parser_(parser), data_(data), length_(static_cast<std::size_t>(length)) {}
    ~PacketData() { usbredirparser_free_packet_data(parser_, data_); }
    ByteView view() const { return {data_, length_}; }

  private:
    usbredirparser* parser_;
    std::uint8_t* data_;
    std::size_t length_;
};

}  // namespace

void RedirectionSession::DestroyParser::operator()(usbredirparser* parser) const {
    usbredirparser_destroy(parser);
}

RedirectionSession::RedirectionSession(SimulatedPedal& pedal, Descriptor socket)
    : pedal_(pedal),
      socket_(std::move(socket)),
      parser_(usbredirparser_create()),
      transfers_(pedal, [this](const Transfer& transfer, TransferResult result) {
          answer(*parser_, transfer, statusOf(result), result.transferred);
          return true;
      }) {
    hearPackets();
    hearStandardRequests();
    std::array<std::uint32_t, USB_REDIR_CAPS_SIZE> abilities{};
    for (const int ability : {usb_redir_cap_connect_device_version, usb_redir_cap_ep_info_max_packet_size,
                              usb_redir_cap_64bits_ids, usb_redir_cap_32bits_bulk_length}) {
        usbredirparser_caps_set_cap(abilities.data(), ability);
    }
    usbredirparser_init(parser_.get(), "kzq7306-pedal", abilities.data(), abilities.size(),
                        usbredirparser_fl_usb_host);
    flush();
}

RedirectionSession::~RedirectionSession() = default;

void RedirectionSession::hearPackets() {
    parser_->priv = this;
    parser_->log_func = [](void*, int level, const char* words) {
        if (level <= usbredirparser_warning) {
            log(LogCategory::simulator, std::string("QEMU: ") + words);
        }
    };
    parser_->read_func = [](void* self, std::uint8_t* into, int most) { return of(self).read(into, most); };
    parser_->write_func = [](void* self, std::uint8_t* from, int count) {
        return of(self).write(from, count);
    };
    parser_->hello_func = [](void* self, usb_redir_hello_header*) { introducePedal(*of(self).parser_); };
    parser_->reset_func = [](void* self) { of(self).pedal_.reset(); };
    parser_->cancel_data_packet_func = [](void* self, Number number) { of(self).cancel(number); };
    parser_->control_packet_func = [](void* self, Number number, usb_redir_control_packet_header* header,
                                      std::uint8_t* data, int length) {
        const PacketData owned(of(self).parser_.get(), data, length);
        of(self).control(number, *header, owned.view());
    };
    parser_->bulk_packet_func = [](void* self, Number number, usb_redir_bulk_packet_header* header,
                                   std::uint8_t* data, int length) {
        const PacketData owned(of(self).parser_.get(), data, length);
        of(self).bulk(number, *header, owned.view());
    };
}

/// Those for which QEMU has messages of their own. They are answered like all others.
void RedirectionSession::hearStandardRequests() {
    static const auto ask = [](void* self, Number number, const SetupPacket& setup) {
        const bool in = isIn(setup.requestType);
        of(self).submit({.number = number, .in = in, .setup = setup, .data = Bytes(setup.length)});
    };
    constexpr std::uint8_t interfaceOut = USB_RECIP_INTERFACE;
    constexpr std::uint8_t interfaceIn = USB_RECIP_INTERFACE | USB_DIR_IN;
    parser_->set_configuration_func = [](void* self, Number number,
                                         usb_redir_set_configuration_header* header) {
        ask(self, number, {0, USB_REQ_SET_CONFIGURATION, header->configuration, 0, 0});
    };
    parser_->get_configuration_func = [](void* self, Number number) {
        ask(self, number, {USB_DIR_IN, USB_REQ_GET_CONFIGURATION, 0, 0, 1});
    };
    parser_->set_alt_setting_func = [](void* self, Number number, usb_redir_set_alt_setting_header* header) {
        ask(self, number, {interfaceOut, USB_REQ_SET_INTERFACE, header->alt, header->interface, 0});
    };
    parser_->get_alt_setting_func = [](void* self, Number number, usb_redir_get_alt_setting_header* header) {
        ask(self, number, {interfaceIn, USB_REQ_GET_INTERFACE, 0, header->interface, 1});
    };
}

bool RedirectionSession::hear() {
    alive_ = usbredirparser_do_read(parser_.get()) == 0 && alive_;
    return flush();
}

bool RedirectionSession::reconsider() {
    alive_ = alive_ && transfers_.reconsider();
    return flush();
}

bool RedirectionSession::flush() {
    while (alive_ && usbredirparser_has_data_to_write(parser_.get()) > 0) {
        alive_ = usbredirparser_do_write(parser_.get()) == 0;
    }
    return alive_;
}

int RedirectionSession::read(std::uint8_t* into, int most) const {
    const auto came = ::recv(socket_.get(), into, static_cast<std::size_t>(most), MSG_DONTWAIT);
    if (came > 0) {
        return static_cast<int>(came);
    }
    return came < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : -1;
}

int RedirectionSession::write(const std::uint8_t* from, int count) const {
    const auto went = ::send(socket_.get(), from, static_cast<std::size_t>(count), MSG_NOSIGNAL);
    return went < 0 && errno == EINTR ? 0 : static_cast<int>(went);
}

/// QEMU uses its numbers again, so it waits for this answer like for any other.
void RedirectionSession::cancel(Number number) {
    if (const auto transfer = transfers_.cancel(number)) {
        answer(*parser_, *transfer, usb_redir_cancelled, 0);
    }
}

void RedirectionSession::submit(Transfer transfer) {
    alive_ = alive_ && transfers_.submit(std::move(transfer));
}

void RedirectionSession::control(Number number, const usb_redir_control_packet_header& header,
                                 ByteView data) {
    const bool in = isIn(header.endpoint);
    submit({.number = number,
            .in = in,
            .setup = {header.requesttype, header.request, header.value, header.index, header.length},
            .data = in ? Bytes(header.length) : Bytes(data.begin(), data.end())});
}

void RedirectionSession::bulk(Number number, const usb_redir_bulk_packet_header& header, ByteView data) {
    constexpr unsigned highShift = 16;
    const std::size_t length = header.length | static_cast<std::size_t>(header.length_high) << highShift;
    if (length > usbip::longestTransfer) {
        log(LogCategory::simulator, "QEMU: a transfer that is too long");
        alive_ = false;
        return;
    }
    const bool in = isIn(header.endpoint);
    submit({.number = number,
            .endpoint = static_cast<std::uint32_t>(header.endpoint & endpointNumber),
            .in = in,
            .data = in ? Bytes(length) : Bytes(data.begin(), data.end())});
}

}  // namespace kzq::simulator
