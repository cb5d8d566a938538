// vmc: find cameras, describe them and watch their settings, through libvmc.
//
//   vmc detect [--interface LINK] [--address A.B.C.D ...] [--json]
//   vmc info   [--device N] [--interface LINK] [--address A.B.C.D ...] [--json]
//   vmc status [--device N] [--watch [--interval MS] [--count K]]
//              [--interface LINK] [--address A.B.C.D ...] [--json]
//
// info prints the library's whole model of a camera and its heads: settings,
// ranges, and what each can and cannot do. status has the library ask the
// camera again for what may have changed at the camera itself (its keypad,
// its panel) and prints what changed, once or, with --watch, poll by poll.
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

void AddLinkOptions(CLI::App* command, vmctool::LinkOptions* link, bool* json,
                    const char* jsonHelp = "print one JSON object instead of text") {
    command->add_option("--interface", link->link, "the link to look on")
        ->check(CLI::IsMember(vmctool::LinkNames()))
        ->capture_default_str();
    command->add_option("--address", link->addresses,
                        "IPv4 address of a camera on the ether and gigev links; give it once per camera");
    command->add_flag("--json", *json, jsonHelp);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"Finds cameras, describes them and watches their settings, through libvmc."};
    app.name("vmc");
    app.require_subcommand(1);

    vmctool::LinkOptions link;
    bool json = false;
    uint32_t device = 0;

    CLI::App* detect = app.add_subcommand("detect", "List the cameras found on a link.");
    AddLinkOptions(detect, &link, &json);
    CLI::App* info = app.add_subcommand(
        "info", "Open one camera and print what the library knows of it and its heads: settings, ranges, and "
                "what each can and cannot do.");
    info->add_option("--device", device, "the camera's number in the detection's list")->capture_default_str();
    AddLinkOptions(info, &link, &json);

    vmctool::StatusOptions status;
    CLI::App* statusCommand = app.add_subcommand(
        "status", "Open one camera, ask it again for every setting that may have changed at the camera, and "
                  "print what changed.");
    statusCommand->add_option("--device", device, "the camera's number in the detection's list")
        ->capture_default_str();
    CLI::Option* watch = statusCommand->add_flag(
        "--watch", status.watch, "poll again every interval, until interrupted (Ctrl-C) or --count polls are done");
    statusCommand->add_option("--interval", status.intervalMs, "milliseconds from one poll to the next")
        ->check(CLI::Range(1u, 86400000u))
        ->needs(watch)
        ->capture_default_str();
    statusCommand->add_option("--count", status.count, "stop after this many polls")
        ->check(CLI::PositiveNumber)
        ->needs(watch);
    AddLinkOptions(statusCommand, &link, &json, "print a JSON object a poll instead of text, one a line with --watch");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(e);  // --help
        // A mistyped command reaches the parser as a stray word; name it rather than "subcommand required".
        const std::vector<std::string> stray = app.remaining();
        const bool inCommand = detect->parsed() || info->parsed() || statusCommand->parsed();
        const std::string problem = !stray.empty() && !inCommand && stray[0][0] != '-'
                                        ? "no command \"" + stray[0] + "\": the commands are detect, info and status"
                                        : OneLine(e.what());
        std::fprintf(stderr, "vmc: %s (see vmc --help)\n", problem.c_str());
        return kUsageExit;
    }

    try {
        if (detect->parsed()) return vmctool::RunDetect(link, json);
        if (info->parsed()) return vmctool::RunInfo(link, device, json);
        status.json = json;
        return vmctool::RunStatus(link, device, status);
    } catch (const vmctool::Failure& failure) {
        std::fprintf(stderr, "vmc: %s\n", OneLine(failure.what()).c_str());
        return failure.exitCode;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vmc: %s\n", OneLine(e.what()).c_str());
        return 1;
    }
}
