// tarnwell-database: writes a database of the desk from readable data files.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

#include "desk/tools/database/sample_data.h"

namespace {

void make_database(const std::filesystem::path& output, const std::filesystem::path& folder,
                   int extra_contacts) {
    const desk::sample::Data data = desk::sample::read_data(folder);
    // Made beside its place, so that a database which stands there is always whole.
    std::filesystem::path part = output;
    part += ".part";
    std::filesystem::remove(part);
    {
        const std::unique_ptr<desk::Store> store = desk::Store::open(part);
        desk::sample::write_data(data, *store);
        if (extra_contacts > 0) desk::sample::add_contacts(data, *store, extra_contacts);
    }
    std::filesystem::rename(part, output);
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Writes a database of the desk from a folder of data files.");
    std::string output, data;
    int extra_contacts = 0;
    app.add_option("OUT", output, "the database to make; must not be there yet")->required();
    app.add_option("--data", data, "the folder of the data files")->required()->check(CLI::ExistingDirectory);
    app.add_option("--extra-contacts", extra_contacts, "made-up contacts to add, for measurements")
        ->check(CLI::NonNegativeNumber);
    CLI11_PARSE(app, count, arguments);

    try {
        if (std::filesystem::exists(output)) {
            std::cerr << "\"" << output << "\" is there already.\n";
            return 1;
        }
        make_database(output, data, extra_contacts);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
}
