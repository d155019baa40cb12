/// @file main.cpp
/// The program: finds the subcommand and leaves the rest to it.

#include "Commands.h"
#include "Message.h"
#include "Options.h"
#include "Output.h"

#include <fmt/format.h>

#include <exception>
#include <string>

namespace program {

#ifndef VDICOM_HAS_ARCHIVE
int RunServe(int, const char* const*) {
    Say("this build has no archive: the system that it is for has no SQLite to build it with");
    return kWrongUsage;
}
#endif

namespace {

struct Command {
    std::string_view name;
    const char* prefix;
    std::string_view summary;
    int (*run)(int, const char* const*);
};

constexpr Command kCommands[] = {
    {"dump", "vdicom dump", "show data sets as lines or JSON", RunDump},
    {"convert", "vdicom convert", "write files in another transfer syntax", RunConvert},
    {"edit", "vdicom edit", "set and delete elements", RunEdit},
    {"new", "vdicom new", "make an object of a class", RunNew},
    {"check", "vdicom check", "tell where files break the standard's rules", RunCheck},
    {"dict", "vdicom dict", "look attributes, value representations and UIDs up", RunDict},
    {"echo", "vdicom echo", "ask a peer whether it answers", RunEcho},
    {"store", "vdicom store", "send files to a peer", RunStore},
    {"find", "vdicom find", "ask a peer what it has", RunFind},
    {"get", "vdicom get", "fetch objects of a peer", RunGet},
    {"move", "vdicom move", "have a peer send objects elsewhere, or here", RunMove},
    {"serve", "vdicom serve", "be an archive that stores, finds and gives back", RunServe},
};

int ShowHelp() {
    Output out(DICOM_STDOUT);
    out.Put("vdicom - DICOM files and data sets\n"
            "Usage: vdicom COMMAND [OPTIONS] ...\n\n"
            "Commands:\n");
    for (const Command& command : kCommands) {
        out.Put("  ");
        out.Put(command.name);
        out.Repeat(' ', 10 - command.name.size());
        out.Put(command.summary);
        out.Put('\n');
    }
    out.Put("\nOptions:\n"
            "  -h, --help     show this help and end\n"
            "      --version  show the version and end\n\n"
            "'vdicom COMMAND --help' says what a command takes.\n\n"
            "Examples:\n"
            "  vdicom dump image.dcm\n"
            "  vdicom dump --json image.dcm\n"
            "  vdicom convert --to explicit image.dcm copy.dcm\n"
            "  vdicom edit image.dcm copy.dcm --set PatientName=Doe^Jane\n"
            "  vdicom new --class 'CT Image Storage' object.dcm --set PatientName=Doe^Jane\n"
            "  vdicom check image.dcm\n"
            "  vdicom dict tag pixel\n\n"
            "Exit status:\n"
            "  0  all done\n"
            "  1  some input failed; the rest was done\n"
            "  2  wrong usage; nothing was done\n");
    return out.Flush() ? kDone : ReportOutputFailure(out);
}

int ShowVersion() {
    Output out(DICOM_STDOUT);
    out.Put("vdicom " VDICOM_VERSION "\n");
    return out.Flush() ? kDone : ReportOutputFailure(out);
}

int Wrong(const std::string& sentence) {
    Say(sentence);
    SayPlain("Try 'vdicom --help'.");
    return kWrongUsage;
}

int Run(int count, const char* const* arguments) {
    if (count < 2)
        return Wrong("a command is missing");
    const std::string_view name = arguments[1];
    if (name == "--version" || (count == 3 && std::string_view(arguments[2]) == "--version"))
        return ShowVersion();
    for (const Command& command : kCommands) {
        if (command.name != name)
            continue;
        SetMessagePrefix(command.prefix);
        return command.run(count - 1, arguments + 1);
    }
    if (name == "-h" || name == "--help")
        return ShowHelp();
    if (name == "help") {
        if (count == 2)
            return ShowHelp();
        const char* const help[] = {arguments[0], arguments[2], "--help", nullptr};
        return Run(3, help);
    }
    return Wrong(fmt::format("'{}' is no command", name));
}

} // namespace

} // namespace program

int main(int argc, char** argv) {
    try {
        VDicomConsole::Prepare();
        int count = argc;
        const char* const* arguments = VDicomConsole::GetArguments(argc, argv, &count);
        return program::Run(count, arguments);
    } catch (const std::exception& error) { // no memory, for instance
        program::Say(error.what());
        return program::kInputFailed;
    }
}
