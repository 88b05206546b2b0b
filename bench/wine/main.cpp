// Measures the real library in the real desk: `bench_wine [--mails N]`.
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <optional>

#include "bench/wine/measures.h"
#include "tests/wine/support/client.h"

namespace {

constexpr int usual_mail_count = 200, smallest_mail_count = 24;
constexpr int wrong_call = 2;

/// The number of mails that the arguments ask for; nothing if they are not understood.
std::optional<int> mail_count(int count, char** arguments) {
    if (count == 1) return usual_mail_count;
    if (count != 3 || std::strcmp(arguments[1], "--mails") != 0) return {};
    int mails = 0;
    const char* const end = arguments[2] + std::strlen(arguments[2]);
    const auto [stop, error] = std::from_chars(arguments[2], end, mails);
    if (error != std::errc() || stop != end || mails < smallest_mail_count) return {};
    return mails;
}

}  // namespace

int main(int count, char** arguments) try {
    const std::optional<int> mails = mail_count(count, arguments);
    if (!mails) {
        std::cerr << "bench_wine [--mails N]   with N from " << smallest_mail_count << " on\n";
        return wrong_call;
    }
    wine::client();
    const bool trips_right = bench::round_trips();
    const bool times_right = bench::start_and_end();
    const bool opened_right = bench::opened_items_time();
    const bool messages_right = bench::list_messages();
    const bool lists_right = bench::filled_lists();
    const bool soak_right = bench::soak(*mails);
    const bool right =
        trips_right && times_right && opened_right && messages_right && lists_right && soak_right;
    return right ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::cout << "WRONG: " << failure.what() << std::endl;
    return EXIT_FAILURE;
}
