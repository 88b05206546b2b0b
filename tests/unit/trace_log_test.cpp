// The file of a trace: appended to, kept small, and given up where it can't be written.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "addin/trace/log.h"
#include "tests/native/temporary_folder.h"

namespace addin_tests {
namespace {

using addin::trace::LogFile;

std::string content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(TraceFile, IsAppendedToByEachWhoWrites) {
    const native::TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / u"tr\u00E4ce.txt";
    LogFile one(path.string()), other(path.string());
    EXPECT_TRUE(one.write("one\n"));
    EXPECT_TRUE(other.write("two\n"));
    EXPECT_TRUE(one.write("three\n"));
    EXPECT_EQ(content(path), "one\ntwo\nthree\n");
}

TEST(TraceFile, ThatIsFullIsKeptAsTheOneOlderCopy) {
    const native::TemporaryFolder folder;
    const std::filesystem::path path = folder / "trace.txt";
    LogFile file(path.string(), 10);
    for (const char* const text : {"12345", "67890", "abcde", "fghij", "k"}) EXPECT_TRUE(file.write(text));
    EXPECT_EQ(content(path), "k");
    EXPECT_EQ(content(folder / "trace.txt.old"), "abcdefghij");
    EXPECT_TRUE(file.write("longer than a whole file may be"));
    EXPECT_EQ(content(path), "longer than a whole file may be") << "a story is not cut in two";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
    EXPECT_EQ(LogFile::usual_size, 10U * 1024 * 1024);
}

TEST(TraceFile, ThatCannotBeWrittenSaysSo) {
    const native::TemporaryFolder folder;
    std::filesystem::create_directories(folder / "in the way");
    std::ofstream(folder / "a file") << "x";
    std::filesystem::create_directories(folder / "full.old" / "not empty");
    std::ofstream(folder / "full") << "x";
    struct Case {
        const char* name;
        std::filesystem::path path;
    };
    const Case cases[] = {{"a folder in the way", folder / "in the way"},
                          {"no such folder", folder / "nowhere" / "trace.txt"},
                          {"a file where a folder should be", folder / "a file" / "trace.txt"},
                          {"a full disk", "/dev/full"},
                          {"no place for the older copy", folder / "full"},
                          {"no name", ""}};
    for (const Case& one : cases) EXPECT_FALSE(LogFile(one.path.string(), 1).write("story")) << one.name;
    EXPECT_EQ(content(folder / "a file"), "x");
}

}  // namespace
}  // namespace addin_tests
