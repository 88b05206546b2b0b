// Mails that are made to hurt their reader: refused by one clear sentence, or read by work that grows with
// their size alone.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <functional>

#include "desk/tools/mail/html_text.h"
#include "fuzz/hostile_mails.h"
#include "tests/unit/support/mail_support.h"

namespace {

using namespace mail_tests;

/// Seconds in which the process itself has computed. What else runs on the machine does not count, nor does
/// the memory that the system has to find for a call, which on a busy machine takes it as long as it likes.
double computed() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    constexpr double microseconds = 1e-6;
    return static_cast<double>(used.ru_utime.tv_sec) +
           microseconds * static_cast<double>(used.ru_utime.tv_usec);
}

/// What a call takes of that.
double work(const std::function<void()>& call) {
    const double start = computed();
    call();
    return computed() - start;
}

/// Whether eight times the size took at most 40 times the work: 64 times is what comparing each piece with
/// each other would take, and memory beyond the caches makes it more than eight. Little work tells nothing.
bool grows_with_the_size_alone(double of_an_eighth, double of_the_whole) {
    constexpr double unmeasurable = 0.02;
    return of_the_whole < 40 * std::max(of_an_eighth, unmeasurable);
}

std::string answer_to(const std::string& mail) {
    try {
        desk::mail::read_message(mail);
    } catch (const automation::Failure& failure) {
        return failure.what();
    }
    return {};
}

constexpr std::size_t size = 2'000'000;

TEST(HostileMails, AreRefusedOrReadByWorkThatGrowsWithTheirSizeAlone) {
    for (const fuzz::HostileMail& each : fuzz::hostile_mails) {
        SCOPED_TRACE(each.name);
        const std::string eighth = each.of_size(size / 8), mail = each.of_size(size);
        std::string answer;
        const double of_an_eighth = work([&] { answer_to(eighth); });
        const double of_the_whole = work([&] { answer = answer_to(mail); });
        EXPECT_EQ(answer, each.refusal);
        EXPECT_PRED2(grows_with_the_size_alone, of_an_eighth, of_the_whole);
    }
}

TEST(HostileMails, MayHaveALongBodyAndThousandsOfPictures) {
    desk::ItemData mail;
    const double of_an_eighth =
        work([] { desk::mail::read_message(fuzz::mail_of_pictures(1'000'000, 1125)); });
    const double of_the_whole =
        work([&] { mail = desk::mail::read_message(fuzz::mail_of_pictures(8'000'000, 9000)); });
    EXPECT_EQ(mail.attachments.size(), 9000U);
    EXPECT_PRED2(grows_with_the_size_alone, of_an_eighth, of_the_whole);
}

TEST(HostileMails, MayHaveADeepPageAndEndsOfWhatWasNeverBegun) {
    constexpr std::size_t depth = desk::mail::most_nested_elements - 10;
    std::string answer;
    const double of_an_eighth = work([&] { answer = answer_to(fuzz::mail_of_ends(size / 8, depth)); });
    EXPECT_EQ(answer, "");
    const double of_the_whole = work([&] { answer = answer_to(fuzz::mail_of_ends(size, depth)); });
    EXPECT_EQ(answer, "");
    EXPECT_PRED2(grows_with_the_size_alone, of_an_eighth, of_the_whole);
}

TEST(HostileMails, AreRefusedForAHeaderThatIsLongerThanAMail) {
    std::string field = "X: 1\n";
    while (field.size() < 3'000'000) field += " one more folded line\n";
    EXPECT_EQ(refusal("From: a@b.example\n" + field + "\nHi\n"),
              "The headers of the mail are larger than 2 MB.");
}

TEST(HostileMails, HaveHarmlessNeighbours) {
    std::string addresses = "a0@b.example", groups = "g0: a@b.example;", parts;
    for (int i = 1; i < 2000; ++i) addresses += ",\n a" + std::to_string(i) + "@b.example";
    for (int i = 1; i < 200; ++i) groups += ",\n g" + std::to_string(i) + ": a@b.example;";
    for (int i = 0; i < 2000; ++i) parts += "--x\nContent-Type: image/png\n\npicture\n";
    // what looks like a field or a boundary in a text is none
    std::string lines = "To:\n", colons = " 12:30:45 a line of a log; --x\n--y\n";
    for (int i = 0; i < 2000; ++i) lines += colons;
    for (const std::string& mail :
         {"From: a@b.example\nTo: " + addresses + "\n\nHi\n", "From: a@b.example\nTo: " + groups + "\n\nHi\n",
          "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n" + parts + "--x--\n",
          "From: a@b.example\n\n" + lines,
          "From: a@b.example\nContent-Type: multipart/mixed; boundary=x\n\n--x\n\n" + lines + "\n--x--\n"}) {
        EXPECT_EQ(refusal(mail), "") << mail.substr(0, 100);
    }
}

}  // namespace
