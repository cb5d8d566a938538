#include "link/virtual_link.h"

#include <chrono>
#include <cstring>
#include <string>
#include <thread>

#include <vmc/vmc.h>

namespace vcam {

struct VirtualLink::Station {
    CameraProfile profile;
    std::unique_ptr<Camera> camera;
    uint64_t exchanges = 0;
    double transferRate = 0;  // bytes per second; 0 is unpaced
};

struct VirtualLink::Session {
    Station* station = nullptr;
    double openedAt = 0;  // wall seconds
    uint64_t exchanges = 0;
    bool dropped = false;
};

VirtualLink& VirtualLink::Instance() {
    static VirtualLink* link = new VirtualLink(ActiveProfile());  // lives as long as the process
    return *link;
}

VirtualLink::VirtualLink(const Profile& profile, WallClock clock) : clock_(std::move(clock)) {
    for (const CameraProfile& camera : profile.cameras) {
        auto station = std::make_unique<Station>();
        station->profile = camera;
        station->camera = std::make_unique<Camera>(station->profile, static_cast<uint32_t>(stations_.size()), clock_);
        station->transferRate = camera.linkBytesPerSecond;
        for (const Fault& fault : camera.faults)
            if (fault.kind == FaultKind::SlowTransfers) station->transferRate = fault.bytesPerSecond;
        stations_.push_back(std::move(station));
    }
}

void VirtualLink::Detect(std::vector<uint32_t>* deviceCodes, std::vector<uint32_t>* deviceIds) const {
    for (const auto& station : stations_) {
        deviceCodes->push_back(station->profile.deviceCode);
        deviceIds->push_back(station->profile.deviceId);
    }
}

uint32_t VirtualLink::Open(uint32_t deviceId, uint32_t* link) {
    for (const auto& station : stations_) {
        if (station->profile.deviceId != deviceId) continue;
        std::lock_guard lock(mutex_);
        const uint32_t number = nextLink_++;
        sessions_[number] = Session{station.get(), clock_(), 0, false};
        *link = number;
        return VMC_ERR_OK;
    }
    return VMC_ERR_BAD_ARGUMENT;
}

uint32_t VirtualLink::Close(uint32_t link) {
    std::lock_guard lock(mutex_);
    return sessions_.erase(link) ? VMC_ERR_OK : VMC_ERR_BAD_ARGUMENT;
}

VirtualLink::Session* VirtualLink::Find(uint32_t link) {
    auto found = sessions_.find(link);
    return found == sessions_.end() ? nullptr : &found->second;
}

uint64_t VirtualLink::ExchangeCount(uint32_t deviceId) const {
    std::lock_guard lock(mutex_);
    for (const auto& station : stations_)
        if (station->profile.deviceId == deviceId) return station->exchanges;
    return 0;
}

namespace {

bool CarriesSettingCode(wire::Op op) {
    return op == wire::Op::GetCaps || op == wire::Op::SetCaps || op == wire::Op::GetMemModeCaps;
}

}  // namespace

bool VirtualLink::Passes(Session& session, const wire::Request* request, uint32_t* error) {
    Station& station = *session.station;
    ++station.exchanges;
    ++session.exchanges;
    const CameraProfile& profile = station.profile;
    const double cameraSeconds = (clock_() - session.openedAt) / (profile.timeScale > 0 ? profile.timeScale : 1);
    for (const Fault& fault : profile.faults) {
        if (fault.kind == FaultKind::LinkDropAfter && session.exchanges > fault.calls) session.dropped = true;
        if (fault.kind == FaultKind::LinkDropAt && cameraSeconds >= fault.seconds) session.dropped = true;
    }
    if (session.dropped) {
        *error = VMC_ERR_DISCONNECTED;
        return false;
    }
    if (!request || !CarriesSettingCode(request->op)) return true;
    for (const Fault& fault : profile.faults) {
        const bool codeMatches = fault.code == kAnyCode || fault.code == request->code;
        if (!codeMatches) continue;
        if (fault.kind == FaultKind::Unsupported) *error = VMC_ERR_NOT_SUPPORTED;
        else if (fault.kind == FaultKind::Fail) *error = fault.error;
        else if (fault.kind == FaultKind::FailAfter && session.exchanges > fault.calls) *error = fault.error;
        else continue;
        return false;
    }
    return true;
}

uint32_t VirtualLink::Answer(Station& station, const wire::Request& request, const uint8_t* payload,
                             wire::Reply* reply, std::vector<uint8_t>* out) {
    Camera& camera = *station.camera;
    using wire::Op;
    switch (request.op) {
    case Op::GetCaps:
        return camera.GetCaps(request.child, request.code, request.sub, &reply->value1, &reply->value2);
    case Op::SetCaps:
        return camera.SetCaps(request.child, request.code, request.sub, request.value1, request.value2);
    case Op::GetMemModeCaps:
        return camera.GetMemModeCaps(request.child, request.partition, request.code, request.sub, &reply->value1,
                                     &reply->value2);
    case Op::GetList:
    case Op::GetMemModeList: {
        std::vector<uint32_t> list;
        const uint32_t error =
            request.op == Op::GetList
                ? camera.GetList(request.child, request.code, request.sub, &list)
                : camera.GetMemModeList(request.child, request.partition, request.code, request.sub, &list);
        reply->count = static_cast<uint32_t>(list.size());
        out->resize(list.size() * sizeof(uint32_t));
        if (!list.empty()) std::memcpy(out->data(), list.data(), out->size());
        return error;
    }
    case Op::SetList:
        return camera.SetList(request.child, request.code, request.sub, reinterpret_cast<const uint32_t*>(payload),
                              static_cast<uint32_t>(request.payloadBytes / sizeof(uint32_t)));
    case Op::GetData: {
        std::vector<uint8_t> extra;
        const uint32_t error = camera.GetData(request.child, request.code, request.sub, request.count, out, &extra);
        reply->firstBlockBytes = static_cast<uint32_t>(out->size());
        out->insert(out->end(), extra.begin(), extra.end());
        return error;
    }
    case Op::SetData:
        return camera.SetData(request.child, request.code, request.sub, request.value1,
                              request.payloadBytes ? payload : nullptr);
    case Op::DeviceName:
    case Op::HeadTypeName: {
        std::string name;
        const uint32_t error = request.op == Op::DeviceName ? camera.DeviceName(request.child, &name)
                                                            : camera.HeadTypeName(request.child, request.code, &name);
        out->assign(name.begin(), name.end());
        out->push_back(0);
        return error;
    }
    case Op::PrepareLiveFrame:
    case Op::PrepareMemoryFrame: {
        FrameJob job;
        const uint32_t error = request.op == Op::PrepareLiveFrame
                                   ? camera.LiveFrame(request.child, request.value1, &job)
                                   : camera.MemoryFrame(request.child, request.sub, request.value1, &job);
        if (error != VMC_ERR_OK) return error;
        std::lock_guard lock(mutex_);
        const uint64_t ticket = nextTicket_++;
        tickets_[ticket] = job;
        reply->value1 = static_cast<uint32_t>(ticket);
        reply->value2 = static_cast<uint32_t>(FrameBytes(job.format));
        return VMC_ERR_OK;
    }
    }
    return VMC_ERR_NOT_SUPPORTED;
}

uint32_t VirtualLink::Exchange(uint32_t link, const void* requestBytes, uint32_t requestSize, void* replyBytes,
                               uint32_t replySize, uint32_t* replyUsed) {
    wire::Request request;
    if (!requestBytes || requestSize < sizeof request || !replyBytes || replySize < sizeof(wire::Reply))
        return VMC_ERR_BAD_ARGUMENT;
    std::memcpy(&request, requestBytes, sizeof request);
    if (requestSize < sizeof request + request.payloadBytes) return VMC_ERR_BAD_ARGUMENT;

    Station* station = nullptr;
    {
        std::lock_guard lock(mutex_);
        Session* session = Find(link);
        if (!session) return VMC_ERR_NOT_OPEN;
        uint32_t refused = VMC_ERR_OK;
        if (!Passes(*session, &request, &refused)) {
            if (refused == VMC_ERR_DISCONNECTED) return refused;  // nothing comes back over a dead link
            wire::Reply reply = {refused, 0, 0, 0, 0, 0};
            std::memcpy(replyBytes, &reply, sizeof reply);
            if (replyUsed) *replyUsed = sizeof reply;
            return VMC_ERR_OK;
        }
        station = session->station;
    }

    wire::Reply reply = {};
    std::vector<uint8_t> payload;
    reply.error = Answer(*station, request, static_cast<const uint8_t*>(requestBytes) + sizeof request, &reply,
                         &payload);
    reply.payloadBytes = static_cast<uint32_t>(payload.size());
    const uint32_t needed = static_cast<uint32_t>(sizeof reply + payload.size());
    if (replyUsed) *replyUsed = needed;
    if (replySize < needed) {
        std::memcpy(replyBytes, &reply, sizeof reply);
        return wire::kReplyTooSmall;
    }
    std::memcpy(replyBytes, &reply, sizeof reply);
    if (!payload.empty()) std::memcpy(static_cast<uint8_t*>(replyBytes) + sizeof reply, payload.data(), payload.size());
    return VMC_ERR_OK;
}

uint32_t VirtualLink::ReadFrame(uint32_t link, uint64_t ticket, void* data, uint64_t size) {
    FrameJob job;
    Station* station = nullptr;
    {
        std::lock_guard lock(mutex_);
        Session* session = Find(link);
        if (!session) return VMC_ERR_NOT_OPEN;
        uint32_t refused = VMC_ERR_OK;
        if (!Passes(*session, nullptr, &refused)) return refused;
        auto found = tickets_.find(ticket);
        if (found == tickets_.end()) return VMC_ERR_TRANSFER_STATE;
        job = found->second;
        tickets_.erase(found);
        station = session->station;
    }
    const uint64_t bytes = FrameBytes(job.format);
    if (!data || size < bytes) return VMC_ERR_BAD_ARGUMENT;
    const double start = clock_();
    RenderFrame(job.format, job.id, data);
    Pace(*station, bytes, start);
    return VMC_ERR_OK;
}

void VirtualLink::Pace(const Station& station, uint64_t bytes, double startSeconds) const {
    if (station.transferRate <= 0) return;
    const double due = startSeconds + static_cast<double>(bytes) / station.transferRate;
    const double now = clock_();
    if (due > now) std::this_thread::sleep_for(std::chrono::duration<double>(due - now));
}

}  // namespace vcam
