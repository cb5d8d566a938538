// The far end of the virtual link: the cameras of the active profile, the
// open links to them, and what a link does to the traffic on it: it counts
// exchanges, paces bulk transfers to the link rate, and carries the faults
// a profile asks for.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "camera/camera.h"
#include "protocol.h"

namespace vcam {

class VirtualLink {
public:
    // The one link of this module, built from the active profile at first use.
    static VirtualLink& Instance();

    explicit VirtualLink(const Profile& profile, WallClock clock = SteadyClock());

    // The cameras on the link: code and id of each, in profile order.
    void Detect(std::vector<uint32_t>* deviceCodes, std::vector<uint32_t>* deviceIds) const;

    // Opens a link to the camera with this id; error 5 when there is none.
    uint32_t Open(uint32_t deviceId, uint32_t* link);
    uint32_t Close(uint32_t link);

    // One request and its reply. replyBytes holds the reply's size, also when
    // the buffer was too small (then the answer is kReplyTooSmall).
    uint32_t Exchange(uint32_t link, const void* request, uint32_t requestBytes, void* reply, uint32_t replySize,
                      uint32_t* replyBytes);
    // Bulk data: the frame of a ticket, rendered into data.
    uint32_t ReadFrame(uint32_t link, uint64_t ticket, void* data, uint64_t size);

    // Exchanges made on links to the camera with this id since the module was loaded.
    uint64_t ExchangeCount(uint32_t deviceId) const;

private:
    struct Session;
    struct Station;  // one camera with its counters and faults

    uint32_t Answer(Station& station, const wire::Request& request, const uint8_t* payload, wire::Reply* reply,
                    std::vector<uint8_t>* replyPayload);
    // Link faults: false (and the error) when this exchange does not go through.
    bool Passes(Session& session, const wire::Request* request, uint32_t* error);
    Session* Find(uint32_t link);
    void Pace(const Station& station, uint64_t bytes, double startSeconds) const;

    WallClock clock_;
    std::vector<std::unique_ptr<Station>> stations_;
    mutable std::mutex mutex_;  // guards sessions_, tickets_ and the counters
    std::map<uint32_t, Session> sessions_;
    std::map<uint64_t, FrameJob> tickets_;
    uint32_t nextLink_ = 1;
    uint64_t nextTicket_ = 1;
};

}  // namespace vcam
