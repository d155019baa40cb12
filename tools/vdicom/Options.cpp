#include "Options.h"

#include "Message.h"
#include "Output.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace program {

namespace {

/// CLI11's layout with our own usage line.
class HelpFormatter final : public CLI::Formatter {
public:
    explicit HelpFormatter(std::string usage) : m_usage(std::move(usage)) {}
    std::string make_usage(const CLI::App*, std::string name) const override {
        return "Usage: " + name + " " + m_usage + "\n";
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_type_size() == 0 || option->get_type_name().empty() ? std::string()
                                                                               : " " + option->get_type_name();
    }
    std::string make_footer(const CLI::App* app) const override { return app->get_footer() + "\n"; }

private:
    std::string m_usage;
};

constexpr const char* kExitStatus = "  0  all done\n"
                                    "  1  some input failed; the rest was done\n";

} // namespace

struct Options::Parser {
    CLI::App app;
    std::string command;
    CLI::Option* arguments = nullptr;
};

Options::Options(const char* command, const char* usage, const char* description, const char* footer,
                 const char* exitStatus)
    : m_parser(std::make_unique<Parser>()) {
    CLI::App& app = m_parser->app;
    m_parser->command = command;
    app.name(std::string("vdicom ") + command);
    app.description(description);
    app.footer(std::string(footer) + "\nExit status:\n" + (exitStatus == nullptr ? kExitStatus : exitStatus) +
               "  2  wrong usage; nothing was done");
    app.allow_windows_style_options(false);
    app.set_help_flag("-h,--help", "show this help and end");
    app.formatter(std::make_shared<HelpFormatter>(usage));
    app.get_formatter()->column_width(26);
}

Options::~Options() = default;

void Options::Flag(const char* names, bool& value, const char* help) { m_parser->app.add_flag(names, value, help); }

void Options::Text(const char* names, std::string& value, const char* placeholder, const char* help) {
    m_parser->app.add_option(names, value, help)->type_name(placeholder);
}

void Options::Texts(const char* names, std::vector<std::string>& values, const char* placeholder, const char* help) {
    m_parser->app.add_option(names, values, help)->type_name(placeholder)->allow_extra_args(false);
}

void Options::Number(const char* names, std::uint64_t& value, const char* placeholder, const char* help) {
    m_parser->app.add_option(names, value, help)
        ->check([](const std::string& given) {
            // Else a negative number would be taken for a very large one.
            const bool digits = !given.empty() && given.find_first_not_of("0123456789") == std::string::npos;
            return digits ? std::string() : given + " is no number";
        })
        ->type_name(placeholder);
}

void Options::Choice(const char* names, std::string& value, const std::vector<std::string>& choices, const char* help) {
    std::string placeholder;
    for (const std::string& choice : choices)
        placeholder += (placeholder.empty() ? "" : "|") + choice;
    m_parser->app.add_option(names, value, help)
        ->check([choices, placeholder](const std::string& given) {
            const bool known = std::find(choices.begin(), choices.end(), given) != choices.end();
            return known ? std::string() : given + " is none of " + placeholder;
        })
        ->type_name(placeholder);
}

void Options::Argument(const char* name, std::string& value, const char* help) {
    m_parser->app.add_option(name, value, help)->required()->type_name("");
}

void Options::Arguments(const char* name, std::vector<std::string>& values, std::size_t atLeast, const char* help) {
    m_parser->arguments = m_parser->app.add_option(name, values, help)->type_name("");
    if (atLeast > 0)
        m_parser->arguments->required()->expected(static_cast<int>(atLeast), CLI::detail::expected_max_vector_size);
}

std::optional<int> Options::Parse(int count, const char* const* arguments) {
    std::vector<std::string> reversed;
    for (int i = count - 1; i >= 1; --i) {
        reversed.emplace_back(arguments[i]);
        // A file name like "[1]" would be taken for a list.
        std::string& text = reversed.back();
        if (text.size() > 1 && text.front() == '[' && text.back() == ']')
            text.insert(0, "./");
    }
    try {
        m_parser->app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        Output out(DICOM_STDOUT);
        out.Put(m_parser->app.help());
        return out.Flush() ? kDone : ReportOutputFailure(out);
    } catch (const CLI::Error& error) {
        return Wrong(error.what());
    }
    return std::nullopt;
}

bool Options::Given(const char* name) const { return m_parser->app.count(name) > 0; }

std::vector<Options::Occurrence> Options::InOrder() const {
    std::vector<Occurrence> found;
    std::map<const CLI::Option*, std::size_t> seen;
    for (const CLI::Option* option : m_parser->app.parse_order()) {
        if (option->get_positional())
            continue;
        const std::size_t number = seen[option]++;
        if (number < option->results().size())
            found.push_back({option->get_name(), option->results()[number]});
    }
    return found;
}

int Options::Wrong(const std::string& sentence) const {
    Say(sentence);
    SayPlain("Try 'vdicom " + m_parser->command + " --help'.");
    return kWrongUsage;
}

} // namespace program
