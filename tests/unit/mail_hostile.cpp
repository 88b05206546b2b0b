// Mails that are made to hurt their reader: refused by one clear sentence, or read in time that grows with
// their size alone.
#include <gtest/gtest.h>

#include <ctime>

#include "fuzz/hostile_mails.h"
#include "mail_support.h"

namespace {

using namespace mail_tests;

/// Seconds that this process has worked; what else runs on the machine does not count.
double work() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

constexpr double longest_work = 5;  // seconds, of an unhurried machine and a build with all checks
constexpr std::size_t size = 2'000'000;

TEST(HostileMails, AreRefusedOrReadInTime) {
    for (const fuzz::HostileMail& each : fuzz::hostile_mails) {
        SCOPED_TRACE(each.name);
        const std::string mail = each.of_size(size);
        std::string refusal;
        const double start = work();
        try {
            desk::mail::read_message(mail);
        } catch (const host::Failure& failure) {
            refusal = failure.what();
        }
        EXPECT_LT(work() - start, longest_work);
        EXPECT_EQ(refusal, each.refusal);
    }
}

TEST(HostileMails, MayHaveALongBodyAndThousandsOfPictures) {
    const double start = work();
    const desk::ItemData mail = desk::mail::read_message(fuzz::mail_of_pictures(8'000'000, 9000));
    EXPECT_LT(work() - start, longest_work);
    EXPECT_EQ(mail.attachments.size(), 9000U);
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
