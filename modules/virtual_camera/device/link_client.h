// The device module's side of the virtual link: requests out, replies back,
// frames by ticket. Whatever interface module the library handed over at
// open carries them.
#pragma once

#include <cstdint>
#include <vector>

#include <vmc/module.h>

#include "protocol.h"

namespace vcam {

struct Answer {
    wire::Reply reply = {};
    std::vector<uint8_t> payload;
};

class LinkClient {
public:
    LinkClient(InterfaceModule* module, uint32_t link) : module_(module), link_(link) {}

    // One exchange; the camera's own answer is in answer->reply.error. Returns
    // the link's error: 1 when the exchange went through.
    uint32_t Exchange(const wire::Request& request, const void* payload, Answer* answer) const;
    // Fetches the frame of a ticket into buffer.
    uint32_t ReadFrame(uint32_t ticket, void* buffer, uint64_t bytes) const;
    uint32_t Close() const;
    InterfaceModule* Module() const { return module_; }

private:
    InterfaceModule* module_;
    uint32_t link_;
};

}  // namespace vcam
