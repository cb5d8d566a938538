// vmc detect: one line per camera found on a link.
#include <cstdio>

#include <nlohmann/json.hpp>

#include "commands.h"
#include "links.h"

namespace vmctool {

int RunDetect(const LinkOptions& link, bool json) {
    const Detection detection = Detect(link);
    const DetectInfo& found = detection.found;
    const bool addressed = IsAddressed(detection.interfaceCode);

    if (json) {
        nlohmann::json cameras = nlohmann::json::array();
        for (uint32_t i = 0; i < found.count; ++i) {
            const OpenParam& entry = found.entries[i];
            nlohmann::json camera = {{"index", i},
                                     {"deviceCode", entry.deviceCode},
                                     {"deviceId", entry.deviceId},
                                     {"interface", LinkName(entry.interfaceCode)}};
            if (addressed) camera["address"] = FormatIPv4(entry.deviceId);
            cameras.push_back(camera);
        }
        const nlohmann::json result = {{"interface", link.link}, {"cameras", cameras}};
        std::printf("%s\n", result.dump(2).c_str());
        return 0;
    }

    if (found.count == 0) {
        std::printf("no camera found on the %s link\n", link.link.c_str());
        return 0;
    }
    for (uint32_t i = 0; i < found.count; ++i) {
        const OpenParam& entry = found.entries[i];
        // On the addressed links the id is the camera's IPv4 address.
        const std::string id = addressed ? "address " + FormatIPv4(entry.deviceId) : "id " + std::to_string(entry.deviceId);
        std::printf("%u  code %u  %s  %s\n", i, entry.deviceCode, id.c_str(), LinkName(entry.interfaceCode).c_str());
    }
    return 0;
}

}  // namespace vmctool
