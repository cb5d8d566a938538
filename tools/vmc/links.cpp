#include "links.h"

#include <vmc/module_files.h>
#include <vmc/vmc.h>

#include <cstdio>

namespace vmctool {
namespace {

struct Link {
    const char* name;
    uint32_t code;
};

constexpr Link kLinks[] = {
    {"virtual", VMC_INTERFACE_VIRTUAL}, {"ether", VMC_INTERFACE_ETHER}, {"gigev", VMC_INTERFACE_GIGEV},
    {"usb", VMC_INTERFACE_USB},         {"optical", VMC_INTERFACE_OPTICAL}, {"1394", VMC_INTERFACE_1394},
    {"pci", VMC_INTERFACE_PCI},         {"dvr", VMC_INTERFACE_DVR},
};

}  // namespace

std::vector<std::string> LinkNames() {
    std::vector<std::string> names;
    for (const Link& link : kLinks) names.push_back(link.name);
    return names;
}

uint32_t LinkCode(const std::string& name) {
    for (const Link& link : kLinks)
        if (name == link.name) return link.code;
    return 0;
}

std::string LinkName(uint32_t interfaceCode) {
    for (const Link& link : kLinks)
        if (link.code == interfaceCode) return link.name;
    return "interface " + std::to_string(interfaceCode);
}

bool IsAddressed(uint32_t interfaceCode) {
    return interfaceCode == VMC_INTERFACE_ETHER || interfaceCode == VMC_INTERFACE_GIGEV;
}

std::string InterfaceModuleText(uint32_t interfaceCode) {
    const char* file = vmc_interface_module_file(interfaceCode);
    const std::string link = LinkName(interfaceCode);
    if (!file) return "interface module for " + link + " (no module file has that code)";
    return "interface module " + std::string(file) + " of the " + link + " link";
}

std::string DeviceModuleText(uint32_t deviceCode) {
    const char* file = vmc_device_module_file(deviceCode);
    const std::string code = std::to_string(deviceCode);
    if (!file) return "device module for code " + code + " (no module file has that code)";
    return "device module " + std::string(file) + " for code " + code;
}

bool ParseIPv4(const std::string& text, uint32_t* word) {
    unsigned a, b, c, d;
    char rest;
    if (std::sscanf(text.c_str(), "%3u.%3u.%3u.%3u%c", &a, &b, &c, &d, &rest) != 4) return false;
    if (a > 255 || b > 255 || c > 255 || d > 255) return false;
    *word = a << 24 | b << 16 | c << 8 | d;
    return true;
}

std::string FormatIPv4(uint32_t word) {
    return std::to_string(word >> 24) + "." + std::to_string(word >> 16 & 0xFF) + "." +
           std::to_string(word >> 8 & 0xFF) + "." + std::to_string(word & 0xFF);
}

}  // namespace vmctool
