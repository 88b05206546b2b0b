// tarnwell-mail: reads a mail file and writes it as JSON. The desk starts it under Wine, where GMime is not
// at hand.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "desk/mail/message.h"
#include "desk/tools/mail_reader.h"

namespace {

/// Writes a file that is either not there or whole: whoever waits for it never sees a part.
bool write_whole(const std::filesystem::path& file, const std::string& text) {
    std::filesystem::path part = file;
    part += ".part";
    std::ofstream stream(part, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    std::error_code error;
    if (stream) std::filesystem::rename(part, file, error);
    if (stream && !error) return true;
    std::filesystem::remove(part, error);
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Reads an RFC 5322 message file and writes it as JSON.");
    std::string file, output;
    app.add_option("FILE", file, "the message file")->required();
    app.add_option("--output", output,
                   "the file to write, made whole at once; the standard output if left out");
    CLI11_PARSE(app, count, arguments);

    std::string json;
    int code = 0;
    try {
        json = desk::mail::to_json(desk::mail::read_message_file(file));
    } catch (const std::exception& failure) {
        json = desk::mail::error_to_json(failure.what());
        code = 1;
    }
    if (output.empty()) {
        std::cout << json;
    } else if (!write_whole(output, json)) {
        std::cerr << "\"" << output << "\" can't be written.\n";
        return 2;
    }
    return code;
}
