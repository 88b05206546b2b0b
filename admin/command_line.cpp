#include "admin/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "admin/check.h"
#include "admin/database.h"
#include "admin/probe/probe.h"
#include "admin/report.h"

namespace admin {
namespace {

constexpr const char* about =
    "Looks after the Tarnwell Create Note add-in.\n"
    "Ends with 0 if all is well, 1 if something is not, 2 for a wrong call, 3 if it can't be done.";

/// One command: what it is called with, and what it does.
struct Command {
    CLI::App* call;
    std::function<int()> work;  ///< answers how the program ends
};

/// A path of the host's, as it was typed.
Text typed(const std::string& text) { return automation::from_utf8(text); }

class Program {
  public:
    Program(Machine& machine, std::ostream& output, std::ostream& errors)
        : machine_(machine), output_(output), errors_(errors) {
        app_.require_subcommand(1);
        add_database();
        add("check", "Tells whether host, add-in, family and database are as they have to be",
            [this] { return tell(check(machine_)); });
        add_probe();
    }

    int run(std::vector<std::string> arguments) {
        if (!arguments.empty() && !arguments.front().starts_with('-') &&
            std::ranges::none_of(commands_,
                                 [&](const Command& c) { return c.call->get_name() == arguments.front(); })) {
            errors_ << "TarnwellAdmin: there is no command \"" << arguments.front()
                    << "\"; --help tells more.\n";
            return exit_code::wrong_call;
        }
        std::ranges::reverse(arguments);  // as the library takes them
        try {
            app_.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            output_ << asked().help();
            return exit_code::well;
        } catch (const CLI::ParseError& failure) {
            errors_ << "TarnwellAdmin: " << sentence(typed(failure.what())) << "; --help tells more.\n";
            return exit_code::wrong_call;
        }
        const auto chosen =
            std::ranges::find_if(commands_, [](const Command& c) { return c.call->parsed(); });
        try {
            return chosen->work();
        } catch (const Refusal& refusal) {
            errors_ << "TarnwellAdmin: " << refusal.what() << "\n";
            return exit_code::impossible;
        }
    }

  private:
    /// The command that was named, or the program as a whole.
    const CLI::App& asked() const {
        const std::vector<CLI::App*> named = app_.get_subcommands();
        return named.empty() ? app_ : *named.front();
    }

    CLI::App& add(const std::string& name, const std::string& what_it_does, std::function<int()> work) {
        CLI::App* const call = app_.add_subcommand(name, what_it_does);
        call->add_flag("--json", json_, "for programs: JSON instead of lines");
        commands_.push_back({call, std::move(work)});
        return *call;
    }

    int tell(const Report& report) {
        (json_ ? print_json : print_text)(report, output_);
        return report.code();
    }

    void add_probe() {
        CLI::App& call =
            add("probe", "Asks the host what the add-in relies on, in a folder of its own", [this] {
                if (list_) {
                    output_ << question_page();
                    return exit_code::well;
                }
                (json_ ? errors_ : output_) << probe_announcement << std::endl;
                return tell(probe(machine_));
            });
        call.add_flag("--list", list_, "only print the questions, as a page");
    }

    void add_database() {
        CLI::App& call =
            add("database", "Makes what a database lacks, and tells each thing that it made", [this] {
                DatabaseRequest request{.root_path = typed(folder_), .only_check = only_check_};
                if (!ini_folder_.empty()) request.ini_folder = typed(ini_folder_);
                return tell(look_after_database(request, machine_));
            });
        call.add_option("STORE\\FOLDER", folder_, "the folder that holds the database; it may be missing")
            ->required();
        call.add_flag("--check", only_check_, "only tell what is missing or of the wrong kind");
        call.add_option("--ini", ini_folder_, "the folder of twsystemfolder.ini, if not the main add-in's");
    }

    Machine& machine_;
    std::ostream& output_;
    std::ostream& errors_;
    CLI::App app_{about, "TarnwellAdmin"};
    std::vector<Command> commands_;
    bool json_ = false;
    std::string folder_, ini_folder_;
    bool only_check_ = false, list_ = false;
};

}  // namespace

int run(std::vector<std::string> arguments, Machine& machine, std::ostream& output, std::ostream& errors) {
    return Program(machine, output, errors).run(std::move(arguments));
}

}  // namespace admin
