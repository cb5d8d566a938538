// vmc: find cameras and describe them, through libvmc.
//
//   vmc detect [--interface LINK] [--address A.B.C.D ...] [--json]
//   vmc info   [--device N] [--interface LINK] [--address A.B.C.D ...] [--json]
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "errors.h"
#include "links.h"

namespace {

constexpr int kUsageExit = 2;

std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

void AddLinkOptions(CLI::App* command, vmctool::LinkOptions* link, bool* json) {
    command->add_option("--interface", link->link, "the link to look on")
        ->check(CLI::IsMember(vmctool::LinkNames()))
        ->capture_default_str();
    command->add_option("--address", link->addresses,
                        "IPv4 address of a camera on the ether and gigev links; give it once per camera");
    command->add_flag("--json", *json, "print one JSON object instead of text");
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Finds cameras and describes them, through libvmc."};
    app.name("vmc");
    app.require_subcommand(1);

    vmctool::LinkOptions link;
    bool json = false;
    uint32_t device = 0;

    CLI::App* detect = app.add_subcommand("detect", "List the cameras found on a link.");
    AddLinkOptions(detect, &link, &json);
    CLI::App* info = app.add_subcommand("info", "Open one camera and print what the library knows about it.");
    info->add_option("--device", device, "the camera's number in the detection's list")->capture_default_str();
    AddLinkOptions(info, &link, &json);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(e);  // --help
        // A mistyped command reaches the parser as a stray word; name it rather than "subcommand required".
        const std::vector<std::string> stray = app.remaining();
        const std::string problem = !stray.empty() && !detect->parsed() && !info->parsed() && stray[0][0] != '-'
                                        ? "no command \"" + stray[0] + "\": the commands are detect and info"
                                        : OneLine(e.what());
        std::fprintf(stderr, "vmc: %s (see vmc --help)\n", problem.c_str());
        return kUsageExit;
    }

    try {
        if (detect->parsed()) return vmctool::RunDetect(link, json);
        return vmctool::RunInfo(link, device, json);
    } catch (const vmctool::Failure& failure) {
        std::fprintf(stderr, "vmc: %s\n", OneLine(failure.what()).c_str());
        return failure.exitCode;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vmc: %s\n", OneLine(e.what()).c_str());
        return 1;
    }
}
