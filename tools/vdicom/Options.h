/// @file Options.h
/// The command line of one subcommand: what it takes, its --help, and the message when it is used wrongly.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace program {

/// Exit status of every subcommand.
enum ExitStatus : int { kDone = 0, kInputFailed = 1, kWrongUsage = 2 };

class Options {
public:
    struct Occurrence {
        std::string name; ///< "--set"
        std::string value;
    };

    /// @param command "dump" @param usage what stands behind the program and the command in the usage line
    /// @param footer examples, shown below the options; the exit status is added
    /// @param exitStatus lines on what 0 and 1 mean where that differs from other commands
    Options(const char* command, const char* usage, const char* description, const char* footer,
            const char* exitStatus = nullptr);
    ~Options();
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void Flag(const char* names, bool& value, const char* help);
    void Text(const char* names, std::string& value, const char* placeholder, const char* help);
    /// An option that may be given several times, with one value each time.
    void Texts(const char* names, std::vector<std::string>& values, const char* placeholder, const char* help);
    void Number(const char* names, std::uint64_t& value, const char* placeholder, const char* help);
    void Choice(const char* names, std::string& value, const std::vector<std::string>& choices, const char* help);
    /// An argument that is no option and must be there; they come in this order, before those of Arguments.
    void Argument(const char* name, std::string& value, const char* help);
    /// The arguments that are no options.
    void Arguments(const char* name, std::vector<std::string>& values, std::size_t atLeast, const char* help);

    /// @param arguments the name of the subcommand, then what stands behind it
    /// @return the exit status when the program is to end here (help shown, wrong usage), else nothing
    std::optional<int> Parse(int count, const char* const* arguments);

    /// Whether an option was given.
    bool Given(const char* name) const;
    /// All values of the options of this subcommand that take one, in the order of the command line.
    std::vector<Occurrence> InOrder() const;

    /// Says what is wrong with the usage and where the help is. @return kWrongUsage
    int Wrong(const std::string& sentence) const;

private:
    struct Parser;
    std::unique_ptr<Parser> m_parser;
};

} // namespace program
