#pragma once

#include <memory>

#include "audio/wave.h"
#include "device/simulator/usbip/transfer_queue.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

struct usbredirparser;
struct usb_redir_control_packet_header;
struct usb_redir_bulk_packet_header;

namespace kzq::simulator {

/// One connection to QEMU, which is one presence of the pedal on the machine's bus. Closing it unplugs the
/// pedal. Not synchronised.
class RedirectionSession : Fixed {
  public:
    /// `pedal` outlives this. `socket`: connected.
    RedirectionSession(SimulatedPedal& pedal, Descriptor socket);
    ~RedirectionSession();

    int socket() const { return socket_.get(); }
    /// Does what has come over the socket. False: QEMU has hung up or breaks the protocol, or the pedal has
    /// left.
    bool hear();
    /// To be called when the pedal may have something to say. Returns what `hear` does.
    bool reconsider();

  private:
    using Number = std::uint64_t;
    struct DestroyParser {
        void operator()(usbredirparser* parser) const;
    };

    void hearPackets();
    void hearStandardRequests();
    bool flush();
    int read(std::uint8_t* into, int most) const;
    int write(const std::uint8_t* from, int count) const;

    void cancel(Number number);
    void submit(usbip::Transfer transfer);
    void control(Number number, const usb_redir_control_packet_header& header, ByteView data);
    void bulk(Number number, const usb_redir_bulk_packet_header& header, ByteView data);

    SimulatedPedal& pedal_;
    Descriptor socket_;
    std::unique_ptr<usbredirparser, DestroyParser> parser_;
    usbip::TransferQueue transfers_;
    bool alive_ = true;
};

}  // namespace kzq::simulator
