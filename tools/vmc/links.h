// The links a camera is reached over, by the names the tool uses, and the
// module file behind each interface and device code.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vmctool {

// "virtual", "ether", ... in the order the tool lists them.
std::vector<std::string> LinkNames();
uint32_t LinkCode(const std::string& name);      // 0 for an unknown name
std::string LinkName(uint32_t interfaceCode);    // "interface N" for an unknown code
// Links whose detection is addressed: the cameras' ids are IPv4 words.
bool IsAddressed(uint32_t interfaceCode);

// "the interface module IMOD_PCI of the pci link", "the device module DMOD258 for code 258".
std::string InterfaceModuleText(uint32_t interfaceCode);
std::string DeviceModuleText(uint32_t deviceCode);

// An IPv4 address as the library's address word: 192.168.0.10 is 0xC0A8000A.
bool ParseIPv4(const std::string& text, uint32_t* word);
std::string FormatIPv4(uint32_t word);

}  // namespace vmctool
