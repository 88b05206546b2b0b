// The trace's file where nothing can be renamed to a name that is taken.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "addin/trace/log.h"
#include "tests/native/temporary_folder.h"

namespace desktop_tests {
namespace {

std::string content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(TraceOnWindows, KeepsTheOneOlderCopy) {
    const native::TemporaryFolder folder;
    const std::filesystem::path path = folder / "trace.txt";
    addin::trace::LogFile file(path.string(), 5);
    for (const char* const text : {"one", "two", "three"}) EXPECT_TRUE(file.write(text));
    EXPECT_EQ(content(path), "three");
    EXPECT_EQ(content(folder / "trace.txt.old"), "two");
    std::filesystem::remove(folder / "trace.txt.old");
    std::filesystem::create_directory(folder / "trace.txt.old");
    EXPECT_FALSE(file.write("four")) << "a folder in its place stays";
    EXPECT_EQ(content(path), "three");
}

}  // namespace
}  // namespace desktop_tests
