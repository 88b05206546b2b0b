#include "family/new_id.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>

#include "tests/unit/support/family_fakes.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using namespace family_test;

TEST(NewId, IsUpperCaseHexadecimalText) {
    FakeContext around;
    const Text id = family::new_id(around);
    EXPECT_EQ(id.size(), 48u);
    EXPECT_EQ(id.find_first_not_of(u"0123456789ABCDEF"), Text::npos) << readable(id);
}

TEST(NewId, IsNeverGivenTwice) {
    constexpr std::size_t many = 100'000;
    FakeContext around;
    std::unordered_set<Text> ids;
    for (std::size_t i = 0; i < many; ++i) ids.insert(family::new_id(around));
    EXPECT_EQ(ids.size(), many);
}

TEST(NewId, DiffersAtTheSameMomentByItsRandomBits) {
    FakeContext around;
    std::unordered_set<Text> random_parts;
    for (int i = 0; i < 10'000; ++i) random_parts.insert(family::new_id(around).substr(16));
    EXPECT_EQ(random_parts.size(), 10'000u);
}

/// A machine whose random source always gives the same bytes.
struct Stuck : FakeContext {
    void random_bytes(std::span<std::uint8_t> bytes) override {
        std::ranges::fill(bytes, std::uint8_t{0xA5});
    }
};

TEST(NewId, TakesAllItsRandomBitsFromItsContext) {
    Stuck around;
    EXPECT_EQ(readable(family::new_id(around).substr(16)), "A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5");
}

TEST(NewId, TellsItsTime) {
    Stuck around;
    const Text first = family::new_id(around), second = family::new_id(around);
    EXPECT_LE(first, second);
}

#ifndef _WIN32
TEST(NewId, IsNeverGivenByTwoProcesses) {
    constexpr int processes = 4, each = 2'000;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    FakeContext around;
    family::new_id(around);  // what the children inherit has been in use
    std::array<pid_t, processes> children{};
    for (pid_t& child : children) {
        child = fork();
        ASSERT_GE(child, 0);
        if (child > 0) continue;
        std::string lines;
        for (int i = 0; i < each; ++i) lines += automation::to_utf8(family::new_id(around)) + "\n";
        for (std::size_t done = 0; done < lines.size();) {
            const ssize_t written =
                write(ends[1], lines.data() + done, std::min<std::size_t>(lines.size() - done, 49 * 80));
            if (written <= 0) _exit(1);
            done += static_cast<std::size_t>(written);
        }
        _exit(0);
    }
    close(ends[1]);
    std::string all;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;) {
        all.append(buffer.data(), static_cast<std::size_t>(got));
    }
    close(ends[0]);
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    std::unordered_set<std::string> ids;
    for (std::size_t at = 0; at < all.size(); at += 49) ids.insert(all.substr(at, 48));
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(processes * each));
}
#endif

}  // namespace
