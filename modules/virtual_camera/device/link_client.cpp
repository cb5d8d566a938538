#include "device/link_client.h"

#include <cstring>

#include <vmc/vmc.h>

namespace vcam {

uint32_t LinkClient::Exchange(const wire::Request& request, const void* payload, Answer* answer) const {
    if (!module_->INT_AccessCommand) return VMC_ERR_NOT_SUPPORTED;
    // Reused per thread: most replies are a header and a few words.
    thread_local std::vector<uint8_t> message, reply;
    message.resize(sizeof request + request.payloadBytes);
    std::memcpy(message.data(), &request, sizeof request);
    if (request.payloadBytes) std::memcpy(message.data() + sizeof request, payload, request.payloadBytes);
    if (reply.size() < 4096) reply.resize(4096);

    for (int attempt = 0; attempt < 2; ++attempt) {
        uint32_t used = 0, error = VMC_ERR_OK;
        const uint32_t ok = module_->INT_AccessCommand(link_, message.data(), static_cast<uint32_t>(message.size()),
                                                       reply.data(), static_cast<uint32_t>(reply.size()), &used,
                                                       &error);
        if (!ok && error == wire::kReplyTooSmall && used > reply.size()) {
            reply.resize(used);  // the camera said how much it has; ask again
            continue;
        }
        if (!ok) return error;
        std::memcpy(&answer->reply, reply.data(), sizeof answer->reply);
        const uint8_t* body = reply.data() + sizeof answer->reply;
        answer->payload.assign(body, body + answer->reply.payloadBytes);
        return VMC_ERR_OK;
    }
    return VMC_ERR_NO_MEMORY;
}

uint32_t LinkClient::ReadFrame(uint32_t ticket, void* buffer, uint64_t bytes) const {
    if (!module_->INT_ReadDataEx) return VMC_ERR_NOT_SUPPORTED;
    uint32_t error = VMC_ERR_OK;
    return module_->INT_ReadDataEx(link_, ticket, buffer, bytes, &error) ? VMC_ERR_OK : error;
}

uint32_t LinkClient::Close() const {
    if (!module_->INT_Close) return VMC_ERR_NOT_SUPPORTED;
    uint32_t error = VMC_ERR_OK;
    return module_->INT_Close(link_, &error) ? VMC_ERR_OK : error;
}

}  // namespace vcam
