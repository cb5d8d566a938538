// The recording in progress as the camera holds it: armed by a status
// write, ended by time or by another status write. When it ends each head's
// frames land in the partition it recorded into, the partition moves on as
// the increment mode says, and the camera is live again.
#include "camera/camera_recording.h"

namespace vcam {
namespace {

void Store(CameraState* camera, HeadState* head, const Capture& capture, double now) {
    std::optional<Recording> recording = FinishCapture(*camera->session, capture, now, *camera, *head);
    // Absolute numbers keep counting across recordings, so that no two frames look alike.
    head->nextAbsolute += static_cast<int64_t>((now - camera->session->startSeconds) * capture.settings.rate) + 1;
    if (!recording) return;
    if (recording->frames == 0) return;
    head->partitions[capture.partition - 1].recording = std::move(*recording);
    if (camera->partitionIncMode != 0 && head->currentPartition < head->partitionCount) ++head->currentPartition;
    if (camera->partitionIncMode != 2) head->memoryModePartition = capture.partition;
}

}  // namespace

void Arm(CameraState* camera, double now) {
    camera->session = StartSession(*camera, now);
    camera->status = kStatusLive;
}

void Refresh(CameraState* camera, double now) {
    if (camera->session && Advance(&*camera->session, now)) Conclude(camera, now);
}

void Conclude(CameraState* camera, double now) {
    if (!camera->session) return;
    for (size_t i = 0; i < camera->heads.size(); ++i)
        Store(camera, &camera->heads[i], camera->session->captures[i], now);
    camera->session.reset();
    camera->status = kStatusLive;
}

}  // namespace vcam
