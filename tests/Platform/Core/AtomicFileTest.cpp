#include "AtomicFile.h"

#include <QTemporaryDir>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace pomwick;

namespace {

std::string contentOf(int fd) {
    std::string bytes(256, '\0');
    const ssize_t length = ::pread(fd, bytes.data(), bytes.size(), 0);
    bytes.resize(length > 0 ? size_t(length) : 0);
    return bytes;
}

std::string contentOf(const std::filesystem::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    const std::string bytes = contentOf(fd);
    ::close(fd);
    return bytes;
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
        EXPECT_EQ(contentOf(path), text);
        struct stat status {};
        ::stat(path.c_str(), &status);
        inodes.insert(status.st_ino);
    }
    EXPECT_EQ(inodes.size(), 2u);

    const int reader = ::open(path.c_str(), O_RDONLY);
    for (const char* text : {"five", "six"})
        ASSERT_FALSE(replaceFileThroughSpare(path, text));
    EXPECT_EQ(contentOf(reader), "4");
    ::close(reader);
    const std::filesystem::path linked = folder.filePath("linked").toStdString();
    std::filesystem::create_hard_link(path, linked);
    for (const char* text : {"seven", "eight"})
        ASSERT_FALSE(replaceFileThroughSpare(path, text));
    EXPECT_EQ(contentOf(linked), "six");
    EXPECT_EQ(contentOf(path), "eight");

    const std::filesystem::path outside = folder.filePath("outside").toStdString();
    for (const bool fifo : {true, false}) {
        std::filesystem::remove(spare);
        if (fifo)
            ASSERT_EQ(::mkfifo(spare.c_str(), 0644), 0);
        else
            std::filesystem::create_symlink(outside, spare);
        ASSERT_FALSE(replaceFileThroughSpare(path, fifo ? "nine" : "ten"));
        EXPECT_EQ(contentOf(path), fifo ? "nine" : "ten");
    }
    EXPECT_FALSE(std::filesystem::exists(outside));
}
