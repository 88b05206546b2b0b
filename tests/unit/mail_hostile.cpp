// Mails that are made to hurt their reader: refused by one clear sentence, or read by work that grows with
// their size alone.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>

#include "fuzz/hostile_mails.h"
#include "mail_support.h"

namespace {

using namespace mail_tests;

/// Seconds of the processor that a call takes; what else runs on the machine does not count.
double work(const std::function<void()>& call) {
    const std::clock_t start = std::clock();
    call();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Whether four times the size took at most eight times the work: sixteen times is what comparing each piece
/// with each other would take. Less than `unmeasurable` seconds tell nothing.
bool grows_with_the_size_alone(double of_a_quarter, double of_the_whole) {
    constexpr double unmeasurable = 0.3;
    return of_the_whole < 8 * of_a_quarter || of_the_whole < unmeasurable;
}

constexpr std::size_t size = 2'000'000;

TEST(HostileMails, AreRefusedOrReadByWorkThatGrowsWithTheirSizeAlone) {
    for (const fuzz::HostileMail& each : fuzz::hostile_mails) {
        SCOPED_TRACE(each.name);
        const std::string quarter = each.of_size(size / 4), mail = each.of_size(size);
        std::string answer;
        const double of_a_quarter = work([&] { refusal(quarter); });
        const double of_the_whole = work([&] { answer = refusal(mail); });
        EXPECT_EQ(answer, each.refusal);
        EXPECT_PRED2(grows_with_the_size_alone, of_a_quarter, of_the_whole);
    }
}

TEST(HostileMails, MayHaveALongBodyAndThousandsOfPictures) {
    desk::ItemData mail;
    const double of_a_quarter =
        work([] { desk::mail::read_message(fuzz::mail_of_pictures(2'000'000, 2250)); });
    const double of_the_whole =
        work([&] { mail = desk::mail::read_message(fuzz::mail_of_pictures(8'000'000, 9000)); });
    EXPECT_EQ(mail.attachments.size(), 9000U);
    EXPECT_PRED2(grows_with_the_size_alone, of_a_quarter, of_the_whole);
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
