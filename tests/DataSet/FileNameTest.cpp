// File names of texts that somebody else chose.
#include "TestFolder.h"
#include "VDicomFile.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::string NameOf(std::string_view text) {
    char name[256];
    const VDicomULong needed =
        VDicomFile::MakeFileName(text.data(), static_cast<VDicomULong>(text.size()), name, sizeof name);
    return needed == 0 ? "" : name;
}

TEST(FileName, OfHostileTexts) {
    const struct {
        std::string_view text, name;
    } cases[] = {
        {"1.2.840.10008.1.1", "1.2.840.10008.1.1"},
        {"STORE_SCP-2", "STORE_SCP-2"},
        {"..", "%2E%2E"},
        {".", "%2E"},
        {".hidden", "%2Ehidden"},
        {"a.", "a%2E"},
        {"../../etc/passwd", "%2E.%2F..%2Fetc%2Fpasswd"},
        {"..\\x", "%2E.%5Cx"},
        {"C:file", "C%3Afile"},
        {"a b", "a%20b"},
        {"-rf", "%2Drf"},
        {"%2F", "%252F"},
        {std::string_view("a\0b\x1B[2J\n", 8), "a%00b%1B%5B2J%0A"},
        {"M\xC3\xBCller", "M%C3%BCller"},
        {"NUL", "%4EUL"},
        {"con.txt", "%63on.txt"},
        {"Lpt1", "%4Cpt1"},
        {"COM10", "COM10"},
        {"CONSOLE", "CONSOLE"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(NameOf(c.text), c.name) << c.text;
}

TEST(FileName, OfEveryByteIsAnotherOneAndStaysInItsFolder) {
    const TestFolder folder;
    std::set<std::string> names;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string name = NameOf(std::string(1, static_cast<char>(byte)));
        EXPECT_TRUE(names.insert(name).second) << byte;
        folder.Write(name, "");
    }
    // Where the file system does not tell capital letters from small ones, 26 are files that were there.
    EXPECT_TRUE(folder.Count() == 256 || folder.Count() == 230) << folder.Count();
}

TEST(FileName, IsRefusedRatherThanCut) {
    EXPECT_EQ(NameOf(std::string(240, 'x')).size(), 240u);
    EXPECT_EQ(NameOf(std::string(241, 'x')), "");
    EXPECT_EQ(NameOf(std::string(80, '/')).size(), 240u);
    EXPECT_EQ(NameOf(std::string(81, '/')), "");
    EXPECT_EQ(VDicomFile::MakeFileName(nullptr, 0, nullptr, 0), 0u);
    char small[4] = "...";
    EXPECT_EQ(VDicomFile::MakeFileName("abcd", DICOM_UNDEFINED, small, sizeof small), 5u);
    EXPECT_STREQ(small, "...");
    EXPECT_EQ(VDicomFile::MakeFileName("abc", DICOM_UNDEFINED, small, sizeof small), 4u);
    EXPECT_STREQ(small, "abc");
}

TEST(FileName, OfFilesThatAreOnTheDisk) {
    const TestFolder folder;
    VDicomFile file;
    EXPECT_FALSE(file.Sync());
    ASSERT_TRUE(file.Open(folder.File("a").c_str(), DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE));
    ASSERT_TRUE(file.Write("abc", 3));
    EXPECT_TRUE(file.Sync());
    EXPECT_TRUE(file.Close(1)); // there is nothing left that it could throw away
    EXPECT_EQ(TestFolder::Read(folder.File("a")), "abc");
    int error = -1;
    EXPECT_TRUE(VDicomFile::SyncFolder(folder.File(".").c_str(), &error));
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(VDicomFile::SyncFolder(folder.File("none").c_str(), &error));
    EXPECT_NE(error, 0);
    EXPECT_FALSE(VDicomFile::SyncFolder(nullptr, nullptr));
}

} // namespace
