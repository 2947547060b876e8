#include "AtomicFile.h"

#include <QTemporaryDir>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

using namespace pomwick;

namespace {

// What a stream opened at some time reads now. The stream is closed afterwards: the reader is gone.
std::string contentOf(std::ifstream in) {
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

// A file rewritten on every request takes turns between two files rather than making a new one
// each time, yet a reader that opened a version, or a second name linked to it, keeps it whole
// however often the file is replaced; a spare that is no file of ours is never written through.
TEST(AtomicFile, TheSpareIsReusedOnlyWhileNobodyElseHasIt) {
    QTemporaryDir folder;
    const std::filesystem::path path = folder.filePath("picture.png").toStdString();
    const std::filesystem::path spare = folder.filePath(".picture.png.spare").toStdString();
    std::set<ino_t> inodes;
    for (const char* text : {"first, the longest", "2", "three", "4"}) {
        ASSERT_FALSE(replaceFileThroughSpare(path, text));
        EXPECT_EQ(contentOf(std::ifstream(path)), text);
        struct stat status {};
        ::stat(path.c_str(), &status);
        inodes.insert(status.st_ino);
    }
    EXPECT_EQ(inodes.size(), 2u);

    std::ifstream reader(path);
    for (const char* text : {"five", "six"})
        ASSERT_FALSE(replaceFileThroughSpare(path, text));
    EXPECT_EQ(contentOf(std::move(reader)), "4");
    const std::filesystem::path linked = folder.filePath("linked").toStdString();
    std::filesystem::create_hard_link(path, linked);
    for (const char* text : {"seven", "eight"})
        ASSERT_FALSE(replaceFileThroughSpare(path, text));
    EXPECT_EQ(contentOf(std::ifstream(linked)), "six");
    EXPECT_EQ(contentOf(std::ifstream(path)), "eight");

    const std::filesystem::path outside = folder.filePath("outside").toStdString();
    for (const bool fifo : {true, false}) {
        std::filesystem::remove(spare);
        if (fifo)
            ASSERT_EQ(::mkfifo(spare.c_str(), 0644), 0);
        else
            std::filesystem::create_symlink(outside, spare);
        ASSERT_FALSE(replaceFileThroughSpare(path, fifo ? "nine" : "ten"));
        EXPECT_EQ(contentOf(std::ifstream(path)), fifo ? "nine" : "ten");
    }
    EXPECT_FALSE(std::filesystem::exists(outside));
}
