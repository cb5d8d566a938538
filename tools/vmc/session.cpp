#include "session.h"

#include "errors.h"
#include "links.h"

namespace vmctool {
namespace {

constexpr int kUsageExit = 2;

void Init() {
    uint32_t error = 0;
    if (!VMC_Init(&error) && error != VMC_ERR_ALREADY_INITIALISED)
        throw Failure("initialising the library failed: " + ExplainError(error));
}

std::vector<uint32_t> AddressWords(const LinkOptions& options, uint32_t interfaceCode) {
    if (!IsAddressed(interfaceCode)) {
        if (!options.addresses.empty())
            throw Failure("--address is only for the ether and gigev links, not " + options.link, kUsageExit);
        return {};
    }
    if (options.addresses.empty())
        throw Failure("the " + options.link + " link needs the cameras' addresses: give --address A.B.C.D",
                      kUsageExit);
    std::vector<uint32_t> words;
    for (const std::string& text : options.addresses) {
        uint32_t word = 0;
        if (!ParseIPv4(text, &word)) throw Failure("--address " + text + " is not an IPv4 address", kUsageExit);
        words.push_back(word);
    }
    return words;
}

}  // namespace

Detection Detect(const LinkOptions& options) {
    Detection detection;
    detection.interfaceCode = LinkCode(options.link);
    std::vector<uint32_t> addresses = AddressWords(options, detection.interfaceCode);
    Init();
    uint32_t error = 0;
    if (!VMC_DetectDevice(detection.interfaceCode, addresses.empty() ? nullptr : addresses.data(),
                          static_cast<uint32_t>(addresses.size()), 0, &detection.found, &error))
        throw Failure("detecting on the " + options.link + " link failed: " +
                      ExplainError(error, InterfaceModuleText(detection.interfaceCode)));
    return detection;
}

OpenCamera::OpenCamera(const Detection& detection, uint32_t index) {
    const uint32_t count = detection.found.count;
    const std::string link = LinkName(detection.interfaceCode);
    if (index >= count) {
        const std::string found = count == 0   ? "no camera"
                                  : count == 1 ? "one camera, number 0"
                                               : std::to_string(count) + " cameras, numbers 0 to " +
                                                     std::to_string(count - 1);
        throw Failure("there is no camera " + std::to_string(index) + ": the " + link + " link has " + found);
    }
    OpenParam entry = detection.found.entries[index];
    uint32_t error = 0;
    if (VMC_OpenDevice(&entry, &deviceNo_, &error)) return;
    const std::string what = "opening camera " + std::to_string(index) + " failed: ";
    // A failed state load is undone by a close, and the caller sees the close's error word.
    if (error == VMC_ERR_OK)
        throw Failure(what + "the camera did not answer what the library reads at open, and was closed again; "
                             "the library gives no error number for this");
    throw Failure(what + ExplainError(error, DeviceModuleText(entry.deviceCode)));
}

OpenCamera::~OpenCamera() {
    uint32_t error = 0;
    VMC_CloseDevice(deviceNo_, &error);  // nothing to do about a failed close at the end of a command
}

}  // namespace vmctool
