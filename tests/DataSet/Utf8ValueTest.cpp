#include "StreamAccess.h"
#include "TestFolder.h"
#include "VDicomDS.h"
#include "VRTraits.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

namespace vr = vdicom::vr;

constexpr VDicomULong kCharacterSet = 0x00080005, kName = 0x00100010, kSequence = 0x00081110, kItem = 0xFFFEE000,
                      kComments = 0x00104000;

std::string TextOf(VDicomDS& ds, DICOMELEMENT* e) {
    const VDicomULong size = ds.GetUtf8Value(e, nullptr, 0);
    if (size == 0)
        return "no text";
    std::string text(size, 'x');
    EXPECT_EQ(ds.GetUtf8Value(e, text.data(), size), size);
    EXPECT_EQ(text.back(), '\0');
    text.pop_back();
    return text;
}

DICOMELEMENT* Put(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag, unsigned short code, const std::string& bytes) {
    DICOMELEMENT* e = ds.FindFirstElement(parent, tag, 1);
    if (e == nullptr)
        e = ds.InsertElement(parent, 1, tag, code, 0, 0);
    EXPECT_TRUE(ds.SetBinaryValue(e, bytes.data(), static_cast<VDicomULong>(bytes.size())));
    return e;
}

TEST(Utf8Value, FollowsTheNearestCharacterSet) {
    VDicomDS ds;
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 100");
    DICOMELEMENT* sequence = ds.InsertElement(nullptr, 1, kSequence, vr::SQ, 1, 0);
    std::vector<DICOMELEMENT*> items;
    std::vector<DICOMELEMENT*> names;
    // More items with a set of their own than are remembered, and between them some without.
    for (VDicomULong i = 0; i < 40; ++i) {
        items.push_back(ds.InsertElement(sequence, 1, kItem, 0, 1, i));
        if (i % 2 == 1)
            Put(ds, items.back(), kCharacterSet, vr::CS, i % 4 == 1 ? "ISO_IR 144" : "ISO_IR 126");
        DICOMELEMENT* inner = ds.InsertElement(items.back(), 1, 0x00081140, vr::SQ, 1, 0);
        DICOMELEMENT* innerItem = ds.InsertElement(inner, 1, kItem, 0, 1, 0);
        names.push_back(Put(ds, innerItem, kName, vr::PN, "\xE4"));
    }
    DICOMELEMENT* top = Put(ds, nullptr, kName, vr::PN, "\xE4");
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < names.size(); ++i)
            EXPECT_EQ(TextOf(ds, names[i]), i % 2 == 0 ? "ä" : i % 4 == 1 ? "ф" : "δ") << i;
        EXPECT_EQ(TextOf(ds, top), "ä");
    }
    // Changed, deleted, empty: seen at once.
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 148");
    Put(ds, nullptr, kName, vr::PN, "\xFE");
    EXPECT_EQ(TextOf(ds, top), "ş");
    ds.DeleteElement(ds.FindFirstElement(items[1], kCharacterSet, 1));
    EXPECT_EQ(TextOf(ds, names[1]), "ä");
    Put(ds, items[3], kCharacterSet, vr::CS, "");
    EXPECT_EQ(TextOf(ds, names[3]), "ä");
    ds.ResetDS();
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 144");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, kName, vr::PN, "\xE4")), "ф");
    // A value in several pieces that is changed in the middle.
    DICOMELEMENT* pieces = ds.FindFirstElement(nullptr, kCharacterSet, 1);
    DICOMELEMENT* name = ds.FindFirstElement(nullptr, kName, 1);
    EXPECT_TRUE(ds.SetFileBinaryValue(pieces, "00", 8, 2));
    EXPECT_EQ(TextOf(ds, name), "ä");
    EXPECT_TRUE(ds.SetFileBinaryValue(pieces, "26", 8, 2));
    EXPECT_EQ(TextOf(ds, name), "δ");
}

TEST(Utf8Value, CutsBetweenCharactersAndLeavesPaddingOut) {
    VDicomDS ds;
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 192");
    DICOMELEMENT* e = Put(ds, nullptr, kName, vr::PN, "a\xC3\xA4\xE5\xB1\xB1\xF0\x9F\x98\x80");
    const std::string whole = "aä山😀";
    for (VDicomULong size = 0; size <= 13; ++size) {
        std::string out(14, 'x');
        EXPECT_EQ(ds.GetUtf8Value(e, out.data(), size), 11u);
        const std::size_t length = size > 10 ? 10 : size > 6 ? 6 : size > 3 ? 3 : size > 1 ? 1 : 0;
        if (size == 0)
            EXPECT_EQ(out, std::string(14, 'x'));
        else
            EXPECT_EQ(out, whole.substr(0, length) + '\0' + std::string(13 - length, 'x')) << size;
    }
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, kName, vr::PN, "ab \\ cd  ")), "ab \\ cd");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, 0x00080018, vr::UI, std::string("1.2.3\0", 6))), "1.2.3");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, kName, vr::PN, "")), "");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, kName, vr::PN, "  ")), "");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, 0x00280010, vr::US, "ab")), "no text");
    EXPECT_EQ(TextOf(ds, nullptr), "no text");
    EXPECT_EQ(TextOf(ds, ds.InsertElement(nullptr, 1, kSequence, vr::SQ, 1, 0)), "no text");
    const std::string large(200000, '\xE9');
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 100");
    EXPECT_EQ(TextOf(ds, Put(ds, nullptr, kComments, vr::LT, large)).size(), 2 * large.size());
}

TEST(Utf8Value, SetsWhatTheCharacterSetCanExpressAndNothingElse) {
    VDicomDS ds;
    DICOMELEMENT* e = Put(ds, nullptr, kName, vr::PN, "old ");
    EXPECT_FALSE(ds.SetUtf8Value(e, "Jérôme"));
    EXPECT_EQ(TextOf(ds, e), "old");
    EXPECT_TRUE(ds.SetUtf8Value(e, "new~"));
    EXPECT_EQ(TextOf(ds, e), "new~");
    Put(ds, nullptr, kCharacterSet, vr::CS, "\\ISO 2022 IR 87");
    EXPECT_TRUE(ds.SetUtf8Value(e, "Yamada^Tarou=山田^太郎"));
    EXPECT_EQ(e->nLength % 2, 0u);
    EXPECT_EQ(TextOf(ds, e), "Yamada^Tarou=山田^太郎");
    EXPECT_FALSE(ds.SetUtf8Value(e, "山田^Jérôme"));
    EXPECT_FALSE(ds.SetUtf8Value(e, "\xFF"));
    EXPECT_FALSE(ds.SetUtf8Value(e, nullptr));
    EXPECT_FALSE(ds.SetUtf8Value(nullptr, "a"));
    EXPECT_EQ(TextOf(ds, e), "Yamada^Tarou=山田^太郎");
    // Codes are bound to the default repertoire whatever the character set.
    Put(ds, nullptr, kCharacterSet, vr::CS, "ISO_IR 192");
    DICOMELEMENT* code = Put(ds, nullptr, 0x00080060, vr::CS, "MR");
    EXPECT_FALSE(ds.SetUtf8Value(code, "MÄ"));
    EXPECT_TRUE(ds.SetUtf8Value(code, "CT"));
    EXPECT_EQ(TextOf(ds, code), "CT");
    DICOMELEMENT* number = Put(ds, nullptr, 0x00280010, vr::US, "ab");
    EXPECT_FALSE(ds.SetUtf8Value(number, "1"));
    // The character set itself is set in the same way.
    EXPECT_TRUE(ds.SetUtf8Value(ds.FindFirstElement(nullptr, kCharacterSet, 1), "ISO_IR 100"));
    EXPECT_TRUE(ds.SetUtf8Value(e, "Jérôme"));
    EXPECT_EQ(e->nLength, 6u);
}

// Real files; the names are what another toolkit reads.
TEST(Utf8Value, NamesOfRealFiles) {
    const std::vector<std::pair<const char*, const char*>> files = {
        {"chrArab", "قباني^لنزار"},
        {"chrFren", "Buc^Jérôme"},
        {"chrFrenMulti", "Buc^Jérôme"},
        {"chrGerm", "Äneas^Rüdiger"},
        {"chrGreek", "Διονυσιος"},
        {"chrH31", "Yamada^Tarou=山田^太郎=やまだ^たろう"},
        {"chrH32", "ﾔﾏﾀﾞ^ﾀﾛｳ=山田^太郎=やまだ^たろう"},
        {"chrHbrw", "שרון^דבורה"},
        {"chrI2", "Hong^Gildong=洪^吉洞=홍^길동"},
        {"chrJapMulti", "やまだ^たろう"},
        {"chrJapMultiExplicitIR6", "やまだ^たろう"},
        {"chrKoreanMulti", "김희중"},
        {"chrRuss", "Люкceмбypг"},
        {"chrSQEncoding", "ﾔﾏﾀﾞ^ﾀﾛｳ=山田^太郎=やまだ^たろう"}, // in an item with its own set
        {"chrSQEncoding1", "ﾔﾏﾀﾞ^ﾀﾛｳ=山田^太郎=やまだ^たろう"},
        {"chrX1", "Wang^XiaoDong=王^小東="},
        {"chrX2", "Wang^XiaoDong=王^小东="},
    };
    const std::string folder = std::string(VDICOM_SHARED) + "/samples/charset/";
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "no samples";
    for (const auto& [file, expected] : files) {
        VDicomDS ds;
        ASSERT_EQ(ds.LoadDS((folder + file + ".dcm").c_str(), 0), 0u) << file;
        DICOMELEMENT* name = ds.FindFirstElement(nullptr, kName, 0);
        while (name != nullptr && TextOf(ds, name) != expected && ds.FindNextElement(name, 0) != nullptr)
            name = ds.FindNextElement(name, 0);
        ASSERT_NE(name, nullptr) << file;
        EXPECT_EQ(TextOf(ds, name), expected) << file;
        // What is written back says the same.
        EXPECT_TRUE(ds.SetUtf8Value(name, expected)) << file;
        EXPECT_EQ(TextOf(ds, name), expected) << file;
    }
}

} // namespace
